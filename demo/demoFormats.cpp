// The format registry as the formats package fills it: one table row per registered format,
// written to formats.txt; the console gets a summary and the first rows.

#include "demoSections.h"

#include <orn/primitives/formats/fmtFormatName.h>
#include <orn/primitives/formats/fmtFormatRegistry.h>
#include <orn/primitives/formats/fmtVideoFormat.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

using namespace Orn;

namespace OrnDemo {

namespace {

using Row = std::array<std::string, 4>;

Row makeRow(FmtFormatRegistry::value_type const& entry) {
  FmtFormatDesc::Native const& native = entry.second.getNative();
  std::string size;
  std::string rate;
  if (auto const* image = dynamic_cast<FmtImageFormat const*>(&native)) {
    size = std::to_string(image->getWidth()) + "x" + std::to_string(image->getHeight());
  }
  if (auto const* video = dynamic_cast<FmtVideoFormat const*>(&native)) rate = video->getRateEntry().getEnumName();
  return Row{entry.first.first.str(), size, rate, entry.second.getDescription().str()};
}

std::string formatRow(Row const& row, std::array<std::size_t, 4> const& widths) {
  std::string line;
  for (std::size_t c = 0; c < row.size(); ++c) {
    line += row[c];
    if (c + 1 < row.size()) line += std::string(widths[c] - row[c].size() + 2, ' ');
  }
  return line;
}

void runFormats(std::string const& outDir) {
  FmtFormatRegistry const& formatReg = FmtFormatRegistry::getInstance();
  std::vector<Row> rows{Row{"name", "size", "rate", "description"}};
  for (auto const& entry : formatReg) rows.push_back(makeRow(entry));
  std::array<std::size_t, 4> widths{};
  for (Row const& row : rows) {
    for (std::size_t c = 0; c < row.size(); ++c) widths[c] = std::max(widths[c], row[c].size());
  }

  std::string const path = outDir + "/formats.txt";
  std::ofstream out(path);
  for (Row const& row : rows) out << formatRow(row, widths) << '\n';
  if (!out) throw std::runtime_error("cannot write " + path);

  std::string rates;
  for (ConstIterator<LiRateRegistry::Entry> rate = FmtVideoFormat::getAllVideoRates(); !rate.atEnd(); ++rate) {
    rates += ' ';
    rates += rate->getEnumName();
  }
  FmtFormatName film;
  film.setFieldValue(FmtFormatName::CATEGORY, "film");
  unsigned nbFilm = 0;
  for (ConstIterator<FmtFormatName> name = FmtFormatName::getFilteredList(film); !name.atEnd(); ++name) ++nbFilm;

  std::printf("  %zu formats, %u of them film; video rates:%s\n", formatReg.nbFormats(), nbFilm, rates.c_str());
  std::size_t const nbShown = std::min<std::size_t>(rows.size(), 6);
  for (std::size_t i = 0; i < nbShown; ++i) std::printf("  %s\n", formatRow(rows[i], widths).c_str());
  std::printf("  ...\n  wrote %s\n", path.c_str());
}

SectionRegistration const formats("Format registry", runFormats);

}  // namespace

}  // namespace OrnDemo
