#include <orn/primitives/imageProc/ipPrint.h>
#include <orn/primitives/imageProc/ixPixelLoopCompDepthConst.h>

#include <cstdint>

namespace Orn {

namespace {

class IpPrintFunctorArgs : public IxPixelFunctorArgs {
 public:
  IpPrintFunctorArgs(std::ostream& out, GeRectangle<int> const& region) : _out(&out), _region(region) {}
  std::ostream* _out;
  GeRectangle<int> _region;
};

// Follows the walk's position (rows from the top, pixels from the left) to know where rows start.
template <class Dst, class Src>
class IpPrintFunctor : public IxPixelFunctor<Dst, Src> {
 public:
  explicit IpPrintFunctor(IpPrintFunctorArgs const& args)
      : _out(*args._out), _x1(args._region.x1()), _x2(args._region.x2()), _x(args._region.x1()), _y(args._region.y1()) {}

  void operator()(Dst& pixel, Src&) {
    if (_x == _x1)
      _out << "y " << _y << ": ";
    else
      _out << " | ";
    pixel.dump(_out);
    if (++_x == _x2) {
      _out << '\n';
      _x = _x1;
      ++_y;
    }
  }

 private:
  std::ostream& _out;
  int _x1, _x2, _x, _y;
};

template <class Dst, class Src>
class IpPrintExFunctor : public IxPixelFunctor<Dst, Src> {
 public:
  explicit IpPrintExFunctor(IpPrintFunctorArgs const& args)
      : _out(*args._out), _x1(args._region.x1()), _x2(args._region.x2()), _x(args._region.x1()), _y(args._region.y1()) {}

  void operator()(Dst& pixel, Src&) {
    _out << '(' << _x << ", " << _y << ") = ";
    pixel.dump(_out);
    _out << '\n';
    if (++_x == _x2) {
      _x = _x1;
      ++_y;
    }
  }

 private:
  std::ostream& _out;
  int _x1, _x2, _x, _y;
};

GeRectangle<int> writeHeader(std::ostream& out, IxReadGuard const& tile, char const* title,
                             GeRectangle<int> const* region) {
  GeRectangle<int> const r = IxPixelIterBase::clipRegion(tile.getPixelRegion(), region);
  IxPixelFormat const& format = tile.getTile().getPixelFormat();
  out << (title ? title : "") << ": " << int(format.getComps()) << " x " << int(format.getDepth())
      << " bits, region [" << r.x1() << ", " << r.x2() << ") x [" << r.y1() << ", " << r.y2() << ")\n";
  return r;
}

}  // namespace

void ipPrint(std::ostream& out, IxReadGuard const& tile, char const* title, GeRectangle<int> const* region) {
  GeRectangle<int> const r = writeHeader(out, tile, title, region);
  IpPrintFunctorArgs const args(out, r);
  ixPixelLoopCompDepthConst<IpPrintFunctor>(tile, &r, IxPixelIterBase::ORDER_H_XPOS_YPOS, args);
}

void ipPrint(IxReadGuard const& tile, std::ostream& out, char const* title, GeRectangle<int> const* region) {
  GeRectangle<int> const r = writeHeader(out, tile, title, region);
  IpPrintFunctorArgs const args(out, r);
  ixPixelLoopCompDepthConst<IpPrintExFunctor>(tile, &r, IxPixelIterBase::ORDER_H_XPOS_YPOS, args);
}

}  // namespace Orn
