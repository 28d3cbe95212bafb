#pragma once
// The affine colour matrix: the 4x4 form of the colour-correction matrices. It acts on a colour as
// a column vector (a row is an output channel, a column an input channel) and adds an offset per
// channel. Colour element (row i, column j) is held at index 4j + i and the offset of channel i at
// 12 + i: exactly the storage of a geometric affine matrix acting on row vectors, so one type serves
// both and the makers' affine results are colour matrices as they stand.

#include <orn/base/geometryBase/geAffineMatrix3.h>
#include <orn/pluginAPI/coRgbColorTyped.h>
#include <orn/pluginAPI/coRgbaColorTyped.h>

namespace Orn {

template <class T = float>
using CoAffineMatrixTyped = GeAffineMatrix3<T>;

// Each channel as ((m(i,0) r + m(i,1) g) + m(i,2) b) + offset(i): the order in which the tile
// operator sums, so that one colour gives the bits of one float pixel.
template <class T>
CoRgbColorTyped<T> coApplyColorMatrix(CoAffineMatrixTyped<T> const& matrix, CoRgbColorTyped<T> const& colour) {
  T const* e = matrix.getData();
  CoRgbColorTyped<T> result;
  for (int i = 0; i < 3; ++i)
    result[i] = ((e[i] * colour.r + e[4 + i] * colour.g) + e[8 + i] * colour.b) + e[12 + i];
  return result;
}

// The same on the colour part; alpha passes unchanged (the matrix's last row is 0, 0, 0, 1).
template <class T>
CoRgbaColorTyped<T> coApplyColorMatrix(CoAffineMatrixTyped<T> const& matrix, CoRgbaColorTyped<T> const& colour) {
  CoRgbColorTyped<T> const rgb = coApplyColorMatrix(matrix, CoRgbColorTyped<T>(colour.r, colour.g, colour.b));
  return CoRgbaColorTyped<T>(rgb.r, rgb.g, rgb.b, colour.a);
}

}  // namespace Orn
