#include <orn/primitives/formats/fmtFormatRegistry.h>

#include <orn/base/containers/constIteratorSTL.h>
#include <orn/base/except/assertions.h>
#include <orn/base/init/inSingleton.h>

#include <typeinfo>

namespace Orn {

FmtFormatRegistry::FmtFormatRegistry() = default;

FmtFormatRegistry::~FmtFormatRegistry() = default;

FmtFormatRegistry& FmtFormatRegistry::getInstance() { return InSingleton<FmtFormatRegistry>::getInstance(); }

void FmtFormatRegistry::registerFormatType(LiString const& type) { _formatTypes.insert(type); }

ConstIterator<LiString> FmtFormatRegistry::getFormatTypes() const { return makeConstIterator(_formatTypes); }

void FmtFormatRegistry::registerFormat(LiString const& n, LiString const& t, FmtFormatDesc const& d) {
  ORN_ASSERT(_formatTypes.find( t ) != _formatTypes.end());
  Key key(n, t);
  // A name taken for the type is reported like the name check of the built-in table, so that a
  // duplicate gives the same failure whichever way it is registered.
  ORN_ASSERT_TEXT(_formats.find(key) == _formats.end(), "formatReg.findFormatByName( formatName ) == formatReg.end()");
  _formats.emplace(std::move(key), d);
}

FmtFormatRegistry::const_iterator FmtFormatRegistry::findFormatByName(LiString const& name) const {
  // Entries of one name are adjacent and the first of them has the smallest type.
  const_iterator const it = _formats.lower_bound(Key(name, LiString()));
  return it != _formats.end() && it->first.first == name ? it : _formats.end();
}

FmtFormatRegistry::const_iterator FmtFormatRegistry::findFormatByDesc(FmtFormatDesc::Native const* n) const {
  ORN_ASSERT(n != nullptr);
  for (const_iterator it = _formats.begin(); it != _formats.end(); ++it) {
    FmtFormatDesc::Native const& candidate = it->second.getNative();
    if (typeid(candidate) == typeid(*n) && candidate == *n) return it;
  }
  return _formats.end();
}

FmtFormatRegistry::TypeRange FmtFormatRegistry::findFormatsByType(LiString const& t) const {
  ORN_ASSERT(_formatTypes.find( t ) != _formatTypes.end());
  // The type string of the set outlives the iterators, unlike the argument.
  LiString const* const type = &*_formatTypes.find(t);
  return TypeRange(TypeIterator(_formats.begin(), _formats.end(), type),
                   TypeIterator(_formats.end(), _formats.end(), type));
}

LiString FmtFormatRegistry::describeFormat(FmtFormatDesc::Native const& n) const {
  const_iterator const it = findFormatByDesc(&n);
  return it != _formats.end() ? it->second.getDescription() : n.generateDesc();
}

}  // namespace Orn
