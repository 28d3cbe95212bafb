#pragma once
// Build facts of one library, registered at start-up through InBuildInfoUtil.

#include <string>

namespace Orn {

class InBuildInfo {
public:
  virtual ~InBuildInfo();

  // Name of the application family the library belongs to.
  virtual std::string getProduct() const = 0;
  // File name of the library, without extension.
  virtual std::string getLibrary() const = 0;
  // Release year, as text.
  virtual std::string getYear() const = 0;
  // Version as "major.minor".
  virtual std::string getVersion() const = 0;
  // Tag of the build kind: "dev" for development builds (kind 3), empty otherwise.
  virtual std::string getBuildKindText() const;
  virtual int getBuildKind() const = 0;
  virtual int getRevision() const = 0;
  virtual int getInterfaceLevel() const = 0;
  virtual std::string getBuildNumber() const = 0;
  // Date of the build, as "Mmm dd yyyy".
  virtual std::string getBuildDate() const = 0;
  // Compilation flavour, such as "opt.x86_64.intel".
  virtual std::string getBuildFlavour() const = 0;

  // Kind of a development build.
  static constexpr int DEVELOPMENT_BUILD = 3;
};

}  // namespace Orn
