#include <orn/primitives/primitivesLib/libraryBuildInfo.h>

namespace Orn {

LibraryBuildInfo::LibraryBuildInfo() = default;

LibraryBuildInfo::~LibraryBuildInfo() = default;

std::string LibraryBuildInfo::getProduct() const { return "Orn"; }

std::string LibraryBuildInfo::getLibrary() const { return "libOrnprimitives"; }

std::string LibraryBuildInfo::getYear() const {
  std::string const date = getBuildDate();
  return date.size() >= 4 ? date.substr(date.size() - 4) : date;
}

std::string LibraryBuildInfo::getVersion() const { return "8.0"; }

int LibraryBuildInfo::getBuildKind() const { return 8; }

int LibraryBuildInfo::getRevision() const { return 0; }

int LibraryBuildInfo::getInterfaceLevel() const { return 42; }

std::string LibraryBuildInfo::getBuildNumber() const { return "2600"; }

std::string LibraryBuildInfo::getBuildDate() const { return normalizeDate(__DATE__); }

std::string LibraryBuildInfo::getBuildFlavour() const { return "opt.x86_64.intel"; }

std::string LibraryBuildInfo::normalizeDate(std::string const& compilerDate) {
  // "Mmm dd yyyy" with a blank in place of a leading zero of the day.
  if (compilerDate.size() != 11 || compilerDate[3] != ' ' || compilerDate[6] != ' ') return compilerDate;
  std::string date = compilerDate;
  if (date[4] == ' ') date[4] = '0';
  return date;
}

}  // namespace Orn
