#pragma once
// The demo is a list of sections; each runs some operators on the built-in images and writes
// its results as PNG files.

#include <functional>
#include <string>
#include <vector>

namespace OrnDemo {

struct Section {
  std::string name;
  std::function<void(std::string const& outDir)> run;
};

// Sections register themselves from their own source files.
std::vector<Section>& sections();

struct SectionRegistration {
  SectionRegistration(std::string name, std::function<void(std::string const&)> run) {
    sections().push_back({std::move(name), std::move(run)});
  }
};

}  // namespace OrnDemo
