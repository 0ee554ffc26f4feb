#include "engine/edit_options.h"

namespace korvane::engine {

bool keepPoints(std::vector<ModelPoint>& points, std::optional<long> last,
                std::optional<long> first, std::string& error) {
  const long count = static_cast<long>(points.size());
  if (!last && !first) {
    error = "005 needs the last point to keep in field 6 or the first in field 9";
    return false;
  }
  long from = first.value_or(1), to = last.value_or(count);
  if (from < 1 || to < 1) {
    error = "005: point numbers start at 1";
    return false;
  }
  if (to > count) to = count;
  if (from > to) {
    error = "005 would leave no point of the string's " + std::to_string(count) + " (keep " +
            std::to_string(from) + " to " + std::to_string(to) + "); delete the string with 031";
    return false;
  }
  points.erase(points.begin() + to, points.end());
  points.erase(points.begin(), points.begin() + (from - 1));
  points.back().gapAfter = false;  // nothing follows the last point
  return true;
}

bool cutBetween(std::vector<ModelPoint>& points, long a, long b, std::string& error) {
  const long count = static_cast<long>(points.size());
  if (a < 1 || b <= a || b > count) {
    error = "006 needs points 1 <= a < b <= " + std::to_string(count) + " in fields 6 and 9 (got " +
            std::to_string(a) + " and " + std::to_string(b) + ")";
    return false;
  }
  points.erase(points.begin() + a, points.begin() + (b - 1));
  points[static_cast<std::size_t>(a - 1)].gapAfter = true;
  return true;
}

}  // namespace korvane::engine
