#pragma once
// The registry singleton of a hierarchy: a lock named after the root class, a type id counter
// starting at 1, and the registered types in no particular order.

#include <orn/base/containers/vector.h>
#include <orn/base/except/assertions.h>
#include <orn/base/rtti/rttiEx.h>
#include <orn/base/rtti/rttiType.h>
#include <orn/base/rtti/rttiTypeRegistry.h>
#include <orn/base/singleton/lkSingleton.h>
#include <orn/resmgt/lkLock.h>

#include <algorithm>
#include <cstring>
#include <ostream>

namespace Orn {

template <class Root>
class RttiTypeRegistryImp : public RttiTypeRegistry<Root> {
public:
  RttiTypeRegistryImp() : _lock(Root::getRttiClassName()), _nextTypeId(1) {}
  ~RttiTypeRegistryImp() noexcept(false) override { ORN_ASSERT(_types.empty()); }

  RttiType<Root>* findType(char const* name) const override {
    LkLock::Guard guard(_lock);
    return findUnlocked(name);
  }

  void addType(RttiType<Root>* type) override {
    ORN_ASSERT(type);
    LkLock::Guard guard(_lock);
    if (findUnlocked(type->getName())) throw RttiEx::ExAlreadyExists(__FILE__, __LINE__, type->getName());
    _types.push_back(type);
  }

  void removeType(RttiType<Root>* type) override {
    ORN_ASSERT(type);
    LkLock::Guard guard(_lock);
    auto found = std::find(_types.begin(), _types.end(), type);
    if (found == _types.end()) throw RttiEx::ExNotFound(__FILE__, __LINE__, type->getName());
    *found = _types.back();
    _types.pop_back();
    bool const wasLast = _types.empty();
    guard.release();
    // Deletes this object: nothing may touch it afterwards.
    if (wasLast) LkSingleton<RttiTypeRegistryImp>::destroy();
  }

  int getNbTypes() const override {
    LkLock::Guard guard(_lock);
    return int(_types.size());
  }
  int getNextTypeId() const override {
    LkLock::Guard guard(_lock);
    return _nextTypeId;
  }
  int takeNextTypeId() override {
    LkLock::Guard guard(_lock);
    return _nextTypeId++;
  }

  void dump(std::ostream& out) const override {
    LkLock::Guard guard(_lock);
    out << "RttiTypeRegistry of " << Root::getRttiClassName() << '\n'
        << "Next type Id: " << _nextTypeId << '\n'
        << "Registered  types:" << '\n'
        << "------------------------" << '\n';
    for (RttiType<Root> const* type : _types) type->dump(out, 2);
  }

private:
  RttiType<Root>* findUnlocked(char const* name) const {
    ORN_ASSERT(name);
    for (RttiType<Root>* type : _types)
      if (std::strcmp(type->getName(), name) == 0) return type;
    return nullptr;
  }

  mutable LkLock _lock;
  int _nextTypeId;
  Vector<RttiType<Root>*> _types;
};

}  // namespace Orn
