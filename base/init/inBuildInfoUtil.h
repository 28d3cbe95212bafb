#pragma once
// Registry of the build records of the libraries of the process.

#include <orn/base/init/inBuildInfo.h>
#include <orn/base/rc/oPtr.h>

#include <cstddef>
#include <memory>
#include <string>

namespace Orn {

class InBuildInfoUtil {
public:
  // Takes ownership of a record and returns the stored record. The records live until the end of
  // the process; registering a null record is an assertion failure.
  static InBuildInfo const& registerInfo(OPtr<InBuildInfo> info);
  static InBuildInfo const& registerInfo(std::unique_ptr<InBuildInfo> info);

  static std::size_t getNbInfos();
  // Records in the order of registration.
  static InBuildInfo const& getInfo(std::size_t index);
  // The latest record registered for a library name, null when none.
  static InBuildInfo const* findInfo(std::string const& library);
};

}  // namespace Orn
