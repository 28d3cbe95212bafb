#include <orn/base/rc/rcEx.h>

#include <cxxabi.h>

#include <cstdlib>
#include <memory>
#include <sstream>

namespace Orn {

RCEx::ExNullPtr::ExNullPtr(char const* file, int line, char const* typeName) : RCEx(file, line) {
  std::ostringstream out;
  out << "Null pointer dereferenced, type " << (typeName ? typeName : "unknown");
  setReason(out.str().c_str());
}

RCEx::ExCastFailed::ExCastFailed(char const* file, int line, char const* from, char const* to)
    : RCEx(file, line) {
  std::ostringstream out;
  out << "Cast failed from " << (from ? from : "unknown") << " to " << (to ? to : "unknown");
  setReason(out.str().c_str());
}

void RCExUtil::throwExNullPtr(char const* typeName) { throw RCEx::ExNullPtr(__FILE__, __LINE__, typeName); }

void RCExUtil::throwExCastFailed(char const* from, char const* to) {
  throw RCEx::ExCastFailed(__FILE__, __LINE__, from, to);
}

std::string demangleTypeName(char const* mangled) {
  int status = 0;
  std::unique_ptr<char, void (*)(void*)> name(abi::__cxa_demangle(mangled, nullptr, nullptr, &status),
                                             std::free);
  return status == 0 && name ? std::string(name.get()) : std::string(mangled);
}

}  // namespace Orn
