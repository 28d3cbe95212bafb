#pragma once
// Iterator handle whose item may be written. Same sharing and copy on write as ConstIterator;
// it converts to a ConstIterator at the same position.

#include <orn/base/containers/constIterator.h>
#include <orn/base/containers/iteratorEmpty.h>
#include <orn/base/containers/iteratorImp.h>
#include <orn/base/rc/rcPvtEngPtr.h>

namespace Orn {

template <class T>
class Iterator {
public:
  using Imp = IteratorImp<T>;

  Iterator() : _engine(new IteratorEmpty<T>()) {}
  // Takes a reference to engine; a null engine gives an empty range.
  Iterator(Imp* engine) : _engine(engine ? engine : new IteratorEmpty<T>()) {}
  Iterator(RCPvtEngPtr<Imp> const& engine)
      : _engine(engine.isNull() ? RCPvtEngPtr<Imp>(new IteratorEmpty<T>()) : engine) {}
  Iterator(Iterator const&) = default;
  Iterator& operator=(Iterator const&) = default;

  virtual ~Iterator() = default;
  virtual T* operator->() const { return &item(); }
  // Raises IteratorEx::ExOutOfRange past the end.
  virtual T& item() const { return _engine->writableItem(); }
  virtual T& operator*() const { return item(); }
  virtual Iterator& first() {
    _engine.getMutable()->first();
    return *this;
  }
  virtual Iterator& last() {
    _engine.getMutable()->last();
    return *this;
  }
  virtual Iterator& end() {
    _engine.getMutable()->end();
    return *this;
  }
  virtual bool atEnd() const { return _engine->atEnd(); }
  virtual bool atBegin() const { return _engine->atBegin(); }
  virtual Iterator& next() {
    _engine.getMutable()->next();
    return *this;
  }
  virtual Iterator& previous() {
    _engine.getMutable()->previous();
    return *this;
  }
  virtual unsigned int getCardinality() const { return _engine->getCardinality(); }
  virtual Iterator operator++(int) {
    Iterator before(*this);
    next();
    return before;
  }
  virtual Iterator& operator++() { return next(); }
  virtual Iterator operator--(int) {
    Iterator before(*this);
    previous();
    return before;
  }
  virtual Iterator& operator--() { return previous(); }

  // A read-only iterator sharing this one's engine until either moves.
  operator ConstIterator<T>() const { return ConstIterator<T>(RCPvtEngPtr<ConstIteratorImp<T>>(_engine)); }

  RCPvtEngPtr<Imp> const& getEngine() const { return _engine; }

  friend bool operator==(Iterator const& a, Iterator const& b) {
    return a._engine == b._engine || a._engine->compare(*b._engine);
  }

private:
  RCPvtEngPtr<Imp> _engine;
};

}  // namespace Orn
