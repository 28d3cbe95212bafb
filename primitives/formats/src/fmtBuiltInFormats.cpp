#include <orn/primitives/formats/fmtBuiltInFormats.h>

#include <orn/base/except/assertions.h>
#include <orn/primitives/formats/fmtFormatDesc.h>
#include <orn/primitives/formats/fmtFormatName.h>
#include <orn/primitives/formats/fmtFormatRegistry.h>
#include <orn/primitives/formats/fmtVideoFormat.h>

#include <string>

namespace Orn {

namespace {

// "n<sep>d" as the ratio stands, or nothing for a zero numerator.
std::string ratioField(Rational const& ratio, char separator) {
  if (ratio.getNumerator() == 0) return std::string();
  return std::to_string(ratio.getNumerator()) + separator + std::to_string(ratio.getDenominator());
}

void registerOne(LiString const& displayName, unsigned width, unsigned height, int category, int definition,
                 int scan, Rational const& imageRatio, Rational const& pixelRatio,
                 LiRateRegistry::Entry const& rate, int group) {
  FmtFormatRegistry& formatReg = FmtFormatRegistry::getInstance();
  LiString const formatName = FmtBuiltInFormats::makeFormatName(group, displayName, width, height, category,
                                                                definition, scan, imageRatio, pixelRatio, rate);
  ORN_ASSERT(formatReg.findFormatByName( formatName ) == formatReg.end());
  // The descriptor keeps square pixels whatever the name says.
  OPtr<FmtFormatDesc::Native const> native(
      new FmtVideoFormat(width, height, ImPixelFormat(3, 8), Rational(1, 1), rate));
  formatReg.registerFormat(formatName, FmtVideoFormat::TYPE, FmtFormatDesc(displayName, std::move(native)));
}

}  // namespace

char const* FmtBuiltInFormats::getCategoryWord(int category) {
  switch (category) {
    case VIDEO:
      return "video";
    case FILM:
      return "film";
    case GRAPHICS:
      return "graphics";
    case PROXY:
      return "proxy";
    default:
      ORN_ABORT("unknown format category");
  }
}

char const* FmtBuiltInFormats::getDefinitionWord(int definition) {
  switch (definition) {
    case SD:
      return "sd";
    case HD:
      return "hd";
    case NO_DEFINITION:
      return "";
    default:
      ORN_ABORT("unknown format definition");
  }
}

char const* FmtBuiltInFormats::getScanWord(int scan) {
  switch (scan) {
    case INTERLACED:
      return "interlaced";
    case PROGRESSIVE:
      return "progressive";
    case NO_SCAN:
      return "";
    default:
      ORN_ABORT("unknown format scan");
  }
}

LiString FmtBuiltInFormats::makeFormatName(int group, LiString const& displayName, unsigned width,
                                           unsigned height, int category, int definition, int scan,
                                           Rational const& imageRatio, Rational const& pixelRatio,
                                           LiRateRegistry::Entry const& rate) {
  std::string const sep(FmtFormatName::Sep);
  std::string name = std::to_string(group);
  name += sep + displayName.str();
  name += sep + std::to_string(width);
  name += sep + std::to_string(height);
  name += sep + getCategoryWord(category);
  name += sep + getDefinitionWord(definition);
  name += sep + getScanWord(scan);
  name += sep + ratioField(imageRatio, ':');
  name += sep + ratioField(pixelRatio, ':');
  name += sep + rate.getEnumName();
  name += sep + (rate.isNull() ? std::string() : ratioField(rate.getRate(), '/'));
  return LiString(std::move(name));
}

void FmtBuiltInFormats::addFormats(LiString const& displayName, unsigned width, unsigned height, int category,
                                   int definition, int scan, Vector<Rational> const& imgRatios,
                                   Vector<Rational> const& pixRatios, Vector<LiRateRegistry::Entry> const& rates,
                                   int group) {
  ORN_ASSERT(( !imgRatios.empty() && pixRatios.empty() ) || ( imgRatios.empty() && !pixRatios.empty() ));
  // Bad codes abort before anything is registered.
  getCategoryWord(category);
  getDefinitionWord(definition);
  Vector<int> const scans = scan == BOTH_SCANS ? Vector<int>{INTERLACED, PROGRESSIVE} : Vector<int>{scan};
  for (int s : scans) getScanWord(s);

  int const w = int(width);
  int const h = int(height);
  auto registerAllScans = [&](Rational const& imageRatio, Rational const& pixelRatio,
                              LiRateRegistry::Entry const& rate) {
    for (int s : scans) {
      registerOne(displayName, width, height, category, definition, s, imageRatio, pixelRatio, rate, group);
    }
  };
  // An image ratio a:b over a w x h raster gives pixels of (a * h):(b * w); a pixel ratio c:d gives
  // an image of (c * w):(d * h). Neither is reduced.
  for (Rational const& a : imgRatios) {
    Rational const pixelRatio(a.getNumerator() * h, a.getDenominator() * w);
    for (LiRateRegistry::Entry const& rate : rates) registerAllScans(a, pixelRatio, rate);
  }
  for (Rational const& c : pixRatios) {
    Rational const imageRatio(c.getNumerator() * w, c.getDenominator() * h);
    for (LiRateRegistry::Entry const& rate : rates) registerAllScans(imageRatio, c, rate);
  }
}

void FmtBuiltInFormats::registerAll() {
  LiRateRegistry const& rateReg = LiRateRegistry::getInstance();
  LiRateRegistry::Entry rate[8];
  for (int id = 0; id < 8; ++id) rate[id] = rateReg.get(id);

  using Rates = Vector<LiRateRegistry::Entry>;
  Rates const ntsc{rate[3], rate[4]};
  Rates const pal{rate[2]};
  Rates const hdA{rate[3], rate[4]};
  Rates const hdB{rate[6]};
  Rates const hdC{rate[2]};
  Rates const hdD{rate[2], rate[5]};
  Rates const hdE{rate[0], rate[1], rate[3], rate[4], rate[6], rate[7]};
  Rates const hdF{rate[0], rate[1], rate[3], rate[4]};
  Rates const film{rate[1]};

  using Ratios = Vector<Rational>;
  Ratios const none;
  Ratios const ratioA{Rational(4, 3)};
  Ratios const ratioB{Rational(16, 9)};
  Ratios const ratioC{Rational(4, 3), Rational(16, 9)};
  Ratios const one{Rational(1, 1)};
  Ratios const two{Rational(2, 1)};

  // Video rasters, by image aspect ratio.
  addFormats("NTSC", 720, 486, VIDEO, SD, INTERLACED, ratioA, none, ntsc, 1);
  addFormats("Half NTSC", 360, 243, PROXY, NO_DEFINITION, NO_SCAN, ratioA, none, ntsc, 1);
  addFormats("Quarter NTSC", 180, 122, PROXY, NO_DEFINITION, NO_SCAN, ratioA, none, ntsc, 1);
  addFormats("PAL", 720, 576, VIDEO, SD, INTERLACED, ratioA, none, pal, 1);
  addFormats("Half PAL", 360, 288, PROXY, NO_DEFINITION, NO_SCAN, ratioA, none, pal, 1);
  addFormats("Quarter PAL", 180, 144, PROXY, NO_DEFINITION, NO_SCAN, ratioA, none, pal, 1);
  addFormats("HD 480p", 640, 480, VIDEO, HD, PROGRESSIVE, ratioA, none, hdA, 2);
  addFormats("HD 480p", 704, 480, VIDEO, HD, PROGRESSIVE, ratioC, none, hdA, 2);
  addFormats("HD 483p", 720, 483, VIDEO, HD, PROGRESSIVE, ratioA, none, hdB, 2);
  addFormats("HD 288p", 352, 288, VIDEO, HD, PROGRESSIVE, ratioC, none, hdC, 2);
  addFormats("HD 576p", 352, 576, VIDEO, HD, PROGRESSIVE, ratioC, none, hdC, 3);
  addFormats("HD 576p", 480, 576, VIDEO, HD, PROGRESSIVE, ratioC, none, hdC, 3);
  addFormats("HD 576p", 544, 576, VIDEO, HD, PROGRESSIVE, ratioC, none, hdC, 3);
  addFormats("HD 576p", 720, 576, VIDEO, HD, PROGRESSIVE, ratioC, none, hdD, 2);
  addFormats("HD 720p", 1280, 720, VIDEO, HD, PROGRESSIVE, ratioB, none, hdE, 2);
  addFormats("HD 1080p", 1920, 1080, VIDEO, HD, PROGRESSIVE, ratioB, none, hdC, 2);
  addFormats("HD 1080p", 1920, 1080, VIDEO, HD, PROGRESSIVE, ratioB, none, hdF, 2);

  // Film rasters, by pixel aspect ratio.
  struct FilmRow {
    char const* name;
    unsigned width;
    unsigned height;
    Ratios const* pixelRatios;
  };
  FilmRow const filmRows[] = {
      {"35mm Full Aperture 4K", 4096, 3112, &one},     {"35mm Full Aperture 2K", 2048, 1556, &one},
      {"35mm Full Aperture 1K", 1024, 778, &one},      {"35mm Academy Offset 4K", 3656, 2664, &one},
      {"35mm Academy Offset 2K", 1828, 1332, &one},    {"35mm Academy Offset 1K", 914, 666, &one},
      {"Cinemascope/Panavision 4K", 3656, 3112, &two}, {"Cinemascope/Panavision 2K", 1828, 1556, &two},
      {"Cinemascope/Panavision 1K", 914, 778, &two},   {"35mm Vista Vision 6K", 6144, 4096, &one},
      {"35mm Vista Vision 3K", 3072, 2048, &one},      {"35mm Vista Vision 1K", 1536, 1024, &one},
      {"Squeezed Vista Vision 4K", 4096, 3072, &one},  {"Squeezed Vista Vision 2K", 2048, 1536, &one},
      {"Squeezed Vista Vision 1K", 1024, 768, &one},   {"65mm 5 Perf 4K", 4096, 1840, &one},
      {"65mm 5 Perf 2K", 2048, 920, &one},             {"65mm 5 Perf 1K", 1024, 460, &one},
      {"65mm 8 Perf 4K", 4096, 3032, &one},            {"65mm 8 Perf 2K", 2048, 1516, &one},
      {"65mm 8 Perf 1K", 1024, 758, &one},             {"65mm 10 Perf 4K", 4096, 3792, &one},
      {"65mm 10 Perf 2K", 2048, 1896, &one},           {"65mm 10 Perf 1K", 1024, 948, &one},
      {"65mm 15 Perf 4K", 5616, 4096, &one},           {"65mm 15 Perf 2K", 2808, 2048, &one},
      {"65mm 15 Perf 1K", 1404, 1024, &one},           {"Super 16mm 4K", 2048, 1240, &one},
      {"Super 16mm 2K", 1024, 620, &one},              {"Super 16mm 1K", 512, 310, &one},
      {"16mm 4K", 1712, 1240, &one},                   {"16mm 2K", 856, 620, &one},
      {"16mm 1K", 428, 310, &one},
  };
  for (FilmRow const& row : filmRows) {
    addFormats(row.name, row.width, row.height, FILM, NO_DEFINITION, NO_SCAN, none, *row.pixelRatios, film, 2);
  }
}

}  // namespace Orn
