#include <orn/base/rtti/rttiEx.h>

#include <sstream>

namespace Orn {

RttiEx::ExNotFound::ExNotFound(char const* file, int line, char const* typeName) : RttiEx(file, line) {
  std::ostringstream out;
  out << "Type not registered: " << (typeName ? typeName : "");
  setReason(out.str().c_str());
}

RttiEx::ExAlreadyExists::ExAlreadyExists(char const* file, int line, char const* typeName) : RttiEx(file, line) {
  std::ostringstream out;
  out << "Type already registered: " << (typeName ? typeName : "");
  setReason(out.str().c_str());
}

}  // namespace Orn
