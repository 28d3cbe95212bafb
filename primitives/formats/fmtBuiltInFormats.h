#pragma once
// The formats the registry knows from start-up: broadcast, high-definition, proxy and film
// rasters, each in its aspect ratios, scan types and frame rates. All are registered as video
// formats of 3 components of 8 bits with square pixels in the descriptor; the true pixel ratio is
// in the format name.

#include <orn/base/containers/vector.h>
#include <orn/base/geometryBase/rational.h>
#include <orn/resmgt/liRateRegistry.h>
#include <orn/resmgt/liString.h>

namespace Orn {

class FmtBuiltInFormats {
public:
  enum Category { VIDEO = 0, FILM = 1, GRAPHICS = 2, PROXY = 3 };
  enum Definition { SD = 0, HD = 1, NO_DEFINITION = 2 };
  // BOTH_SCANS registers each format twice, interlaced then progressive.
  enum Scan { INTERLACED = 0, PROGRESSIVE = 1, BOTH_SCANS = 2, NO_SCAN = 3 };

  // Registers the whole table, in order, into the live registry, whose "Video" type must be
  // registered.
  static void registerAll();

  // Registers one row: exactly one of imgRatios (image aspect ratios, the pixel ratio is derived)
  // and pixRatios (pixel ratios, the image ratio is derived) is non-empty. One format per ratio
  // and rate, two when scan is BOTH_SCANS. Unknown category, definition or scan values abort; a
  // name already registered is an assertion failure.
  static void addFormats(LiString const& displayName, unsigned width, unsigned height, int category, int definition,
                         int scan, Vector<Rational> const& imgRatios, Vector<Rational> const& pixRatios,
                         Vector<LiRateRegistry::Entry> const& rates, int group);

  // The format name of one registration, as addFormats builds it.
  static LiString makeFormatName(int group, LiString const& displayName, unsigned width, unsigned height,
                                 int category, int definition, int scan, Rational const& imageRatio,
                                 Rational const& pixelRatio, LiRateRegistry::Entry const& rate);

  // Words of the name fields; other values abort. Definition NO_DEFINITION and scan NO_SCAN give
  // the empty word, scan BOTH_SCANS is no single word and aborts as well.
  static char const* getCategoryWord(int category);
  static char const* getDefinitionWord(int definition);
  static char const* getScanWord(int scan);
};

}  // namespace Orn
