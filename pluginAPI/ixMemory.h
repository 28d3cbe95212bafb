#pragma once
// A block of pixel memory, aligned to 64 bytes, shared by tiles through RCShdPtr.

#include <orn/base/rc/rcBase.h>

#include <cstddef>

namespace Orn {

class IxMemory : public RCBase<LkCounter<int>> {
public:
  static constexpr std::size_t ALIGNMENT = 64;

  explicit IxMemory(std::size_t nbBytes);
  ~IxMemory() override;
  IxMemory(IxMemory const&) = delete;
  IxMemory& operator=(IxMemory const&) = delete;

  unsigned char* getData() const { return _data; }
  std::size_t getSize() const { return _size; }

private:
  unsigned char* _data;
  std::size_t _size;
};

}  // namespace Orn
