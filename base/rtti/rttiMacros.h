#pragma once
// Declarations that give a class hierarchy its run-time type records. Put ORN_RTTI_ROOT(Class) in
// the root class and ORN_RTTI_DERIVED(Class, Parent) in each derived class, right after the
// destructor so that getRttiType takes the next virtual slot. Both leave the access public.
//
// Each class gets getRttiClassName() (its name), getClassRttiType() (its record) and the virtual
// getRttiType() (the record of the object's dynamic class). The root also defines RttiRoot, the
// hierarchy's root class.

#include <orn/base/rtti/rttiGenType0.h>
#include <orn/base/rtti/rttiGenType1.h>

#define ORN_RTTI_ROOT(Class)                                                                    \
public:                                                                                         \
  using RttiRoot = Class;                                                                       \
  virtual ::Orn::RttiType<Class>* getRttiType() const { return getClassRttiType(); }            \
  static char const* getRttiClassName() { return #Class; }                                      \
  static ::Orn::RttiType<Class>* getClassRttiType() { return ::Orn::RttiGenType0<Class, Class>::getType(); }

#define ORN_RTTI_DERIVED(Class, Parent)                                                         \
public:                                                                                         \
  ::Orn::RttiType<RttiRoot>* getRttiType() const override { return getClassRttiType(); }        \
  static char const* getRttiClassName() { return #Class; }                                      \
  static ::Orn::RttiType<RttiRoot>* getClassRttiType() { return ::Orn::RttiGenType1<Class, Parent>::getType(); }

namespace Orn {

// True when object's dynamic class is Target or derives from it.
template <class Target, class Object>
bool rttiIsKindOf(Object const& object) {
  auto* type = object.getRttiType();
  return type && type->isKindOf(Target::getClassRttiType());
}

}  // namespace Orn
