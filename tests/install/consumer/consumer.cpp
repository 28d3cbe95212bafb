// A program outside the repository: includes the umbrella header and runs an operator.
#include <orn/primitives.h>

#include <cstdio>

int main() {
  using namespace Orn;
  InInitService::initialize();
  IxTile tile(IxPixelFormat(IxPixelFormat::RGBA, IxPixelFormat::UINT8), GeRectangle<int>(0, 4, 0, 2),
              CoRgbaColorTyped<float>(0, 0, 0, 1));
  IxWriteGuard const dst(tile);
  dst.getBaseAddress()[0] = 10;
  ipNegative(dst, IxReadGuard(dst), nullptr, nullptr);
  int const value = dst.getBaseAddress()[0];
  InInitService::finalize();
  std::printf("%d\n", value);
  return value == 245 ? 0 : 1;
}
