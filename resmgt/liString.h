#pragma once
// The library's value string. It converts to and from the standard string and orders as it does
// (byte-wise).

#include <compare>
#include <cstddef>
#include <functional>
#include <ostream>
#include <string>
#include <utility>

namespace Orn {

class LiString {
public:
  LiString() = default;
  LiString(char const* text) : _text(text ? text : "") {}
  LiString(std::string text) : _text(std::move(text)) {}
  LiString(LiString const&) = default;
  LiString(LiString&&) noexcept = default;
  LiString& operator=(LiString const&) = default;
  LiString& operator=(LiString&&) noexcept = default;

  operator std::string const&() const { return _text; }
  std::string const& str() const { return _text; }
  char const* c_str() const { return _text.c_str(); }
  std::size_t size() const { return _text.size(); }
  std::size_t length() const { return _text.size(); }
  bool empty() const { return _text.empty(); }

  LiString& operator+=(LiString const& other) {
    _text += other._text;
    return *this;
  }
  friend LiString operator+(LiString left, LiString const& right) { return left += right; }

  friend bool operator==(LiString const& a, LiString const& b) { return a._text == b._text; }
  friend std::strong_ordering operator<=>(LiString const& a, LiString const& b) {
    int const c = a._text.compare(b._text);
    return c < 0 ? std::strong_ordering::less : c > 0 ? std::strong_ordering::greater : std::strong_ordering::equal;
  }

  friend std::ostream& operator<<(std::ostream& out, LiString const& s) { return out << s._text; }

private:
  std::string _text;
};

}  // namespace Orn

template <>
struct std::hash<Orn::LiString> {
  std::size_t operator()(Orn::LiString const& s) const noexcept { return std::hash<std::string>()(s.str()); }
};
