#include <orn/primitives/formats/fmtFormatName.h>

#include <orn/base/containers/constIteratorSTL.h>
#include <orn/base/containers/vector.h>
#include <orn/base/except/assertions.h>
#include <orn/primitives/formats/fmtFormatRegistry.h>
#include <orn/resmgt/liStringTokenizer.h>

#include <string>

namespace Orn {

FmtFormatName::FmtFormatName() { _fields.fill(LiString(All)); }

FmtFormatName::FmtFormatName(LiString const& name) {
  // Empty fields keep their place: "1-Half NTSC-360-243-proxy---4:3-..." has empty fields 5 and 6.
  LiStringTokenizer const tokens(name.str(), Sep, LiStringTokenizer::KEEP_EMPTY);
  ORN_ASSERT(tokens.size() == NB_FIELDS);
  for (int field = 0; field < NB_FIELDS; ++field) _fields[std::size_t(field)] = LiString(tokens[std::size_t(field)]);
}

bool FmtFormatName::isWellFormed(LiString const& name) {
  return LiStringTokenizer(name.str(), Sep, LiStringTokenizer::KEEP_EMPTY).size() == NB_FIELDS;
}

LiString const& FmtFormatName::getFieldValue(int field) const {
  ORN_ASSERT(field >= 0 && field < NB_FIELDS);
  return _fields[std::size_t(field)];
}

void FmtFormatName::setFieldValue(int field, LiString const& value) {
  ORN_ASSERT(field >= 0 && field < NB_FIELDS);
  ORN_ASSERT(value.str().find(Sep) == std::string::npos);
  _fields[std::size_t(field)] = value;
}

LiString FmtFormatName::toString() const {
  std::string text = _fields[0].str();
  for (int field = 1; field < NB_FIELDS; ++field) {
    text += Sep;
    text += _fields[std::size_t(field)].str();
  }
  return LiString(std::move(text));
}

bool FmtFormatName::matches(FmtFormatName const& name) const {
  for (int field = 0; field < NB_FIELDS; ++field) {
    LiString const& wanted = _fields[std::size_t(field)];
    if (wanted != LiString(All) && wanted != name._fields[std::size_t(field)]) return false;
  }
  return true;
}

namespace {

template <class Iterator>
ConstIterator<FmtFormatName> filterNames(FmtFormatName const& filter, Iterator begin, Iterator end) {
  Vector<FmtFormatName> names;
  for (Iterator it = begin; it != end; ++it) {
    LiString const& formatName = it->first.first;
    // Names registered by clients need not follow the structure; they never match.
    if (!FmtFormatName::isWellFormed(formatName)) continue;
    FmtFormatName name(formatName);
    if (filter.matches(name)) names.push_back(std::move(name));
  }
  return makeConstIterator(std::move(names));
}

}  // namespace

ConstIterator<FmtFormatName> FmtFormatName::getFilteredList(FmtFormatName const& filter) {
  FmtFormatRegistry const& formatReg = FmtFormatRegistry::getInstance();
  return filterNames(filter, formatReg.begin(), formatReg.end());
}

ConstIterator<FmtFormatName> FmtFormatName::getFilteredList(FmtFormatName const& filter, LiString const& type) {
  FmtFormatRegistry::TypeRange const range = FmtFormatRegistry::getInstance().findFormatsByType(type);
  return filterNames(filter, range.first, range.second);
}

}  // namespace Orn
