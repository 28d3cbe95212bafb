#pragma once
// The frame rates known to the application, by integer id and by enumeration name.
//
//   id  name          rate
//   0   RATE_23_976   24000/1001
//   1   RATE_24       24
//   2   RATE_25       25
//   3   RATE_29_97    30000/1001
//   4   RATE_30       30
//   5   RATE_50       50
//   6   RATE_59_94    60000/1001
//   7   RATE_60       60
//
// The registry is a singleton created by the start-up of the resmgt package and destroyed by its
// clean-up: getInstance raises InSingletonEx::ExNotInitialized before and
// InSingletonEx::ExAlreadyDestroyed after.

#include <orn/base/geometryBase/rational.h>

#include <string>
#include <vector>

namespace Orn {

template <class T>
class InSingleton;

class LiRateRegistry {
public:
  // One rate of the table, or the null entry. Entries order by id; the null entry comes first.
  class Entry {
  public:
    // The null entry.
    Entry() : _id(-1), _name(nullptr), _numerator(0), _denominator(1) {}

    bool isNull() const { return _name == nullptr; }
    // -1 for the null entry.
    int getId() const { return _id; }
    // Empty for the null entry.
    std::string getEnumName() const { return _name ? std::string(_name) : std::string(); }
    // 0/1 for the null entry.
    Rational getRate() const { return Rational(_numerator, _denominator); }

    friend bool operator==(Entry const& a, Entry const& b) { return a._id == b._id; }
    friend bool operator!=(Entry const& a, Entry const& b) { return a._id != b._id; }
    friend bool operator<(Entry const& a, Entry const& b) { return a._id < b._id; }

  private:
    friend class LiRateRegistry;
    Entry(int id, char const* name, int numerator, int denominator)
        : _id(id), _name(name), _numerator(numerator), _denominator(denominator) {}

    int _id;
    char const* _name;
    int _numerator;
    int _denominator;
  };

  static LiRateRegistry& getInstance();

  // The entry of an id, null for an unknown id.
  Entry get(int id) const;
  // The entry of an enumeration name (exact match), null for an unknown or null name.
  Entry get(char const* enumName) const;
  // Every entry, by id.
  std::vector<Entry> const& getAllEntries() const { return _entries; }

private:
  friend class InSingleton<LiRateRegistry>;
  LiRateRegistry();

  std::vector<Entry> _entries;
};

}  // namespace Orn
