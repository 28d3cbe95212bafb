#pragma once
// Iterator handle used across interfaces so that callers never see the container. It holds one
// shared engine with copy on write: copies share the engine until one of them moves, so copies
// advance independently. A default iterator is over an empty range.

#include <orn/base/containers/constIteratorEmpty.h>
#include <orn/base/containers/constIteratorImp.h>
#include <orn/base/rc/rcPvtEngPtr.h>

namespace Orn {

template <class T>
class ConstIterator {
public:
  using Imp = ConstIteratorImp<T>;

  ConstIterator() : _engine(new ConstIteratorEmpty<T>()) {}
  // Takes a reference to engine; a null engine gives an empty range.
  ConstIterator(Imp* engine) : _engine(engine ? engine : new ConstIteratorEmpty<T>()) {}
  ConstIterator(RCPvtEngPtr<Imp> const& engine)
      : _engine(engine.isNull() ? RCPvtEngPtr<Imp>(new ConstIteratorEmpty<T>()) : engine) {}
  ConstIterator(ConstIterator const&) = default;
  ConstIterator& operator=(ConstIterator const&) = default;

  virtual ~ConstIterator() = default;
  virtual T const* operator->() const { return &item(); }
  // Raises IteratorEx::ExOutOfRange past the end.
  virtual T const& item() const { return _engine->item(); }
  virtual T const& operator*() const { return item(); }
  virtual ConstIterator& first() {
    _engine.getMutable()->first();
    return *this;
  }
  virtual ConstIterator& last() {
    _engine.getMutable()->last();
    return *this;
  }
  virtual ConstIterator& end() {
    _engine.getMutable()->end();
    return *this;
  }
  virtual bool atEnd() const { return _engine->atEnd(); }
  virtual bool atBegin() const { return _engine->atBegin(); }
  virtual ConstIterator& next() {
    _engine.getMutable()->next();
    return *this;
  }
  virtual ConstIterator& previous() {
    _engine.getMutable()->previous();
    return *this;
  }
  virtual unsigned int getCardinality() const { return _engine->getCardinality(); }
  virtual ConstIterator operator++(int) {
    ConstIterator before(*this);
    next();
    return before;
  }
  virtual ConstIterator& operator++() { return next(); }
  virtual ConstIterator operator--(int) {
    ConstIterator before(*this);
    previous();
    return before;
  }
  virtual ConstIterator& operator--() { return previous(); }

  RCPvtEngPtr<Imp> const& getEngine() const { return _engine; }

  // Same position of the same range.
  friend bool operator==(ConstIterator const& a, ConstIterator const& b) {
    return a._engine == b._engine || a._engine->compare(*b._engine);
  }

private:
  RCPvtEngPtr<Imp> _engine;
};

}  // namespace Orn
