// Strings and points as the embedded engine keeps them: a point is a list of
// dimension values (numbers, or 4-character texts), a string is a labelled
// sequence of points that may be broken by discontinuities.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvane::engine {

constexpr int kMinDimension = 2;
constexpr int kMaxDimension = 12;
constexpr double kNullLevel = -999.0;  // MX's "no level"
constexpr std::size_t kLabelWidth = 4;
constexpr std::size_t kTextWidth = 4;  // texts of points are CHARACTER*4 values

// One dimension of a point.
struct DimValue {
  double num = 0;
  std::string txt;  // right-trimmed, at most kTextWidth characters; used when isText
  bool isText = false;

  static DimValue number(double v) { return {v, {}, false}; }
  static DimValue text(std::string t) { return {0, std::move(t), true}; }
  bool operator==(const DimValue&) const = default;
};

struct ModelPoint {
  std::vector<DimValue> dims;  // dims[0] is x, dims[1] y, dims[2] z, ...: the string's dimension
  bool gapAfter = false;       // a discontinuity: the string is broken after this point
  double chainage = 0;         // derived when the string is stored (see chainages())
};

struct StringHeader {
  std::string label;   // upper case, right-trimmed, 1 to 4 characters
  std::string subref;  // second label of the 080 record, right-trimmed, may be empty
  int dimension = 3;
  std::optional<double> level;  // level of a 2-dimensional string, from its header
};

struct ModelString {
  StringHeader header;
  std::vector<ModelPoint> points;
};

// The numeric value of dimension d (1-based) of a point. A 2-dimensional
// string answers its header level (or the null level) for d = 3; a dimension
// the point does not have, or that holds a text, is 0.
double dimNumber(const StringHeader& h, const ModelPoint& p, int d);
// The text of dimension d, empty when it holds a number or is missing.
std::string dimText(const ModelPoint& p, int d);

// Chainage of every point: dimension 4 for strings of 6 or more dimensions
// (master and geometry strings carry it), otherwise the plan length along the
// string from point 1, gaps at discontinuities not counted.
std::vector<double> chainages(const ModelString& s);

// Labels: upper-cased, right-trimmed. Padding to 4 for fixed-width output.
std::string normalLabel(std::string_view raw);
std::string padded(std::string_view s, std::size_t width);

}  // namespace korvane::engine
