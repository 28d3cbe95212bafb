#pragma once
// The structured name of a registered format: eleven fields joined by "-", for instance
//   2-HD 1080p-1920-1080-video-hd-progressive-16:9-1:1-RATE_25-25/1
// A name used as a filter may hold the wildcard "*" in any field, which accepts any value.

#include <orn/base/containers/constIterator.h>
#include <orn/resmgt/liString.h>

#include <array>

namespace Orn {

class FmtFormatName {
public:
  enum Field {
    GROUP = 0,     // group number, decimal
    DISPLAY_NAME,  // the name shown to users
    WIDTH,
    HEIGHT,
    CATEGORY,      // "video", "film", "graphics", "proxy"
    DEFINITION,    // "sd", "hd" or empty
    SCAN,          // "interlaced", "progressive" or empty
    IMAGE_RATIO,   // "n:d" as computed (not reduced), empty when n is 0
    PIXEL_RATIO,   // likewise
    RATE_NAME,     // enumeration name of the frame rate, empty without a rate
    RATE,          // "n/d" frames per second, empty without a rate
    NB_FIELDS
  };

  // Separator of the fields.
  static constexpr char const* Sep = "-";
  // Field value of a filter that accepts any value.
  static constexpr char const* All = "*";

  // A filter that accepts every name: all fields are All.
  FmtFormatName();
  // Splits a name into its fields; the name must have exactly NB_FIELDS of them.
  explicit FmtFormatName(LiString const& name);

  // Whether name splits into exactly NB_FIELDS fields.
  static bool isWellFormed(LiString const& name);

  LiString const& getFieldValue(int field) const;
  // The value must not contain the separator.
  void setFieldValue(int field, LiString const& value);

  // The fields joined by Sep.
  LiString toString() const;

  // True when every field of this filter is All or equal to the same field of name.
  bool matches(FmtFormatName const& name) const;

  // The well-formed names of the registered formats that the filter matches, in registry order;
  // with a type, only the formats of that type (which must be known).
  static ConstIterator<FmtFormatName> getFilteredList(FmtFormatName const& filter);
  static ConstIterator<FmtFormatName> getFilteredList(FmtFormatName const& filter, LiString const& type);

  friend bool operator==(FmtFormatName const& a, FmtFormatName const& b) { return a._fields == b._fields; }

private:
  std::array<LiString, NB_FIELDS> _fields;
};

}  // namespace Orn
