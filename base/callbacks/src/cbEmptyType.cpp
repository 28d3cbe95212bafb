#include <orn/base/callbacks/cbEmptyType.h>
#include <orn/base/except/assertions.h>

namespace Orn {

void CbEmptyType::NoArgCallBase::invalidNoArgCall() {
  Assertions::throwProgramAborted(__FILE__, __LINE__,
                                  "call() without argument is only valid for callbacks of CbEmptyType");
}

}  // namespace Orn
