#include <orn/pluginAPI/piTimePath.h>

namespace Orn {

PiTimePath::PiTimePath() : _time(0.0), _headTime(0.0), _hasHead(false) {}

PiTimePath::PiTimePath(double time, double headTime) : _time(time), _headTime(headTime), _hasHead(true) {}

PiTimePath::~PiTimePath() = default;

double PiTimePath::getTime() const { return _time; }

double PiTimePath::getHeadTime() const { return _headTime; }

bool PiTimePath::getHeadTime(double time, double& headTime) const {
  if (!_hasHead) return false;
  headTime = time + (_headTime - _time);
  return true;
}

}  // namespace Orn
