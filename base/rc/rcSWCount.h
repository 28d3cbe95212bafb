#pragma once
// Separately allocated count block: its own reference count keeps the block alive, its strong
// count counts the owners of a value that has no count of its own.

#include <orn/base/rc/rcBase.h>

namespace Orn {

template <class Counter = LkCounter<int>>
class RCSWCount : public RCBase<Counter> {
public:
  RCSWCount() : _strongCount(0) {}
  RCSWCount(RCSWCount const&) = delete;
  RCSWCount& operator=(RCSWCount const&) = delete;

  // Both return the new strong count.
  int incrementStrongCount() { return int(++_strongCount); }
  int decrementStrongCount() { return int(--_strongCount); }
  int getStrongCount() const { return int(_strongCount); }

private:
  Counter _strongCount;
};

}  // namespace Orn
