#pragma once
// Text output of the scalars of geometry values. Floating-point fields are written with enough
// digits to be read back to the same bits, whatever precision or notation the stream is set to.

#include <ios>
#include <limits>
#include <ostream>
#include <type_traits>

namespace Orn {

class GeStreamUtil {
public:
  template <class T>
  static void write(std::ostream& out, T value) {
    if constexpr (std::is_floating_point_v<T>) {
      std::streamsize const oldPrecision = out.precision(std::numeric_limits<T>::max_digits10);
      std::ios_base::fmtflags const oldFlags = out.flags();
      out.unsetf(std::ios_base::floatfield);
      out << value;
      out.flags(oldFlags);
      out.precision(oldPrecision);
    } else {
      out << value;
    }
  }

  // Writes the values separated by single blanks.
  template <class T, class... Rest>
  static void writeFields(std::ostream& out, T first, Rest... rest) {
    write(out, first);
    ((out << ' ', write(out, rest)), ...);
  }
};

}  // namespace Orn
