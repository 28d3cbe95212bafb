#pragma once
// The floating-point mode that the image code relies on, per thread: round to nearest, all six
// exceptions masked, flush-to-zero and denormals-are-zero on.

namespace Orn {
namespace IxConvertServices {

// Sets the mode in the calling thread's MXCSR; the register is written only when it changes.
void configureSSE();

// Asserts the mode of the calling thread. Skipped when ORN_ASSERT_CONFIG_SSE is not 1 and under
// Valgrind; the flush-to-zero and denormals-are-zero checks are made on Intel processors only.
void assertConfigSSE();

// The value configureSSE() gives to a register value: rounding bits cleared, 0x9FC0 set.
constexpr unsigned int configuredMxcsr(unsigned int mxcsr) { return (mxcsr & ~0x6000u) | 0x9FC0u; }

}  // namespace IxConvertServices
}  // namespace Orn
