#include <orn/base/containers/iteratorEx.h>

#include <sstream>

namespace Orn {

IteratorEx::ExOutOfRange::ExOutOfRange(char const* file, int line) : IteratorEx(file, line) {
  std::ostringstream out;
  out << "Iterator out of range";
  setReason(out.str().c_str());
}

}  // namespace Orn
