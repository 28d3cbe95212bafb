#pragma once

#include <functional>
#include <set>

namespace Orn {

template <class T, class Compare = std::less<T>, class Alloc = std::allocator<T>>
using Set = std::set<T, Compare, Alloc>;

}  // namespace Orn
