#pragma once
// Root of a run-time type record: an id, a name and the records of the direct ancestors.

#include <orn/base/containers/vector.h>

#include <ostream>

namespace Orn {

class RttiTypeBase {
public:
  explicit RttiTypeBase(int typeId);
  RttiTypeBase(RttiTypeBase const&) = delete;
  RttiTypeBase& operator=(RttiTypeBase const&) = delete;
  virtual ~RttiTypeBase();

  virtual char const* getName() const = 0;
  int getTypeId() const { return _typeId; }

  void addAncestor(RttiTypeBase* ancestor);
  int getNbAncestors() const { return int(_ancestors.size()); }
  RttiTypeBase* getAncestor(int i) const { return _ancestors[std::size_t(i)]; }

  // True when other is this type or one of its ancestors, however remote.
  bool isKindOf(RttiTypeBase const* other) const;

  // One line per type, "<name> (id <id>)", then the ancestors indented by two more blanks.
  virtual void dump(std::ostream& out, int indent) const;

private:
  int _typeId;
  Vector<RttiTypeBase*> _ancestors;
};

}  // namespace Orn
