#pragma once
// Build record of the primitives library, registered by its package at start-up.

#include <orn/base/init/inBuildInfo.h>

#include <string>

namespace Orn {

class LibraryBuildInfo : public InBuildInfo {
public:
  LibraryBuildInfo();
  ~LibraryBuildInfo() override;

  std::string getProduct() const override;
  std::string getLibrary() const override;
  std::string getYear() const override;
  std::string getVersion() const override;
  int getBuildKind() const override;
  int getRevision() const override;
  int getInterfaceLevel() const override;
  std::string getBuildNumber() const override;
  std::string getBuildDate() const override;
  std::string getBuildFlavour() const override;

  // A compiler date ("Jun  2 2012") as "Jun 02 2012": the day always has two digits. Text of any
  // other shape is returned unchanged.
  static std::string normalizeDate(std::string const& compilerDate);
};

}  // namespace Orn
