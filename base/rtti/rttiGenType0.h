#pragma once
// Generated type record of a root class C of hierarchy Root (usually C itself). The record is the
// singleton Imp, created and registered on first use, named by C::getRttiClassName().

#include <orn/base/rtti/rttiType.h>
#include <orn/base/singleton/lkSingleton.h>

namespace Orn {

template <class C, class Root>
class RttiGenType0 : public RttiType<Root> {
public:
  class Imp;

  // The record of C; null once its singleton has been destroyed.
  static RttiType<Root>* getType() { return LkSingleton<Imp>::getInstance(); }

protected:
  explicit RttiGenType0(char const* name) : RttiType<Root>(name) {}
};

template <class C, class Root>
class RttiGenType0<C, Root>::Imp : public RttiGenType0<C, Root> {
public:
  Imp() : RttiGenType0<C, Root>(C::getRttiClassName()) {}
};

}  // namespace Orn
