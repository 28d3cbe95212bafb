#pragma once
// Choice of the vector width of the blend loops. The 8-wide AVX loops are used where the
// processor has AVX, the 4-wide SSE2 loops otherwise; both give the scalar results exactly.
// Turning the wide loops off lets the SSE2 loops be checked on any machine.

namespace Orn {
namespace IxScanlineBlendPaths {

bool isWideAvailable();
// Whether the scanline entry points use the AVX loops now.
bool isWideEnabled();
// Enables the AVX loops where available, or disables them; returns the previous setting.
bool setWideEnabled(bool enabled);

}  // namespace IxScanlineBlendPaths
}  // namespace Orn
