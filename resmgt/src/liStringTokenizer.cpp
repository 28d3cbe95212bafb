#include <orn/resmgt/liStringTokenizer.h>

namespace Orn {

std::vector<std::string> LiStringTokenizer::split(std::string const& text, std::string const& separators,
                                                  EmptyTokens empty) {
  std::vector<std::string> tokens;
  if (text.empty()) return tokens;
  std::string::size_type start = 0;
  while (true) {
    std::string::size_type const stop = text.find_first_of(separators, start);
    std::string::size_type const end = stop == std::string::npos ? text.size() : stop;
    if (end > start || empty == KEEP_EMPTY) tokens.push_back(text.substr(start, end - start));
    if (stop == std::string::npos) break;
    start = stop + 1;
  }
  return tokens;
}

}  // namespace Orn
