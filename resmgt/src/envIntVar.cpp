#include <orn/resmgt/envIntVar.h>

#include <cctype>
#include <cerrno>
#include <climits>
#include <cstdlib>

namespace Orn {

EnvIntVar::EnvIntVar(char const* name, char const* description, int defaultValue)
    : _name(name ? name : ""), _description(description ? description : ""), _default(defaultValue) {}

int EnvIntVar::getValue() const { return parse(std::getenv(_name.c_str()), _default); }

int EnvIntVar::parse(char const* text, int fallback) {
  if (!text) return fallback;
  errno = 0;
  char* end = nullptr;
  long const value = std::strtol(text, &end, 10);
  if (end == text || errno == ERANGE || value < INT_MIN || value > INT_MAX) return fallback;
  while (*end != '\0' && std::isspace(static_cast<unsigned char>(*end))) ++end;
  return *end == '\0' ? int(value) : fallback;
}

}  // namespace Orn
