#include <orn/base/init/inVariableBase.h>

namespace Orn {

InVariableBase::~InVariableBase() = default;

}  // namespace Orn
