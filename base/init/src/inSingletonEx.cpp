#include <orn/base/init/inSingletonEx.h>

#include <sstream>

namespace Orn {

namespace {

std::string compose(char const* typeName, char const* what) {
  std::ostringstream out;
  out << "Singleton " << (typeName ? typeName : "unknown") << ' ' << what;
  return out.str();
}

}  // namespace

InSingletonEx::ExNotInitialized::ExNotInitialized(char const* file, int line, char const* typeName)
    : InSingletonEx(file, line) {
  setReason(compose(typeName, "is not initialized").c_str());
}

InSingletonEx::ExAlreadyInitialized::ExAlreadyInitialized(char const* file, int line, char const* typeName)
    : InSingletonEx(file, line) {
  setReason(compose(typeName, "is already initialized").c_str());
}

InSingletonEx::ExAlreadyDestroyed::ExAlreadyDestroyed(char const* file, int line, char const* typeName)
    : InSingletonEx(file, line) {
  setReason(compose(typeName, "is already destroyed").c_str());
}

}  // namespace Orn
