#include "engine/cross_sections.h"

#include <algorithm>
#include <cmath>

#include "engine/engine_error.h"

namespace korvane::engine {
namespace {

struct Xy {
  double x = 0, y = 0;
};

Xy plan(const ModelString& s, std::size_t i) {
  return {dimNumber(s.header, s.points[i], 1), dimNumber(s.header, s.points[i], 2)};
}

struct Station {
  Xy at;
  Xy left;  // unit normal to the left of the master's direction
};

// Where each station lies on the master, and which way is left there.
std::vector<Station> stations(const ModelString& master, double interval) {
  std::vector<Station> out;
  const std::vector<double> ch = chainages(master);
  const std::size_t n = master.points.size();
  if (n < 2) return out;
  std::size_t seg = 0;
  const double first = ch.front(), last = ch.back();
  for (long k = 0;; ++k) {
    const double c = first + static_cast<double>(k) * interval;
    if (c > last + 1e-9) break;
    // The segment that holds chainage c; the last one takes its end point.
    while (seg + 2 < n && (master.points[seg].gapAfter || ch[seg + 1] < c)) ++seg;
    if (master.points[seg].gapAfter || ch[seg + 1] < c - 1e-9) continue;
    const Xy a = plan(master, seg), b = plan(master, seg + 1);
    const double len = std::hypot(b.x - a.x, b.y - a.y);
    if (len == 0) continue;
    const double span = ch[seg + 1] - ch[seg];
    const double t = span > 0 ? (c - ch[seg]) / span : 0;
    const Xy dir{(b.x - a.x) / len, (b.y - a.y) / len};
    out.push_back({{a.x + t * (b.x - a.x), a.y + t * (b.y - a.y)}, {-dir.y, dir.x}});
  }
  return out;
}

struct Hit {
  double position;
  ModelPoint point;
};

// Rounding at the ends of a segment: a section through a point of a string
// is found on both segments that meet there, and kept once.
constexpr double kEndTolerance = 1e-9;

// The crossings of the section from `from` to `to` with one string's segments.
void crossings(const ModelString& s, Xy from, Xy to, double length, std::vector<Hit>& hits) {
  const Xy d{to.x - from.x, to.y - from.y};
  const std::size_t n = s.points.size();
  for (std::size_t i = 0; i + 1 < n; ++i) {
    if (s.points[i].gapAfter) continue;
    const Xy a = plan(s, i), b = plan(s, i + 1);
    const Xy e{b.x - a.x, b.y - a.y};
    const double den = d.x * e.y - d.y * e.x;
    if (std::abs(den) < 1e-12 * (std::hypot(d.x, d.y) * std::hypot(e.x, e.y))) continue;
    const Xy w{a.x - from.x, a.y - from.y};
    double u = (w.x * e.y - w.y * e.x) / den;  // along the section
    double v = (w.x * d.y - w.y * d.x) / den;  // along the segment
    const double t = kEndTolerance;
    if (u < -t || u > 1 + t || v < -t || v > 1 + t) continue;
    u = std::clamp(u, 0.0, 1.0);
    v = std::clamp(v, 0.0, 1.0);
    const double za = dimNumber(s.header, s.points[i], 3),
                 zb = dimNumber(s.header, s.points[i + 1], 3);
    ModelPoint p;
    p.dims = {DimValue::number(from.x + u * d.x), DimValue::number(from.y + u * d.y),
              DimValue::number(za + v * (zb - za)), DimValue::number(u * length),
              DimValue::text(s.header.label)};
    hits.push_back({u * length, std::move(p)});
  }
}

bool validPrefix(const std::string& p) {
  if (p.empty() || p.size() > 3) return false;
  for (char c : p)
    if (!((c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z'))) return false;
  return true;
}

}  // namespace

std::vector<ModelString> crossSections(const ModelString& master,
                                       const std::vector<ModelString>& strings,
                                       const SectionRequest& request) {
  if (!(request.interval > 0) || !(request.halfWidth > 0))
    throw EngineError("the interval and the width of sections must be greater than 0");
  if (!validPrefix(request.prefix))
    throw EngineError("the label prefix of sections is 1 to 3 characters of 0-9 and A-Z");
  if (master.points.size() < 2)
    throw EngineError("the master string " + master.header.label + " has fewer than 2 points");
  std::vector<ModelString> out;
  const std::vector<Station> at = stations(master, request.interval);
  const std::size_t digits = 4 - request.prefix.size();
  std::size_t limit = 1;  // the largest running number the digits hold
  for (std::size_t i = 0; i < digits; ++i) limit *= 10;
  limit = std::min(kMaxSections, limit - 1);
  for (const Station& s : at) {
    const Xy from{s.at.x + request.halfWidth * s.left.x, s.at.y + request.halfWidth * s.left.y};
    const Xy to{s.at.x - request.halfWidth * s.left.x, s.at.y - request.halfWidth * s.left.y};
    std::vector<Hit> hits;
    for (const ModelString& str : strings) crossings(str, from, to, 2 * request.halfWidth, hits);
    if (hits.empty()) continue;
    if (out.size() == limit)
      throw EngineError("more than " + std::to_string(limit) + " sections with the prefix " +
                        request.prefix + ": make the interval longer");
    // Ordered along the section, equal positions in the order found: an
    // insertion sort, since a section crosses few strings, needs no buffer.
    for (std::size_t i = 1; i < hits.size(); ++i)
      for (std::size_t j = i; j > 0 && hits[j].position < hits[j - 1].position; --j)
        std::swap(hits[j], hits[j - 1]);
    ModelString section;
    const Hit* kept = nullptr;
    std::string number = std::to_string(out.size() + 1);
    section.header.label = request.prefix + std::string(digits - number.size(), '0') + number;
    section.header.dimension = 5;
    for (const Hit& h : hits) {
      const bool same = kept && kept->point.dims[4] == h.point.dims[4] &&
                        h.position - kept->position <= kEndTolerance * 2 * request.halfWidth;
      if (!same) section.points.push_back(h.point);
      kept = &h;
    }
    out.push_back(std::move(section));
  }
  return out;
}

}  // namespace korvane::engine
