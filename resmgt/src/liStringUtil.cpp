#include <orn/resmgt/liStringUtil.h>

namespace Orn {

std::string LiStringUtil::convertNb(int value) { return std::to_string(value); }

}  // namespace Orn
