#pragma once
// Generated type record of a class C with one parent class, in the hierarchy of Parent's root.
// The parent's record is its ancestor. The record is the singleton Imp, created and registered on
// first use, named by C::getRttiClassName().

#include <orn/base/rtti/rttiType.h>
#include <orn/base/singleton/lkSingleton.h>

namespace Orn {

template <class C, class Parent>
class RttiGenType1 : public RttiType<typename Parent::RttiRoot> {
public:
  using Root = typename Parent::RttiRoot;
  class Imp;

  // The record of C; null once its singleton has been destroyed.
  static RttiType<Root>* getType() { return LkSingleton<Imp>::getInstance(); }

protected:
  explicit RttiGenType1(char const* name) : RttiType<Root>(name, Parent::getClassRttiType()) {}
};

template <class C, class Parent>
class RttiGenType1<C, Parent>::Imp : public RttiGenType1<C, Parent> {
public:
  Imp() : RttiGenType1<C, Parent>(C::getRttiClassName()) {}
};

}  // namespace Orn
