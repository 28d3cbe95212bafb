#include <orn/base/except/assertions.h>
#include <orn/base/geometryBase/rationalUtil.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>

namespace Orn {

RationalUtilEx::ExBadFraction::ExBadFraction(char const* file, int line, char const* text) : RationalUtilEx(file, line) {
  std::ostringstream out;
  out << "Not a fraction: \"" << (text ? text : "(null)") << '"';
  setReason(out.str().c_str());
}

namespace {

bool isBlank(char c) { return c == ' ' || c == '\t'; }

// A whole 32-bit integer, blanks allowed around it.
bool parseInt(std::string const& text, int& value) {
  std::size_t begin = 0;
  std::size_t end = text.size();
  while (begin < end && isBlank(text[begin])) ++begin;
  while (end > begin && isBlank(text[end - 1])) --end;
  if (begin == end) return false;
  std::string const digits = text.substr(begin, end - begin);
  errno = 0;
  char* stop = nullptr;
  long long const v = std::strtoll(digits.c_str(), &stop, 10);
  if (errno != 0 || stop != digits.c_str() + digits.size()) return false;
  if (v < INT_MIN || v > INT_MAX) return false;
  value = int(v);
  return true;
}

using Wide = __int128;

Wide absWide(Wide v) { return v < 0 ? -v : v; }

}  // namespace

Rational RationalUtil::fromFractionString(char const* text, char separator) {
  if (!text) throw RationalUtilEx::ExBadFraction(__FILE__, __LINE__, text);
  std::string const s(text);
  std::size_t const pos = s.find(separator);
  int numerator = 0;
  int denominator = 1;
  bool ok = false;
  if (pos == std::string::npos) {
    ok = parseInt(s, numerator);
  } else {
    ok = parseInt(s.substr(0, pos), numerator) && parseInt(s.substr(pos + 1), denominator);
  }
  if (!ok) throw RationalUtilEx::ExBadFraction(__FILE__, __LINE__, text);
  return Rational(numerator, denominator);
}

Rational RationalUtil::fromFloat(float value, unsigned int maxDenominator) {
  ORN_ASSERT(!std::isnan(value));
  ORN_ASSERT(maxDenominator > 0);
  if (std::isinf(value)) return Rational(value > 0 ? 1 : -1, 0);
  ORN_ASSERT(std::fabs(value) < 2147483648.f);

  // |value| = p / q exactly, q a power of two. A value below 2^-40 is nearer to 0 than to any
  // fraction with a denominator that fits an int, so it needs no exact form.
  bool const negative = value < 0;
  float const magnitude = std::fabs(value);
  if (magnitude < 0x1p-40f) return Rational(0, 1);
  int exponent = 0;
  float const mantissa = std::frexp(magnitude, &exponent);  // magnitude = mantissa * 2^exponent
  Wide p = Wide(std::int64_t(std::ldexp(mantissa, 24)));    // exact: 24 significant bits
  int shift = 24 - exponent;                                // magnitude = p / 2^shift
  Wide q = 1;
  if (shift > 0) {
    q = Wide(1) << shift;
  } else {
    p <<= -shift;
  }

  Wide const maxDen = std::min<Wide>(Wide(maxDenominator), Wide(INT_MAX));
  Wide const maxNum = Wide(INT_MAX);

  // Convergents h/k of the continued fraction of p/q: (h1, k1) the last, (h2, k2) the one before.
  Wide h1 = 1, k1 = 0;
  Wide h2 = 0, k2 = 1;
  Wide num = p;
  Wide den = q;
  Wide bestH = 0, bestK = 1;
  while (den != 0) {
    Wide const a = num / den;
    Wide const h = a * h1 + h2;
    Wide const k = a * k1 + k2;
    if (k > maxDen || h > maxNum) {
      // The first term always fits, so (h1, k1) is a convergent here. Against it stands the
      // largest semiconvergent (j h1 + h2) / (j k1 + k2) within both bounds.
      Wide j = std::min((maxDen - k2) / k1, a);
      if (h1 > 0) j = std::min(j, (maxNum - h2) / h1);
      bestH = h1;
      bestK = k1;
      if (j > 0) {
        Wide const semiH = j * h1 + h2;
        Wide const semiK = j * k1 + k2;
        // |p/q - H/K| = |p K - H q| / (q K); compared without dividing.
        Wide const errConvergent = absWide(p * k1 - h1 * q) * semiK;
        Wide const errSemi = absWide(p * semiK - semiH * q) * k1;
        if (errSemi < errConvergent) {
          bestH = semiH;
          bestK = semiK;
        }
      }
      break;
    }
    h2 = h1;
    k2 = k1;
    h1 = h;
    k1 = k;
    bestH = h;
    bestK = k;
    Wide const rest = num - a * den;
    num = den;
    den = rest;
  }
  int const n = int(bestH);
  return Rational(negative ? -n : n, int(bestK));
}

}  // namespace Orn
