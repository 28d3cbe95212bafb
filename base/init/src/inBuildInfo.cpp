#include <orn/base/init/inBuildInfo.h>

namespace Orn {

InBuildInfo::~InBuildInfo() = default;

std::string InBuildInfo::getBuildKindText() const {
  return getBuildKind() == DEVELOPMENT_BUILD ? std::string("dev") : std::string();
}

}  // namespace Orn
