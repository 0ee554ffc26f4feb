#include "engine/model_string.h"

#include <cmath>

#include "base/codepage.h"

namespace korvane::engine {

double dimNumber(const StringHeader& h, const ModelPoint& p, int d) {
  if (d == 3 && h.dimension == 2) return h.level.value_or(kNullLevel);
  if (d < 1 || d > static_cast<int>(p.dims.size())) return 0;
  const DimValue& v = p.dims[static_cast<std::size_t>(d - 1)];
  return v.isText ? 0 : v.num;
}

std::string dimText(const ModelPoint& p, int d) {
  if (d < 1 || d > static_cast<int>(p.dims.size())) return {};
  const DimValue& v = p.dims[static_cast<std::size_t>(d - 1)];
  return v.isText ? v.txt : std::string();
}

std::vector<double> chainages(const ModelString& s) {
  std::vector<double> ch(s.points.size(), 0.0);
  if (s.header.dimension >= 6) {
    for (std::size_t i = 0; i < s.points.size(); ++i) ch[i] = dimNumber(s.header, s.points[i], 4);
    return ch;
  }
  double run = 0;
  for (std::size_t i = 1; i < s.points.size(); ++i) {
    const ModelPoint& a = s.points[i - 1];
    const ModelPoint& b = s.points[i];
    if (!a.gapAfter)
      run += std::hypot(dimNumber(s.header, b, 1) - dimNumber(s.header, a, 1),
                        dimNumber(s.header, b, 2) - dimNumber(s.header, a, 2));
    ch[i] = run;
  }
  return ch;
}

std::string normalLabel(std::string_view raw) {
  std::size_t end = raw.find_last_not_of(' ');
  return cp::upper(end == std::string_view::npos ? std::string_view() : raw.substr(0, end + 1));
}

std::string padded(std::string_view s, std::size_t width) {
  std::string r(s.substr(0, width));
  r.resize(width, ' ');
  return r;
}

}  // namespace korvane::engine
