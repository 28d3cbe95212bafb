#pragma once
// Atomic counter; increments and decrements are full barriers.

#include <atomic>

namespace Orn {

template <class T>
class LkCounter {
public:
  LkCounter(T value = T()) : _value(value) {}
  LkCounter(LkCounter const& other) : _value(other._value.load()) {}
  LkCounter& operator=(LkCounter const& other) {
    _value.store(other._value.load());
    return *this;
  }
  LkCounter& operator=(T value) {
    _value.store(value);
    return *this;
  }

  // Return the new value.
  T operator++() { return _value.fetch_add(1, std::memory_order_seq_cst) + 1; }
  T operator--() { return _value.fetch_sub(1, std::memory_order_seq_cst) - 1; }
  operator T() const { return _value.load(); }

  // Stores desired when the value is expected; returns whether it did.
  bool compareAndSwap(T expected, T desired) { return _value.compare_exchange_strong(expected, desired); }

private:
  std::atomic<T> _value;
};

}  // namespace Orn
