#pragma once
// Conversions between numbers and text.

#include <string>

namespace Orn {

class LiStringUtil {
public:
  // Decimal text of an integer: "-42", "0", "2600".
  static std::string convertNb(int value);
};

}  // namespace Orn
