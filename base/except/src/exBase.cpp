#include <orn/base/except/exBase.h>

#include <sstream>

namespace Orn {

ExBase::ExBase(char const* file, int line) : _file(file ? file : ""), _line(line) {}

ExBase::~ExBase() = default;

char const* ExBase::what() const noexcept { return _reason.c_str(); }

char const* ExBase::getReason() const { return _reason.c_str(); }

std::string ExBase::getDetailedReason() const {
  std::ostringstream out;
  out << _file << ':' << _line << ": " << _reason;
  return out.str();
}

void ExBase::setReason(char const* reason) { _reason = reason ? reason : ""; }

}  // namespace Orn
