#pragma once
// The catalogue of named formats. Each entry is keyed by its format name and its type ("Image",
// "Video" or a type that a client registered) and ordered by that pair.
//
// The registry is a singleton created by the start-up of the formats package, which fills it with
// the built-in formats, and destroyed by its clean-up: getInstance raises
// InSingletonEx::ExNotInitialized before and InSingletonEx::ExAlreadyDestroyed after. Clients may
// register types and formats while it is alive. It has no lock: registrations must be done before
// readers start.

#include <orn/base/containers/constIterator.h>
#include <orn/base/containers/set.h>
#include <orn/primitives/formats/fmtFormatDesc.h>
#include <orn/resmgt/liString.h>

#include <cstddef>
#include <iterator>
#include <map>
#include <utility>

namespace Orn {

template <class T>
class InSingleton;

class FmtFormatRegistry {
public:
  // (format name, type).
  using Key = std::pair<LiString, LiString>;
  using FormatMap = std::map<Key, FmtFormatDesc>;
  using const_iterator = FormatMap::const_iterator;
  using value_type = FormatMap::value_type;

  // Forward iterator over the entries of one type, in map order.
  class TypeIterator {
  public:
    using iterator_category = std::forward_iterator_tag;
    using value_type = FormatMap::value_type;
    using difference_type = std::ptrdiff_t;
    using pointer = value_type const*;
    using reference = value_type const&;

    TypeIterator() : _type(nullptr) {}
    // Starts at the first entry of type at or after current.
    TypeIterator(const_iterator current, const_iterator end, LiString const* type)
        : _current(current), _end(end), _type(type) {
      skip();
    }

    reference operator*() const { return *_current; }
    pointer operator->() const { return &*_current; }
    TypeIterator& operator++() {
      ++_current;
      skip();
      return *this;
    }
    TypeIterator operator++(int) {
      TypeIterator before(*this);
      ++*this;
      return before;
    }
    // The position in the registry's map.
    const_iterator base() const { return _current; }

    friend bool operator==(TypeIterator const& a, TypeIterator const& b) { return a._current == b._current; }

  private:
    void skip() {
      while (_current != _end && _current->first.second != *_type) ++_current;
    }

    const_iterator _current;
    const_iterator _end;
    LiString const* _type;
  };
  using TypeRange = std::pair<TypeIterator, TypeIterator>;

  static FmtFormatRegistry& getInstance();

  void registerFormatType(LiString const& type);
  bool isFormatType(LiString const& type) const { return _formatTypes.find(type) != _formatTypes.end(); }
  // The known types, in order. The iterator is valid while the registry lives.
  ConstIterator<LiString> getFormatTypes() const;

  // Adds a format of a known type under a name not yet used for that type; both are assertion
  // failures otherwise.
  void registerFormat(LiString const& n, LiString const& t, FmtFormatDesc const& d);

  // Every entry, ordered by (name, type).
  const_iterator begin() const { return _formats.begin(); }
  const_iterator end() const { return _formats.end(); }
  std::size_t nbFormats() const { return _formats.size(); }

  // The first entry in map order with that name, whatever its type, or end().
  const_iterator findFormatByName(LiString const& name) const;
  // The first entry in map order whose native description has the dynamic type of n and compares
  // equal to it, or end(). n must not be null.
  const_iterator findFormatByDesc(FmtFormatDesc::Native const* n) const;
  // The entries of a known type, in map order.
  TypeRange findFormatsByType(LiString const& t) const;
  // The description of the first matching entry, as findFormatByDesc finds it; otherwise the
  // description generated from the values.
  LiString describeFormat(FmtFormatDesc::Native const& n) const;

private:
  friend class InSingleton<FmtFormatRegistry>;
  FmtFormatRegistry();
  ~FmtFormatRegistry();
  FmtFormatRegistry(FmtFormatRegistry const&) = delete;
  FmtFormatRegistry& operator=(FmtFormatRegistry const&) = delete;

  Set<LiString> _formatTypes;
  FormatMap _formats;
};

}  // namespace Orn
