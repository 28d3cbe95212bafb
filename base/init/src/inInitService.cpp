#include <orn/base/init/inInitService.h>

#include <orn/base/init/inPackageRegistry.h>

namespace Orn {

InPackageRegistry& InInitService::getPackageRegistry() {
  // Package objects of every library register here during static construction and leave during
  // static destruction, in no order this library controls: the registry is therefore created on
  // first use and never destroyed.
  static InPackageRegistry* registry = new InPackageRegistry;
  return *registry;
}

void InInitService::initialize() { getPackageRegistry().initialize(); }

void InInitService::finalize() { getPackageRegistry().finalize(); }

bool InInitService::isInitialized() { return getPackageRegistry().isInitialized(); }

std::vector<std::string> InInitService::getInitializationOrder() {
  return getPackageRegistry().getInitializationOrder();
}

}  // namespace Orn
