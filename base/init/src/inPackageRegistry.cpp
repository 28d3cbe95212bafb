#include <orn/base/init/inPackageRegistry.h>

#include <orn/base/except/assertions.h>
#include <orn/base/init/inEx.h>
#include <orn/base/init/inPackageInit.h>
#include <orn/base/init/inVariableBase.h>
#include <orn/base/rc/rcEx.h>

#include <algorithm>
#include <map>
#include <set>
#include <typeindex>
#include <utility>

namespace Orn {

namespace {

// Runs one clean-up action, keeping the first failure and going on.
template <class Action>
void runGuarded(Action action, std::exception_ptr& firstFailure) {
  try {
    action();
  } catch (...) {
    if (!firstFailure) firstFailure = std::current_exception();
  }
}

}  // namespace

InPackageRegistry::InPackageRegistry() : _initialized(false), _running(false) {}

InPackageRegistry::~InPackageRegistry() {
  for (InPackageInit* package : _packages) package->_registry = nullptr;
}

void InPackageRegistry::add(InPackageInit* package) {
  ORN_ASSERT(package != nullptr);
  std::lock_guard<std::recursive_mutex> guard(_lock);
  ORN_ASSERT(package->getRegistry() == nullptr);
  _packages.push_back(package);
  package->_registry = this;
}

void InPackageRegistry::remove(InPackageInit* package) {
  std::lock_guard<std::recursive_mutex> guard(_lock);
  auto it = std::find(_packages.begin(), _packages.end(), package);
  if (it == _packages.end()) return;
  _packages.erase(it);
  std::erase_if(_started, [package](Started const& s) { return s.package == package; });
  package->_registry = nullptr;
}

bool InPackageRegistry::contains(InPackageInit const* package) const {
  std::lock_guard<std::recursive_mutex> guard(_lock);
  return std::find(_packages.begin(), _packages.end(), package) != _packages.end();
}

std::size_t InPackageRegistry::getNbPackages() const {
  std::lock_guard<std::recursive_mutex> guard(_lock);
  return _packages.size();
}

std::vector<InPackageInit*> InPackageRegistry::computeOrder() const {
  std::lock_guard<std::recursive_mutex> guard(_lock);
  std::size_t const nb = _packages.size();

  std::map<std::type_index, std::size_t> byType;
  for (std::size_t i = 0; i < nb; ++i) {
    if (!byType.emplace(std::type_index(typeid(*_packages[i])), i).second) {
      throw InEx::ExDuplicatePackage(__FILE__, __LINE__, _packages[i]->getName());
    }
  }

  // Edges from each package to the packages that need it; a dependency stated twice counts once.
  std::vector<std::vector<std::size_t>> dependents(nb);
  std::vector<std::size_t> nbPending(nb, 0);
  for (std::size_t i = 0; i < nb; ++i) {
    std::set<std::size_t> needed;
    for (std::type_info const* type : _packages[i]->getDependencies()) {
      auto found = byType.find(std::type_index(*type));
      if (found == byType.end()) {
        throw InEx::ExUnknownDependency(__FILE__, __LINE__, _packages[i]->getName(),
                                        demangleTypeName(type->name()).c_str());
      }
      needed.insert(found->second);
    }
    for (std::size_t dependency : needed) dependents[dependency].push_back(i);
    nbPending[i] = needed.size();
  }

  // Kahn's algorithm; ready packages are taken by name, then by registration.
  std::set<std::pair<std::string, std::size_t>> ready;
  for (std::size_t i = 0; i < nb; ++i) {
    if (nbPending[i] == 0) ready.emplace(_packages[i]->getName(), i);
  }
  std::vector<InPackageInit*> order;
  order.reserve(nb);
  while (!ready.empty()) {
    std::size_t const i = ready.begin()->second;
    ready.erase(ready.begin());
    order.push_back(_packages[i]);
    for (std::size_t dependent : dependents[i]) {
      if (--nbPending[dependent] == 0) ready.emplace(_packages[dependent]->getName(), dependent);
    }
  }

  if (order.size() != nb) {
    std::set<std::string> names;
    for (std::size_t i = 0; i < nb; ++i) {
      if (nbPending[i] != 0) names.insert(_packages[i]->getName());
    }
    std::string list;
    for (std::string const& name : names) list += (list.empty() ? "" : ", ") + name;
    throw InEx::ExDependencyCycle(__FILE__, __LINE__, list);
  }
  return order;
}

void InPackageRegistry::initialize() {
  std::lock_guard<std::recursive_mutex> guard(_lock);
  if (_initialized) return;
  ORN_ASSERT(!_running);
  std::vector<InPackageInit*> const order = computeOrder();

  _running = true;
  _started.clear();
  _initializationOrder.clear();
  try {
    for (InPackageInit* package : order) {
      // An earlier step may have unloaded a library and with it this package.
      if (std::find(_packages.begin(), _packages.end(), package) == _packages.end()) continue;
      package->preInitialize();
      package->initialize();
      _initializationOrder.push_back(package->getName());
      _started.push_back(Started{package, {}});
      std::size_t const index = _started.size() - 1;
      std::vector<InVariableBase*> const variables = package->getVariables();
      for (InVariableBase* variable : variables) {
        variable->initialize();
        _started[index].variables.push_back(variable);
      }
      package->setInitialized(true);
    }
  } catch (...) {
    // Undo what was started; the failure of the step is the one reported.
    std::exception_ptr dropped;
    while (!_started.empty()) {
      Started started = std::move(_started.back());
      _started.pop_back();
      cleanUp(started, dropped);
    }
    _running = false;
    throw;
  }
  _running = false;
  _initialized = true;
}

void InPackageRegistry::finalize() {
  std::lock_guard<std::recursive_mutex> guard(_lock);
  if (!_initialized) return;
  ORN_ASSERT(!_running);
  _running = true;
  std::exception_ptr firstFailure;
  while (!_started.empty()) {
    Started started = std::move(_started.back());
    _started.pop_back();
    cleanUp(started, firstFailure);
  }
  _running = false;
  _initialized = false;
  if (firstFailure) std::rethrow_exception(firstFailure);
}

bool InPackageRegistry::isInitialized() const {
  std::lock_guard<std::recursive_mutex> guard(_lock);
  return _initialized;
}

std::vector<std::string> InPackageRegistry::getInitializationOrder() const {
  std::lock_guard<std::recursive_mutex> guard(_lock);
  return _initializationOrder;
}

void InPackageRegistry::variableRemoved(InPackageInit* package, InVariableBase* variable) {
  std::lock_guard<std::recursive_mutex> guard(_lock);
  for (Started& started : _started) {
    if (started.package == package) std::erase(started.variables, variable);
  }
}

void InPackageRegistry::cleanUp(Started& started, std::exception_ptr& firstFailure) {
  for (auto it = started.variables.rbegin(); it != started.variables.rend(); ++it) {
    InVariableBase* variable = *it;
    runGuarded([variable] { variable->finalize(); }, firstFailure);
  }
  InPackageInit* package = started.package;
  runGuarded([package] { package->finalize(); }, firstFailure);
  runGuarded([package] { package->postFinalize(); }, firstFailure);
  runGuarded([package] { package->setInitialized(false); }, firstFailure);
}

}  // namespace Orn
