#pragma once
// Registry of the type records of one class hierarchy (root class Root). Records register
// themselves when created. When the last record is removed, the registry destroys itself for
// good: its singleton then stays DESTROYED and getInstance() returns null.

#include <orn/base/singleton/lkSingleton.h>

#include <ostream>

namespace Orn {

template <class Root>
class RttiType;
template <class Root>
class RttiTypeRegistryImp;

template <class Root>
class RttiTypeRegistry {
public:
  // The registry, created on first use; null once it has destroyed itself.
  static RttiTypeRegistry* getInstance();

  // May raise: the registry asserts that no type is left when it is destroyed.
  virtual ~RttiTypeRegistry() noexcept(false) {}

  // The type registered under exactly this name, null when there is none.
  virtual RttiType<Root>* findType(char const* name) const = 0;
  // Raises RttiEx::ExAlreadyExists when the name is taken.
  virtual void addType(RttiType<Root>* type) = 0;
  // Raises RttiEx::ExNotFound when type is not registered. Removing the last type destroys the
  // registry.
  virtual void removeType(RttiType<Root>* type) = 0;

  virtual int getNbTypes() const = 0;
  // The id that the next new type will receive; ids start at 1.
  virtual int getNextTypeId() const = 0;
  // Returns the next id and advances the counter.
  virtual int takeNextTypeId() = 0;

  virtual void dump(std::ostream& out) const = 0;
};

}  // namespace Orn

// getInstance() needs the implementation: both must be complete wherever either is used.
#include <orn/base/rtti/rttiTypeRegistryImp.h>

namespace Orn {

template <class Root>
RttiTypeRegistry<Root>* RttiTypeRegistry<Root>::getInstance() {
  return LkSingleton<RttiTypeRegistryImp<Root>>::getInstance();
}

}  // namespace Orn
