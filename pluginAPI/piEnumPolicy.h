#pragma once
// How a plug-in offers a choice among named integer values: the (value, name) pairs in display
// order, the value chosen by default and whether the choice may be animated. Policies are
// immutable once built; a Builder collects the pairs and makes the shared policy.

#include <orn/base/containers/vector.h>
#include <orn/base/rc/lkCounter.h>
#include <orn/base/rc/rcBase.h>
#include <orn/base/rc/rcShdPtr.h>
#include <orn/resmgt/liString.h>

namespace Orn {

class PiEnumPolicy : public RCBase<LkCounter<int>> {
public:
  class Builder;

  ~PiEnumPolicy() override;

  int getNbPairs() const { return int(_values.size()); }
  // Value and name of pair i, 0 <= i < getNbPairs(), in the order the pairs were added.
  int getValue(int i) const;
  LiString getName(int i) const;
  int getDefaultValue() const { return _defaultValue; }
  bool isAnimatable() const { return _animatable; }

  // Index of the first pair with this value, -1 when there is none.
  int findValue(int value) const;

private:
  PiEnumPolicy(Vector<int> values, Vector<LiString> names, int defaultValue, bool animatable);

  Vector<int> _values;
  Vector<LiString> _names;
  int _defaultValue;
  bool _animatable;
};

class PiEnumPolicy::Builder {
public:
  // No pairs, default value 0, not animatable.
  Builder();

  // Appends a pair; values need not be distinct or ordered.
  Builder& addPair(int value, LiString const& name);
  Builder& setDefaultValue(int value);
  Builder& setAnimatable(bool animatable);

  // A new policy with the pairs and settings so far; the builder can go on and make more.
  RCShdPtr<PiEnumPolicy const> create() const;

private:
  Vector<int> _values;
  Vector<LiString> _names;
  int _defaultValue;
  bool _animatable;
};

}  // namespace Orn
