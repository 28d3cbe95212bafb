#pragma once
// Observer of one or more CbDispatcher<Arg>. Attachment is two-way: the handler keeps the
// dispatchers it is attached to, and destroying the handler detaches it from all of them.

#include <orn/base/callbacks/cbEmptyType.h>
#include <orn/base/containers/vector.h>

#include <algorithm>
#include <type_traits>

namespace Orn {

template <class Arg>
class CbDispatcher;

template <class Arg>
class CbHandler {
public:
  CbHandler() = default;
  // A copy is a new observer, attached to nothing.
  CbHandler(CbHandler const&) {}
  CbHandler& operator=(CbHandler const&) { return *this; }

  virtual ~CbHandler() { reset(); }
  virtual void call(Arg const& arg) = 0;

  // The no-argument call exists only for Arg = CbEmptyType.
  void call() {
    if constexpr (std::is_same_v<std::remove_cv_t<Arg>, CbEmptyType>)
      call(CbEmptyType());
    else
      CbEmptyType::NoArgCallBase::invalidNoArgCall();
  }

  int getNbDispatchers() const { return int(_dispatchers.size()); }
  bool isAttachedTo(CbDispatcher<Arg> const* dispatcher) const {
    return std::find(_dispatchers.begin(), _dispatchers.end(), dispatcher) != _dispatchers.end();
  }

  // Detaches from every dispatcher.
  void reset() {
    while (!_dispatchers.empty()) _dispatchers.back()->removeHandler(this);
  }

private:
  friend class CbDispatcher<Arg>;

  void linkDispatcher(CbDispatcher<Arg>* dispatcher) { _dispatchers.push_back(dispatcher); }
  void unlinkDispatcher(CbDispatcher<Arg>* dispatcher) {
    auto it = std::find(_dispatchers.begin(), _dispatchers.end(), dispatcher);
    if (it != _dispatchers.end()) _dispatchers.erase(it);
  }

  Vector<CbDispatcher<Arg>*> _dispatchers;
};

}  // namespace Orn

// The handler's members call the dispatcher's: both must be complete wherever either is used.
#include <orn/base/callbacks/cbDispatcher.h>
