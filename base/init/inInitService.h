#pragma once
// The application's start-up service: runs the steps of every registered package.
// Package objects register themselves when their library is loaded (InPackageInit::registerPackage);
// the application calls initialize() once the libraries are loaded and finalize() before it quits.

#include <string>
#include <vector>

namespace Orn {

class InPackageRegistry;

class InInitService {
public:
  // Runs every registered package's initialisation step in dependency order. A second call
  // without finalize() in between does nothing. A failing step's exception propagates.
  static void initialize();
  // Runs the clean-up steps in the reverse order of initialisation.
  static void finalize();
  static bool isInitialized();
  // Names of the packages in the order their initialisation steps ran.
  static std::vector<std::string> getInitializationOrder();

  // The registry of all packages of the process.
  static InPackageRegistry& getPackageRegistry();
};

}  // namespace Orn
