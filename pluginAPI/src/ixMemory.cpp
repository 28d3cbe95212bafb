#include <orn/pluginAPI/ixMemory.h>

#include <cstdlib>
#include <new>

namespace Orn {

IxMemory::IxMemory(std::size_t nbBytes) : _data(nullptr), _size(nbBytes) {
  // aligned_alloc needs a size that is a multiple of the alignment.
  std::size_t const rounded = (nbBytes + ALIGNMENT - 1) / ALIGNMENT * ALIGNMENT;
  if (rounded > 0) {
    _data = static_cast<unsigned char*>(std::aligned_alloc(ALIGNMENT, rounded));
    if (!_data) throw std::bad_alloc();
  }
}

IxMemory::~IxMemory() { std::free(_data); }

}  // namespace Orn
