#pragma once

#include <list>

namespace Orn {

template <class T, class Alloc = std::allocator<T>>
using List = std::list<T, Alloc>;

}  // namespace Orn
