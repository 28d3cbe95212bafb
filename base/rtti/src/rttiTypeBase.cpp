#include <orn/base/rtti/rttiTypeBase.h>

#include <orn/base/except/assertions.h>

#include <string>

namespace Orn {

RttiTypeBase::RttiTypeBase(int typeId) : _typeId(typeId) {}

RttiTypeBase::~RttiTypeBase() = default;

void RttiTypeBase::addAncestor(RttiTypeBase* ancestor) {
  ORN_ASSERT(ancestor);
  ORN_ASSERT(!ancestor->isKindOf(this));
  _ancestors.push_back(ancestor);
}

bool RttiTypeBase::isKindOf(RttiTypeBase const* other) const {
  if (other == this) return true;
  for (RttiTypeBase const* ancestor : _ancestors)
    if (ancestor->isKindOf(other)) return true;
  return false;
}

void RttiTypeBase::dump(std::ostream& out, int indent) const {
  out << std::string(std::size_t(indent > 0 ? indent : 0), ' ') << getName() << " (id " << _typeId << ")\n";
  for (RttiTypeBase const* ancestor : _ancestors) ancestor->dump(out, indent + 2);
}

}  // namespace Orn
