#include <orn/resmgt/liRateRegistry.h>

#include <orn/base/init/inSingleton.h>

#include <cstring>

namespace Orn {

namespace {

struct RateRecord {
  char const* name;
  int numerator;
  int denominator;
};

// Indexed by id. Names must not contain '-', which separates the fields of format names.
constexpr RateRecord rates[] = {
    {"RATE_23_976", 24000, 1001}, {"RATE_24", 24, 1},        {"RATE_25", 25, 1},
    {"RATE_29_97", 30000, 1001},  {"RATE_30", 30, 1},        {"RATE_50", 50, 1},
    {"RATE_59_94", 60000, 1001},  {"RATE_60", 60, 1},
};

}  // namespace

LiRateRegistry::LiRateRegistry() {
  int id = 0;
  for (RateRecord const& r : rates) {
    _entries.push_back(Entry(id, r.name, r.numerator, r.denominator));
    ++id;
  }
}

LiRateRegistry& LiRateRegistry::getInstance() { return InSingleton<LiRateRegistry>::getInstance(); }

LiRateRegistry::Entry LiRateRegistry::get(int id) const {
  if (id < 0 || id >= int(_entries.size())) return Entry();
  return _entries[std::size_t(id)];
}

LiRateRegistry::Entry LiRateRegistry::get(char const* enumName) const {
  if (!enumName) return Entry();
  for (Entry const& entry : _entries) {
    if (std::strcmp(entry._name, enumName) == 0) return entry;
  }
  return Entry();
}

}  // namespace Orn
