// The parameters of one long-section drawing, as the panel edits them, the
// panel file keeps them and the generated input hands them to the macro.
// Texts are in the users' code page; lengths on paper are millimetres.
#pragma once

#include <string>
#include <vector>

namespace korvane::longsection {

// A further string drawn over the long section.
struct ExtraString {
  std::string label;
  std::string lineType = "CONTINUOUS";
  std::string layer = "LS_EXTRA";
};

struct Parameters {
  std::string referenceModel;
  std::string masterString;
  std::string groundString;  // chainage in x, level in z, point by point
  std::string designString;
  std::vector<ExtraString> extras;
  double horizontalScale = 1000;  // 1:1000
  double verticalScale = 100;     // 1:100
  std::string sheetSize = "A3";   // "A4".."A0" or "Custom"
  bool landscape = true;
  double sheetWidth = 420, sheetHeight = 297;  // used as they stand for "Custom"
  double marginLeft = 20, marginRight = 10, marginTop = 10, marginBottom = 10;
  std::string startChainage, endChainage;  // empty: the string's start or end
  double chainageInterval = 20;
  bool gradeChangeColumns = true;
  std::string datumLevel;  // empty: rounded down below the lowest level drawn
  double textHeight = 2.5;
  double bandHeight = 20;      // each of the five bands: room for a turned chainage
  double bandTitleWidth = 45;  // the column of band titles at the left
  std::string groundLineType = "CONTINUOUS";
  std::string designLineType = "CONTINUOUS";
};

// At most this many further strings, and this many sheets (the drawing
// parameter file keeps the count in one byte).
constexpr int kMaxExtras = 8;
constexpr int kMaxSheets = 255;
// The graph above the bands needs at least this much height, and a sheet at
// least this much width for chainages, in millimetres.
constexpr double kMinGraphHeight = 40;
constexpr double kMinGraphWidth = 50;

// The standard sheet sizes, "A4" to "A0".
const std::vector<std::string>& standardSheetSizes();

// Width and height of a standard size in the given orientation; false for
// a size that is not standard ("Custom").
bool standardSheet(const std::string& size, bool landscape, double& width, double& height);

// Sets the width and height from a standard size (a custom size keeps them).
void applySheetSize(Parameters& p);

// The paper left for chainages on one sheet, and the chainage length that
// fills it at the horizontal scale.
double graphWidth(const Parameters& p);
double sheetChainageLength(const Parameters& p);

// How many sheets a chainage range needs (at least 1).
int sheetCount(const Parameters& p, double start, double end);

}  // namespace korvane::longsection
