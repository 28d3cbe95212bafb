#pragma once
// A one-dimensional lookup table for one channel, typed by the depth of the values it yields
// (output) and of the values that index it (input). All nine pairs of UINT8, FLOAT16 and FLOAT32
// exist; the layouts are those of IxLut (ixLut.h). The constructor sets the trailer only: the
// caller fills the entries through getTable().

#include <orn/pluginAPI/ixPixelFormat.h>
#include <orn/pluginAPI/ixTile.h>
#include <orn/primitives/imageProc/ixLut.h>

#include <ostream>

namespace Orn {

class IxGenericLut {
 public:
  // Output depth from the first argument, input depth from the second; components are ignored.
  // A depth other than 8, 16 or 32 aborts before anything is allocated.
  IxGenericLut(IxTile const& out, IxTile const& in);
  IxGenericLut(IxPixelFormat const& out, IxPixelFormat const& in);
  // Deep copies: entries and trailer.
  IxGenericLut(IxGenericLut const& other);
  IxGenericLut& operator=(IxGenericLut const& other);
  ~IxGenericLut();

  IxPixelFormat::Depth getOutputDepth() const { return _outDepth; }
  IxPixelFormat::Depth getInputDepth() const { return _inDepth; }
  // 256, 8192 or 16384, by the input depth.
  int getNbEntries() const;

  // The address of the first entry; the trailer follows the last one.
  void* getTable() { return _table; }
  void const* getTable() const { return _table; }

  // The typed table; the components must be those of the two depths.
  template <class OutComp, class InComp>
  IxLut<OutComp, InComp>& getLut() {
    checkDepths(OutComp::DEPTH, InComp::DEPTH);
    return *static_cast<IxLut<OutComp, InComp>*>(_table);
  }
  template <class OutComp, class InComp>
  IxLut<OutComp, InComp> const& getLut() const {
    checkDepths(OutComp::DEPTH, InComp::DEPTH);
    return *static_cast<IxLut<OutComp, InComp> const*>(_table);
  }

  // One line per entry: "lut( " the index in 6 columns " ) = " the value. Tables indexed by half
  // floats cannot name their indices and raise.
  void dump(std::ostream& out) const;

 private:
  void checkDepths(int outDepth, int inDepth) const;

  IxPixelFormat::Depth _outDepth;
  IxPixelFormat::Depth _inDepth;
  void* _table;
};

}  // namespace Orn
