#pragma once
// An integer read from an environment variable. The variable is read on every getValue(), so a
// change of the environment is seen at once. An unset variable, and any text that is not an integer
// in the range of int (surrounding blanks allowed), give the default.

#include <string>

namespace Orn {

class EnvIntVar {
public:
  EnvIntVar(char const* name, char const* description, int defaultValue);

  int getValue() const;
  std::string const& getName() const { return _name; }
  std::string const& getDescription() const { return _description; }
  int getDefault() const { return _default; }

  // The integer of a text, or fallback when it is not one.
  static int parse(char const* text, int fallback);

private:
  std::string _name;
  std::string _description;
  int _default;
};

}  // namespace Orn
