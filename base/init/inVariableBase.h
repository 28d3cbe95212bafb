#pragma once
// A static variable whose set-up hangs on a package. The start-up service initialises the
// variables attached to a package right after the package's own initialisation step, in the order
// they were attached, and cleans them up in the reverse order right before the package's clean-up.

namespace Orn {

class InVariableBase {
public:
  virtual ~InVariableBase();
  virtual void initialize() = 0;
  virtual void finalize() = 0;
};

}  // namespace Orn
