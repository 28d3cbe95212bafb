#pragma once
// Link between the local time of an animated item and the time of the playhead that drives it:
// the item is at getTime() when the head is at getHeadTime(). A path may have no head, in which
// case nothing can be mapped through it.

#include <orn/base/rc/lkCounter.h>
#include <orn/base/rc/rcBase.h>

namespace Orn {

class PiTimePath : public RCBase<LkCounter<int>> {
public:
  // A path without a head, at time 0.
  PiTimePath();
  PiTimePath(double time, double headTime);
  ~PiTimePath() override;

  virtual double getTime() const;
  // The head time; 0 for a path without a head.
  virtual double getHeadTime() const;
  // Maps a local time to the head's time; false, leaving headTime alone, when there is no head.
  virtual bool getHeadTime(double time, double& headTime) const;
  bool hasHead() const { return _hasHead; }

private:
  double _time;
  double _headTime;
  bool _hasHead;
};

}  // namespace Orn
