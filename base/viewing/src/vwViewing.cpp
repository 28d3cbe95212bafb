#include <orn/base/viewing/vwViewing.h>

#include <utility>

namespace Orn {

VwViewing::VwViewing(std::string name) : _name(std::move(name)) {}

VwViewing::VwViewing(VwViewing const& other) : RCBase<LkCounter<int>>(other), _name(other._name) {}

VwViewing::~VwViewing() = default;

void VwViewing::changed() { _changedDispatcher.call(this); }

}  // namespace Orn
