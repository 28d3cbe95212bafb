#pragma once
// A format as the registry keeps it: the name shown to users and the native description of the
// raster (an image or video format).

#include <orn/base/rc/oPtr.h>
#include <orn/resmgt/liString.h>

#include <ostream>

namespace Orn {

class FmtFormatDesc {
public:
  // What a format is, independently of how it is named. Two natives describe the same format
  // when they have the same dynamic type and compare equal.
  class Native {
  public:
    virtual ~Native();
    // A heap copy of the most derived type.
    virtual Native* clone() const = 0;
    // A description made from the values alone, e.g. "1920x1080 8-Bits RGB".
    virtual LiString generateDesc() const = 0;
    virtual void dump(std::ostream& out) const = 0;
    virtual bool operator==(Native const& other) const = 0;
    bool operator!=(Native const& other) const { return !(*this == other); }
  };

  // Takes ownership of n, which must not be null.
  FmtFormatDesc(LiString description, OPtr<Native const> n);
  // Copies clone the native description.
  FmtFormatDesc(FmtFormatDesc const& other);
  FmtFormatDesc& operator=(FmtFormatDesc const& other);
  ~FmtFormatDesc();

  LiString const& getDescription() const { return _description; }
  Native const& getNative() const { return *_native; }

  void dump(std::ostream& out) const;

private:
  LiString _description;
  OPtr<Native const> _native;
};

}  // namespace Orn
