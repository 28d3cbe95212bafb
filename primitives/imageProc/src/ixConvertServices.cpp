#include <orn/primitives/imageProc/ixConvertServices.h>

#include <orn/base/except/assertions.h>
#include <orn/resmgt/envIntVar.h>
#include <orn/resmgt/osCpuInfo.h>
#include <orn/resmgt/valgrindHelper.h>

#include <xmmintrin.h>

// Denormals-are-zero bit of MXCSR, under the names the checks below use.
#ifndef _MM_DAZ_MASK
#define _MM_DAZ_MASK 0x0040u
#endif
#ifndef _MM_DAZ_ON
#define _MM_DAZ_ON 0x0040u
#endif

namespace Orn {
namespace IxConvertServices {

void configureSSE() {
  unsigned int const mxcsr = _mm_getcsr();
  unsigned int const wanted = configuredMxcsr(mxcsr);
  if (wanted != mxcsr) _mm_setcsr(wanted);
}

void assertConfigSSE() {
  EnvIntVar const enabled("ORN_ASSERT_CONFIG_SSE", "Check the floating-point mode at start-up (1) or not", 1);
  if (enabled.getValue() != 1) return;
  if (ValgrindHelper::isValgrindRunning()) return;
  unsigned int const mxcsr = _mm_getcsr();
  ORN_ASSERT(( mxcsr & _MM_ROUND_MASK ) == _MM_ROUND_NEAREST);
  ORN_ASSERT(( mxcsr & _MM_MASK_MASK ) == _MM_MASK_MASK);
  // Other makers' processors are not held to the two denormal modes.
  if (OsCpuInfo::getManufacturer() != OsCpuInfo::Manufacturer(0)) return;
  ORN_ASSERT((mxcsr & _MM_FLUSH_ZERO_MASK) == _MM_FLUSH_ZERO_ON);
  ORN_ASSERT(( mxcsr & _MM_DAZ_MASK ) == _MM_DAZ_ON);
}

}  // namespace IxConvertServices
}  // namespace Orn
