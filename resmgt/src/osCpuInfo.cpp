#include <orn/resmgt/osCpuInfo.h>

#include <cpuid.h>

#include <cstring>

namespace Orn {

std::string OsCpuInfo::getVendorId() {
  unsigned int eax = 0, ebx = 0, ecx = 0, edx = 0;
  if (!__get_cpuid(0, &eax, &ebx, &ecx, &edx)) return std::string();
  // The identification is spread over ebx, edx, ecx in that order.
  char text[12];
  std::memcpy(text, &ebx, 4);
  std::memcpy(text + 4, &edx, 4);
  std::memcpy(text + 8, &ecx, 4);
  return std::string(text, sizeof text);
}

OsCpuInfo::Manufacturer OsCpuInfo::manufacturerOf(std::string const& vendorId) {
  if (vendorId == "GenuineIntel") return INTEL;
  // Early AMD samples identified themselves as "AMDisbetter!".
  if (vendorId == "AuthenticAMD" || vendorId == "AMDisbetter!") return AMD;
  return OTHER;
}

OsCpuInfo::Manufacturer OsCpuInfo::getManufacturer() {
  static Manufacturer const manufacturer = manufacturerOf(getVendorId());
  return manufacturer;
}

}  // namespace Orn
