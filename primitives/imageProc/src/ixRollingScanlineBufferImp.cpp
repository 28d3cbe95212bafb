#include <orn/primitives/imageProc/ixRollingScanlineBufferImp.h>

#include <orn/base/except/assertions.h>

#include <algorithm>

namespace Orn {

namespace {

// NOOP promises nothing about rows: the window's rows outside the tiles repeat the edge row.
template <class T>
IxPaddingPolicy<T> rowPolicy(IxPaddingPolicy<T> const& policy) {
  return policy.getPaddingType() == IxScanlineTypes::NOOP
             ? IxPaddingPolicy<T>(IxScanlineTypes::PADDING_REPEAT_EDGE, policy.getFillColor())
             : policy;
}

}  // namespace

template <class T>
IxRollingScanlineBufferImp<T>::IxRollingScanlineBufferImp(Vector<IxReadGuard> const& tiles,
                                                          GeRectangle<int> const& region, int nbLines,
                                                          IxPaddingPolicy<T> const& policy, Functor* functor)
    : _tiles(tiles), _region(region), _nbLines(nbLines), _policyX(policy), _policyY(rowPolicy(policy)),
      _functor(functor), _firstRow(0), _started(false) {
  ORN_ASSERT(nbLines > 0);
}

template <class T>
void IxRollingScanlineBufferImp<T>::initialize() {
  _tilePointers.clear();
  for (IxReadGuard const& tile : _tiles) _tilePointers.push_back(&tile);
  _fetcher = std::make_unique<IxTilePtrVectorFetcher>(_tilePointers);
  GeInterval<int> const xs = _region.getSlab(0);
  auto const makeLine = [&] {
    auto line = std::make_unique<IxScanline<T>>(xs, _policyX);
    line->setPaddingPolicyY(_policyY);
    return line;
  };
  _lines.clear();
  for (int i = 0; i < _nbLines; ++i) _lines.push_back(makeLine());
  if (_functor) _input = makeLine();
  _window.assign(std::size_t(_nbLines), nullptr);
  _firstRow = _region.y1() - (_nbLines - 1) / 2;
  _started = false;
}

template <class T>
void IxRollingScanlineBufferImp<T>::fill(IxScanline<T>& line, int y) {
  if (_functor) {
    _input->readFrom(*_fetcher, y);
    (*_functor)(line, *_input);
  } else {
    line.readFrom(*_fetcher, y);
  }
}

template <class T>
IxScanline<T> const* const* IxRollingScanlineBufferImp<T>::getNext() {
  if (!_started) {
    _started = true;
    for (int i = 0; i < _nbLines; ++i) fill(*_lines[std::size_t(i)], _firstRow + i);
  } else {
    // The oldest line takes the entering row and moves to the end.
    ++_firstRow;
    std::rotate(_lines.begin(), _lines.begin() + 1, _lines.end());
    fill(*_lines.back(), _firstRow + _nbLines - 1);
  }
  for (std::size_t i = 0; i < _lines.size(); ++i) _window[i] = _lines[i].get();
  return _window.data();
}

template <class T>
typename IxRollingScanlineBufferImp<T>::Base* IxRollingScanlineBufferImp<T>::create(
    Vector<IxReadGuard> const& tiles, GeRectangle<int> const& region, int nbLines, IxPaddingPolicy<T> const& policy,
    Functor* functor) {
  return new IxRollingScanlineBufferImp<T>(tiles, region, nbLines, policy, functor);
}

template class IxRollingScanlineBufferImp<float>;
template class IxRollingScanlineBufferImp<CoRgbaColorTyped<float>>;

}  // namespace Orn
