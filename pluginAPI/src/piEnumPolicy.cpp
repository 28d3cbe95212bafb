#include <orn/pluginAPI/piEnumPolicy.h>

#include <orn/base/except/assertions.h>

#include <utility>

namespace Orn {

PiEnumPolicy::PiEnumPolicy(Vector<int> values, Vector<LiString> names, int defaultValue, bool animatable)
    : _values(std::move(values)), _names(std::move(names)), _defaultValue(defaultValue), _animatable(animatable) {}

PiEnumPolicy::~PiEnumPolicy() = default;

int PiEnumPolicy::getValue(int i) const {
  ORN_ASSERT(i >= 0 && i < getNbPairs());
  return _values[std::size_t(i)];
}

LiString PiEnumPolicy::getName(int i) const {
  ORN_ASSERT(i >= 0 && i < getNbPairs());
  return _names[std::size_t(i)];
}

int PiEnumPolicy::findValue(int value) const {
  for (std::size_t i = 0; i < _values.size(); ++i)
    if (_values[i] == value) return int(i);
  return -1;
}

PiEnumPolicy::Builder::Builder() : _defaultValue(0), _animatable(false) {}

PiEnumPolicy::Builder& PiEnumPolicy::Builder::addPair(int value, LiString const& name) {
  _values.push_back(value);
  _names.push_back(name);
  return *this;
}

PiEnumPolicy::Builder& PiEnumPolicy::Builder::setDefaultValue(int value) {
  _defaultValue = value;
  return *this;
}

PiEnumPolicy::Builder& PiEnumPolicy::Builder::setAnimatable(bool animatable) {
  _animatable = animatable;
  return *this;
}

RCShdPtr<PiEnumPolicy const> PiEnumPolicy::Builder::create() const {
  return RCShdPtr<PiEnumPolicy const>(new PiEnumPolicy(_values, _names, _defaultValue, _animatable));
}

}  // namespace Orn
