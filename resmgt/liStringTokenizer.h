#pragma once
// Splits a text into tokens at any of a set of separator characters.
//
// By default empty tokens (between two adjacent separators, or before a leading or after a
// trailing separator) are skipped: "a,,b," split at "," gives "a", "b". KEEP_EMPTY keeps them, so
// that fields keep their positions: "a,,b," gives "a", "", "b", "". An empty text gives no token
// in either mode.
//
// A predicate chooses which tokens are kept; LiStringTokenizer::All keeps every token.

#include <string>
#include <utility>
#include <vector>

namespace Orn {

class LiStringTokenizer {
public:
  enum EmptyTokens { SKIP_EMPTY, KEEP_EMPTY };

  // Accepts every token.
  struct All {
    bool operator()(std::string const&) const { return true; }
  };

  using const_iterator = std::vector<std::string>::const_iterator;
  using iterator = const_iterator;

  LiStringTokenizer(std::string const& text, std::string const& separators, EmptyTokens empty = SKIP_EMPTY)
      : LiStringTokenizer(text, separators, All(), empty) {}

  template <class Predicate>
  LiStringTokenizer(std::string const& text, std::string const& separators, Predicate keep,
                    EmptyTokens empty = SKIP_EMPTY) {
    for (std::string& token : split(text, separators, empty)) {
      if (keep(static_cast<std::string const&>(token))) _tokens.push_back(std::move(token));
    }
  }

  const_iterator begin() const { return _tokens.begin(); }
  const_iterator end() const { return _tokens.end(); }
  std::size_t size() const { return _tokens.size(); }
  bool empty() const { return _tokens.empty(); }
  std::string const& operator[](std::size_t i) const { return _tokens[i]; }
  std::vector<std::string> const& getTokens() const { return _tokens; }

private:
  static std::vector<std::string> split(std::string const& text, std::string const& separators, EmptyTokens empty);

  std::vector<std::string> _tokens;
};

}  // namespace Orn
