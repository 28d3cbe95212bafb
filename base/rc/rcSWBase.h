#pragma once
// Base of a class that carries its own count block, so that strong handles made separately from a
// raw pointer to it still share one strong count.

#include <orn/base/rc/rcSWCount.h>
#include <orn/base/rc/rcShdPtr.h>

namespace Orn {

template <class Counter = LkCounter<int>>
class RCSWBase {
public:
  RCSWBase() : _counter(new RCSWCount<Counter>()) {}
  // A copy is a new object with a count block of its own.
  RCSWBase(RCSWBase const&) : _counter(new RCSWCount<Counter>()) {}
  RCSWBase& operator=(RCSWBase const&) { return *this; }
  virtual ~RCSWBase() = default;

  RCShdPtr<RCSWCount<Counter>> const& getCounter() const { return _counter; }

private:
  RCShdPtr<RCSWCount<Counter>> _counter;
};

}  // namespace Orn
