#pragma once
// Type record of a class in the hierarchy of root class Root. A record takes its id from the
// hierarchy's registry and registers itself when created; it unregisters when destroyed.

#include <orn/base/except/assertions.h>
#include <orn/base/rtti/rttiEx.h>
#include <orn/base/rtti/rttiTypeBase.h>
#include <orn/base/rtti/rttiTypeRegistry.h>

#include <string>

namespace Orn {

template <class Root>
class RttiType : public RttiTypeBase {
public:
  // Registers the record under name, once parent (if any) is its ancestor. Raises
  // RttiEx::ExAlreadyExists when the name is taken.
  explicit RttiType(char const* name, RttiTypeBase* parent = nullptr)
      : RttiTypeBase(newTypeId()), _name(name ? name : ""), _registered(false) {
    if (parent) addAncestor(parent);
    performRegister();
  }
  ~RttiType() override {
    // A record removed from its registry by other means is simply forgotten.
    try {
      if (_registered) performUnregister();
    } catch (RttiEx::ExNotFound const&) {
    }
  }

  char const* getName() const override { return _name.c_str(); }
  bool isRegistered() const { return _registered; }

  void performRegister() {
    RttiTypeRegistry<Root>* registry = RttiTypeRegistry<Root>::getInstance();
    ORN_ASSERT(registry);
    registry->addType(this);
    _registered = true;
  }
  // Raises RttiEx::ExNotFound when the registry does not hold this record. Nothing happens once
  // the registry is gone.
  void performUnregister() {
    RttiTypeRegistry<Root>* registry = RttiTypeRegistry<Root>::getInstance();
    _registered = false;
    if (registry) registry->removeType(this);
  }

private:
  static int newTypeId() {
    RttiTypeRegistry<Root>* registry = RttiTypeRegistry<Root>::getInstance();
    ORN_ASSERT(registry);
    return registry->takeNextTypeId();
  }

  std::string _name;
  bool _registered;
};

}  // namespace Orn
