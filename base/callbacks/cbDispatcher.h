#pragma once
// Subject of an observer relation: calls every attached CbHandler<Arg>. Destroying the dispatcher
// detaches it from its handlers.

#include <orn/base/callbacks/cbHandler.h>
#include <orn/base/containers/vector.h>
#include <orn/base/except/assertions.h>

#include <algorithm>
#include <type_traits>

namespace Orn {

template <class Arg>
class CbDispatcher {
public:
  CbDispatcher() = default;
  // A copy is a new subject, with no handler.
  CbDispatcher(CbDispatcher const&) {}
  CbDispatcher& operator=(CbDispatcher const&) { return *this; }
  ~CbDispatcher() { removeAllHandlers(); }

  // Attaching a handler that is already attached does nothing.
  void addHandler(CbHandler<Arg>* handler) {
    ORN_ASSERT(handler);
    if (hasHandler(handler)) return;
    _handlers.push_back(handler);
    handler->linkDispatcher(this);
  }
  // Detaching a handler that is not attached does nothing.
  void removeHandler(CbHandler<Arg>* handler) {
    auto it = std::find(_handlers.begin(), _handlers.end(), handler);
    if (it == _handlers.end()) return;
    _handlers.erase(it);
    handler->unlinkDispatcher(this);
  }
  void removeAllHandlers() {
    while (!_handlers.empty()) removeHandler(_handlers.back());
  }

  bool isEmpty() const { return _handlers.empty(); }
  int getNbHandlers() const { return int(_handlers.size()); }
  bool hasHandler(CbHandler<Arg> const* handler) const {
    return std::find(_handlers.begin(), _handlers.end(), handler) != _handlers.end();
  }

  // Calls the handlers attached when the call starts, in attachment order. The walk goes over a
  // copy of the handler list, so handlers added or removed meanwhile don't disturb it.
  void call(Arg const& arg) const {
    Vector<CbHandler<Arg>*> handlers(_handlers);
    for (CbHandler<Arg>* handler : handlers) handler->call(arg);
  }
  // The no-argument call exists only for Arg = CbEmptyType.
  void call() const {
    if constexpr (std::is_same_v<std::remove_cv_t<Arg>, CbEmptyType>)
      call(CbEmptyType());
    else
      CbEmptyType::NoArgCallBase::invalidNoArgCall();
  }

private:
  Vector<CbHandler<Arg>*> _handlers;
};

}  // namespace Orn
