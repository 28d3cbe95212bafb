#pragma once
// Root of every exception of the library.

#include <exception>
#include <string>

namespace Orn {

class ExBase : public std::exception {
public:
  ExBase(char const* file, int line);
  ExBase(ExBase const& other) = default;
  ExBase& operator=(ExBase const& other) = default;
  ~ExBase() override;

  // The reason, as composed by the concrete exception's constructor.
  char const* what() const noexcept override;
  virtual char const* getReason() const;
  // "file:line: reason".
  virtual std::string getDetailedReason() const;
  // A heap copy of the most derived type, so a caught exception can be stored and raised again.
  virtual ExBase* clone() const = 0;
  // Throws a copy of the most derived type.
  [[noreturn]] virtual void raise() const = 0;

  char const* getFile() const { return _file.c_str(); }
  int getLine() const { return _line; }

protected:
  void setReason(char const* reason);

private:
  std::string _file;
  int _line;
  std::string _reason;
};

}  // namespace Orn

// clone() and raise() of a concrete exception class.
#define ORN_EX_CONCRETE(Class)                                                   \
  Class* clone() const override { return new Class(*this); }                   \
  [[noreturn]] void raise() const override { throw *this; }
