#include "longsection/parameters.h"

#include <algorithm>
#include <cmath>

namespace korvane::longsection {

namespace {
struct Size {
  const char* name;
  double shortSide, longSide;
};
constexpr Size kSizes[] = {
    {"A4", 210, 297}, {"A3", 297, 420}, {"A2", 420, 594}, {"A1", 594, 841}, {"A0", 841, 1189}};
}  // namespace

const std::vector<std::string>& standardSheetSizes() {
  static const std::vector<std::string> names = {"A4", "A3", "A2", "A1", "A0"};
  return names;
}

bool standardSheet(const std::string& size, bool landscape, double& width, double& height) {
  for (const Size& s : kSizes) {
    if (size != s.name) continue;
    width = landscape ? s.longSide : s.shortSide;
    height = landscape ? s.shortSide : s.longSide;
    return true;
  }
  return false;
}

void applySheetSize(Parameters& p) {
  standardSheet(p.sheetSize, p.landscape, p.sheetWidth, p.sheetHeight);
}

double graphWidth(const Parameters& p) {
  return p.sheetWidth - p.marginLeft - p.marginRight - p.bandTitleWidth;
}

double sheetChainageLength(const Parameters& p) { return graphWidth(p) * p.horizontalScale / 1000; }

int sheetCount(const Parameters& p, double start, double end) {
  const double length = sheetChainageLength(p);
  if (length <= 0 || end <= start) return 1;
  // The macro works the count out the same way: whole sheets, and one more
  // when a piece of the range is left over.
  const double whole = std::floor((end - start) / length);
  int n = static_cast<int>(std::min(whole, 1e6));
  if (start + n * length < end - 1e-6) ++n;
  return std::max(n, 1);
}

}  // namespace korvane::longsection
