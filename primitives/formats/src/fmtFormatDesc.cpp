#include <orn/primitives/formats/fmtFormatDesc.h>

#include <orn/base/except/assertions.h>

#include <utility>

namespace Orn {

FmtFormatDesc::Native::~Native() = default;

FmtFormatDesc::FmtFormatDesc(LiString description, OPtr<Native const> n) : _description(std::move(description)) {
  ORN_ASSERT(!n.isNull());
  _native = std::move(n);
}

FmtFormatDesc::FmtFormatDesc(FmtFormatDesc const& other)
    : _description(other._description), _native(other._native->clone()) {}

FmtFormatDesc& FmtFormatDesc::operator=(FmtFormatDesc const& other) {
  if (this != &other) {
    // Clone first so that a failing clone leaves this descriptor unchanged.
    OPtr<Native const> native(other._native->clone());
    _description = other._description;
    _native = std::move(native);
  }
  return *this;
}

FmtFormatDesc::~FmtFormatDesc() = default;

void FmtFormatDesc::dump(std::ostream& out) const {
  out << '"' << _description << "\" ";
  _native->dump(out);
}

}  // namespace Orn
