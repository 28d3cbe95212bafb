#pragma once
// Failures of handles: dereferencing null, failed casts.

#include <orn/base/except/exBase.h>

#include <string>
#include <typeinfo>

namespace Orn {

class RCEx : public ExBase {
public:
  using ExBase::ExBase;
  RCEx* clone() const override = 0;
  [[noreturn]] void raise() const override = 0;

  class ExNullPtr;
  class ExCastFailed;
};

class RCEx::ExNullPtr : public RCEx {
public:
  ExNullPtr(char const* file, int line, char const* typeName);
  ORN_EX_CONCRETE(ExNullPtr)
};

class RCEx::ExCastFailed : public RCEx {
public:
  ExCastFailed(char const* file, int line, char const* from, char const* to);
  ORN_EX_CONCRETE(ExCastFailed)
};

class RCExUtil {
public:
  [[noreturn]] static void throwExNullPtr(char const* typeName);
  [[noreturn]] static void throwExCastFailed(char const* from, char const* to);
};

// Readable (demangled) name of a type.
std::string demangleTypeName(char const* mangled);

template <class T>
std::string typeNameOf() {
  return demangleTypeName(typeid(T).name());
}

}  // namespace Orn
