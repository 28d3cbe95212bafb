#pragma once
// Argument type of callbacks that carry no value: CbHandler<CbEmptyType> and
// CbDispatcher<CbEmptyType> may be called without an argument.

namespace Orn {

struct CbEmptyType {
  friend bool operator==(CbEmptyType, CbEmptyType) { return true; }

  // Target of a no-argument call made on a callback whose argument type is not CbEmptyType.
  class NoArgCallBase {
  public:
    [[noreturn]] static void invalidNoArgCall();
  };
};

}  // namespace Orn
