#pragma once
// Bases of the per-pixel functors that the typed pixel loops run, and of the argument objects that
// operators hand to them.
//
// A functor is a class template over the pixel types (IxPixel<Comp, N>, const for pixels that are
// only read) with a non-virtual call operator, so that it inlines into its loop. Its constructor
// takes the operator's args and copies what the pixels need into its own members.

#include <cstdint>

namespace Orn {

// Polymorphic base of an operator's argument object, filled on the operator's stack.
class IxPixelFunctorArgs {
 public:
  IxPixelFunctorArgs() = default;
  IxPixelFunctorArgs(IxPixelFunctorArgs const&) = default;
  IxPixelFunctorArgs& operator=(IxPixelFunctorArgs const&) = default;
  virtual ~IxPixelFunctorArgs() = default;
};

// State shared by the functor bases: the loops shorten each line by getNbTrimmed() pixels. The
// second value is left to derived functors; the loops never read it. Both start at zero.
class IxPixelFunctorBase {
 public:
  IxPixelFunctorBase() : _nbTrimmed(0), _userValue(0) {}
  IxPixelFunctorBase(IxPixelFunctorBase const&) = default;
  IxPixelFunctorBase& operator=(IxPixelFunctorBase const&) = default;
  virtual ~IxPixelFunctorBase() = default;

  std::int32_t getNbTrimmed() const { return _nbTrimmed; }
  std::int32_t getUserValue() const { return _userValue; }

 protected:
  std::int32_t _nbTrimmed;
  std::int32_t _userValue;
};

// Destination and one source pixel (a single-tile operator has Dst and Src equal and gets the same
// pixel twice). Call operator: void operator()(Dst& dst, Src& src).
template <class Dst, class Src>
class IxPixelFunctor : public IxPixelFunctorBase {
 public:
  using DstPixel = Dst;
  using SrcPixel = Src;
};

// Destination and two source pixels: void operator()(Dst&, Src0&, Src1&).
template <class Dst, class Src0, class Src1>
class IxPixelFunctor2In : public IxPixelFunctorBase {
 public:
  using DstPixel = Dst;
  using Src0Pixel = Src0;
  using Src1Pixel = Src1;
};

// Destination and four sources of one pixel type: void operator()(Dst&, Src&, Src&, Src&, Src&).
template <class Dst, class Src>
class IxPixelFunctor4In : public IxPixelFunctorBase {
 public:
  using DstPixel = Dst;
  using SrcPixel = Src;
};

}  // namespace Orn
