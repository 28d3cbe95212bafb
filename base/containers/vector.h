#pragma once
// Value containers of the library. They are the standard containers under the library's names:
// same operations, same iterator behaviour, Vector contiguous.

#include <vector>

namespace Orn {

template <class T, class Alloc = std::allocator<T>>
using Vector = std::vector<T, Alloc>;

}  // namespace Orn
