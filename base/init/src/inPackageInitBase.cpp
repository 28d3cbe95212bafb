#include <orn/base/init/inPackageInitBase.h>

namespace Orn {

InPackageInitBase::~InPackageInitBase() = default;

}  // namespace Orn
