#pragma once
// Tolerant comparisons of floating-point values, and the assertion that reports the operands of a
// failed comparison.
//
// The tests are deliberately not symmetric in the way one would first write them:
// - absolute closeness of a and b with tolerance e: if a > b then b + e >= a, otherwise a + e >= b;
// - zero test of x with tolerance e: if x > 0 then e >= x, otherwise e + x >= 0;
// - the relative tolerance of a and b is max(|a|, |b|) times the type's epsilon, an infinite
//   magnitude counting as 0.

#include <orn/base/except/assertions.h>

#include <cmath>
#include <limits>
#include <sstream>
#include <string>

namespace Orn {

class FloatUtil {
public:
  // What a failed comparison asserted; the template argument of ThrowAssertionFailed.
  enum Comparison { GREATER = 0, LESS = 1, EQUAL = 2 };

  template <class T>
  static T abs(T x) {
    if constexpr (std::numeric_limits<T>::is_integer) {
      return x < 0 ? -x : x;
    } else {
      return std::fabs(x);
    }
  }

  // 1.1920929e-7 for float, 2.220446049250313e-16 for double.
  template <class T>
  static constexpr T getEpsilon() {
    return std::numeric_limits<T>::epsilon();
  }

  template <class T>
  static bool isAbsEqual(T a, T b, T tolerance) {
    return a > b ? b + tolerance >= a : a + tolerance >= b;
  }

  template <class T>
  static bool isAbsZero(T x, T tolerance) {
    return x > 0 ? tolerance >= x : tolerance + x >= 0;
  }

  template <class T>
  static T getRelTolerance(T a, T b) {
    T const absA = abs(a);
    T const absB = abs(b);
    T magnitude = absA > absB ? absA : absB;
    if (std::isinf(magnitude)) magnitude = T(0);
    return magnitude * getEpsilon<T>();
  }

  template <class T>
  static bool isRelEqual(T a, T b) {
    return isAbsEqual(a, b, getRelTolerance(a, b));
  }

  // In effect only an exact zero passes: a tiny negative value does not.
  template <class T>
  static bool isRelZero(T x) {
    return isAbsZero(x, getRelTolerance(x, T(0)));
  }

  // a > b beyond the relative tolerance. Against 0: any positive finite value and +infinity pass;
  // zero, negatives and NaN do not.
  template <class T>
  static bool isRelGreater(T a, T b) {
    return a > b + getRelTolerance(a, b);
  }

  template <class T>
  static bool isRelLess(T a, T b) {
    return isRelGreater(b, a);
  }

  class ExComparisonFailed;

  // Raises the assertion exception for a failed comparison "condition text1 text2", e.g.
  // ("aspectRatio.getFloat()", " is greater than ", "0.F"), and reports both operands and the
  // tolerance in the reason. Kind is one of Comparison.
  template <class T, int Kind>
  struct ThrowAssertionFailed {
    [[noreturn]] static void throwAssertionFailed(char const* file, int line, char const* condition,
                                                  char const* text1, char const* text2, T a, T b,
                                                  T tolerance);
  };
};

// An assertion failure whose reason also shows the operands. getCondition() is the condition text
// alone, so it can be caught and read as any other failed assertion.
class FloatUtil::ExComparisonFailed : public AssertionsEx::ExAssertionFailed {
public:
  template <class T>
  ExComparisonFailed(char const* file, int line, std::string const& condition, char const* leftText,
                     char const* rightText, int kind, T a, T b, T tolerance)
      : AssertionsEx::ExAssertionFailed(file, line, condition.c_str()) {
    std::ostringstream out;
    out.precision(std::numeric_limits<T>::max_digits10);
    out << "Assertion failed: " << condition << " with " << leftText << " = " << a << ", "
        << rightText << " = " << b << ", tolerance = " << tolerance;
    switch (kind) {
      case GREATER:
        out << " (needs a > b + tolerance)";
        break;
      case LESS:
        out << " (needs a + tolerance < b)";
        break;
      case EQUAL:
        out << " (needs |a - b| <= tolerance)";
        break;
      default:
        break;
    }
    out << " (" << getFile() << ':' << line << ')';
    setReason(out.str().c_str());
  }
  ORN_EX_CONCRETE(ExComparisonFailed)
};

template <class T, int Kind>
void FloatUtil::ThrowAssertionFailed<T, Kind>::throwAssertionFailed(char const* file, int line,
                                                                    char const* condition,
                                                                    char const* text1,
                                                                    char const* text2, T a, T b,
                                                                    T tolerance) {
  std::string const full = std::string(condition ? condition : "") + (text1 ? text1 : "") +
                           (text2 ? text2 : "");
  throw ExComparisonFailed(file, line, full, condition ? condition : "", text2 ? text2 : "", Kind, a,
                           b, tolerance);
}

}  // namespace Orn

// Asserts a > b for floats, with the relative tolerance of FloatUtil::isRelGreater. The failure's
// condition reads "<a> is greater than <b>" with both expressions as written.
#define ORN_ASSERT_FLOAT_GREATER(a, b)                                                          \
  do {                                                                                          \
    float const ornFloatA_ = (a);                                                               \
    float const ornFloatB_ = (b);                                                               \
    if (!::Orn::FloatUtil::isRelGreater(ornFloatA_, ornFloatB_))                                \
      ::Orn::FloatUtil::ThrowAssertionFailed<float, ::Orn::FloatUtil::GREATER>::                \
          throwAssertionFailed(__FILE__, __LINE__, #a, " is greater than ", #b, ornFloatA_,     \
                               ornFloatB_,                                                      \
                               ::Orn::FloatUtil::getRelTolerance(ornFloatA_, ornFloatB_));      \
  } while (0)

// Asserts a < b for floats, the mirror of ORN_ASSERT_FLOAT_GREATER.
#define ORN_ASSERT_FLOAT_LESS(a, b)                                                             \
  do {                                                                                          \
    float const ornFloatA_ = (a);                                                               \
    float const ornFloatB_ = (b);                                                               \
    if (!::Orn::FloatUtil::isRelLess(ornFloatA_, ornFloatB_))                                   \
      ::Orn::FloatUtil::ThrowAssertionFailed<float, ::Orn::FloatUtil::LESS>::                   \
          throwAssertionFailed(__FILE__, __LINE__, #a, " is less than ", #b, ornFloatA_,        \
                               ornFloatB_,                                                      \
                               ::Orn::FloatUtil::getRelTolerance(ornFloatA_, ornFloatB_));      \
  } while (0)

// Asserts a and b relatively equal for floats.
#define ORN_ASSERT_FLOAT_EQUAL(a, b)                                                            \
  do {                                                                                          \
    float const ornFloatA_ = (a);                                                               \
    float const ornFloatB_ = (b);                                                               \
    if (!::Orn::FloatUtil::isRelEqual(ornFloatA_, ornFloatB_))                                  \
      ::Orn::FloatUtil::ThrowAssertionFailed<float, ::Orn::FloatUtil::EQUAL>::                  \
          throwAssertionFailed(__FILE__, __LINE__, #a, " is equal to ", #b, ornFloatA_,         \
                               ornFloatB_,                                                      \
                               ::Orn::FloatUtil::getRelTolerance(ornFloatA_, ornFloatB_));      \
  } while (0)
