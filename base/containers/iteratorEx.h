#pragma once
// Failures of iterators.

#include <orn/base/except/exBase.h>

namespace Orn {

class IteratorEx : public ExBase {
public:
  using ExBase::ExBase;
  IteratorEx* clone() const override = 0;
  [[noreturn]] void raise() const override = 0;

  class ExOutOfRange;
};

// Stepping or reading outside an iterator's range.
class IteratorEx::ExOutOfRange : public IteratorEx {
public:
  ExOutOfRange(char const* file, int line);
  ORN_EX_CONCRETE(ExOutOfRange)
};

}  // namespace Orn
