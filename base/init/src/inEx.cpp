#include <orn/base/init/inEx.h>

#include <sstream>

namespace Orn {

InEx::ExUnknownDependency::ExUnknownDependency(char const* file, int line, char const* packageName,
                                               char const* dependencyType)
    : InEx(file, line) {
  std::ostringstream out;
  out << "Package " << (packageName ? packageName : "unknown") << " depends on "
      << (dependencyType ? dependencyType : "unknown") << ", which is not registered";
  setReason(out.str().c_str());
}

InEx::ExDependencyCycle::ExDependencyCycle(char const* file, int line, std::string const& packageNames)
    : InEx(file, line) {
  std::ostringstream out;
  out << "Cyclic package dependencies among: " << packageNames;
  setReason(out.str().c_str());
}

InEx::ExDuplicatePackage::ExDuplicatePackage(char const* file, int line, char const* packageName)
    : InEx(file, line) {
  std::ostringstream out;
  out << "Package " << (packageName ? packageName : "unknown") << " is registered twice";
  setReason(out.str().c_str());
}

}  // namespace Orn
