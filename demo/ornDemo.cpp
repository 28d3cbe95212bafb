// Demo of libORNprimitives: builds test images, runs the library's operators on them and writes
// the results as PNG files.
//   ornDemo [output folder]     (default: out)

#include "demoSections.h"

#include <orn/base/init/inInitService.h>
#include <orn/base/except/exBase.h>

#include <cstdio>
#include <filesystem>
#include <string>

namespace OrnDemo {

std::vector<Section>& sections() {
  static std::vector<Section> all;
  return all;
}

}  // namespace OrnDemo

int main(int argc, char** argv) {
  std::string const outDir = argc > 1 ? argv[1] : "out";
  if (outDir.empty() || outDir[0] == '-') {
    std::printf("usage: ornDemo [output folder]   (default: out)\n");
    return outDir == "-h" || outDir == "--help" ? 0 : 2;
  }
  try {
    std::filesystem::create_directories(outDir);
    Orn::InInitService::initialize();
    for (OrnDemo::Section const& section : OrnDemo::sections()) {
      std::printf("%s\n", section.name.c_str());
      section.run(outDir);
    }
    Orn::InInitService::finalize();
  } catch (Orn::ExBase const& e) {
    std::fprintf(stderr, "ornDemo: %s\n", e.getDetailedReason().c_str());
    return 1;
  } catch (std::exception const& e) {
    std::fprintf(stderr, "ornDemo: %s\n", e.what());
    return 1;
  }
  return 0;
}
