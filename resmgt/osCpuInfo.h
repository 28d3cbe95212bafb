#pragma once
// Facts about the processor the process runs on.

#include <string>

namespace Orn {

class OsCpuInfo {
public:
  enum Manufacturer { INTEL = 0, AMD = 1, OTHER = 2 };

  // The maker, from the processor's vendor identification.
  static Manufacturer getManufacturer();
  // The 12-character vendor identification ("GenuineIntel", "AuthenticAMD", ...); empty when the
  // processor cannot tell.
  static std::string getVendorId();
  // The maker named by a vendor identification.
  static Manufacturer manufacturerOf(std::string const& vendorId);
};

}  // namespace Orn
