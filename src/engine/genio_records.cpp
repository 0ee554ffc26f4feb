#include "engine/genio_records.h"

#include <algorithm>
#include <charconv>

#include "base/codepage.h"
#include "base/text.h"
#include "engine/engine_limits.h"

namespace korvane::engine {

int GenioOrder::highestDimension() const {
  return dims.empty() ? 0 : *std::max_element(dims.begin(), dims.end());
}

std::string GenioOrder::record() const {
  std::string r = "003,ORDR,4=" + std::to_string(perRecord);
  for (int p = 0; p < perRecord; ++p)
    for (int d : dims) r += "," + std::to_string(d);
  return r;
}

GenioOrder GenioOrder::natural(int dimension) {
  GenioOrder o;
  o.dims.clear();
  for (int d = 1; d <= dimension; ++d) o.dims.push_back(d);
  return o;
}

bool parseFormatRecord(std::string_view record, FortranFormat& out, std::string& error) {
  std::string_view rest = record.substr(3);
  while (!rest.empty() && (rest[0] == ',' || rest[0] == ' ')) rest.remove_prefix(1);
  if (!cp::startsWithIgnoreCase(rest, "FORMAT")) {
    error = "001 must be followed by FORMAT(...)";
    return false;
  }
  rest.remove_prefix(6);
  while (!rest.empty() && rest[0] == ' ') rest.remove_prefix(1);
  if (rest.empty() || rest[0] != '(') {
    error = "FORMAT must be followed by a parenthesised list";
    return false;
  }
  int depth = 0;
  std::size_t end = 0;
  for (; end < rest.size(); ++end) {
    if (rest[end] == '(') ++depth;
    if (rest[end] == ')' && --depth == 0) break;
  }
  if (end == rest.size()) {
    error = "malformed FORMAT " + excerpt(rest) + ": missing ')'";
    return false;
  }
  std::string_view after = rest.substr(end + 1);
  if (after.find_first_not_of(", ") != std::string_view::npos) {
    error = "text after the FORMAT list: '" + excerpt(text::trim(after)) + "'";
    return false;
  }
  auto f = FortranFormat::parse(rest.substr(0, end + 1), error);
  if (!f) return false;
  out = *f;
  return true;
}

std::string formatRecord(const FortranFormat& f) { return "001FORMAT" + f.text(); }

bool parseOrderRecord(const Fields& f, GenioOrder& out, std::string& error) {
  if (cp::upper(text::trim(f.raw(2))) != "ORDR") {
    error = "003 needs ORDR in field 2";
    return false;
  }
  std::optional<long> per;
  if (!f.integer(4, per, error)) return false;
  if (!per || *per < 1 || *per > 100) {
    error = "003 ORDR needs the points per record (1 to 100) in field 4";
    return false;
  }
  std::vector<int> list;
  int last = f.last();
  while (last > 4 && !f.has(last)) --last;  // MX writes a trailing comma
  for (int n = 5; n <= last; ++n) {
    std::optional<long> d;
    if (!f.integer(n, d, error)) return false;
    if (!d) {
      error = "003 ORDR: field " + std::to_string(n) + " is empty";
      return false;
    }
    if (*d < 1 || *d > kMaxDimension) {
      error = "003 ORDR: dimension " + std::to_string(*d) + " is outside 1 to " +
              std::to_string(kMaxDimension);
      return false;
    }
    list.push_back(static_cast<int>(*d));
  }
  // The list names the dimensions of every point of a record: 4=2,1,2,3,1,2,3.
  const std::size_t k = static_cast<std::size_t>(*per);
  if (list.empty() || list.size() % k != 0) {
    error = "003 ORDR: " + std::to_string(list.size()) + " dimensions do not make " +
            std::to_string(k) + " equal points";
    return false;
  }
  GenioOrder o;
  o.perRecord = static_cast<int>(k);
  o.dims.assign(list.begin(), list.begin() + static_cast<long>(list.size() / k));
  for (std::size_t i = 0; i < list.size(); ++i)
    if (list[i] != o.dims[i % o.dims.size()]) {
      error = "003 ORDR: every point of a record must list the same dimensions";
      return false;
    }
  for (std::size_t i = 0; i < o.dims.size(); ++i)
    if (std::find(o.dims.begin(), o.dims.begin() + static_cast<long>(i), o.dims[i]) !=
        o.dims.begin() + static_cast<long>(i)) {
      error = "003 ORDR lists dimension " + std::to_string(o.dims[i]) + " twice for a point";
      return false;
    }
  if (std::find(o.dims.begin(), o.dims.end(), 1) == o.dims.end() ||
      std::find(o.dims.begin(), o.dims.end(), 2) == o.dims.end()) {
    error = "003 ORDR must list dimensions 1 and 2 (x and y)";
    return false;
  }
  out = o;
  return true;
}

bool parseHeaderRecord(const Fields& f, int defaultDimension, HeaderRecord& out,
                       std::string& error) {
  HeaderRecord h;
  h.header.label = normalLabel(f.raw(2));
  h.header.subref = normalLabel(f.raw(3));
  if (h.header.label.empty()) {
    error = "080 needs a string label in field 2";
    return false;
  }
  if (h.header.label.size() > kLabelWidth || h.header.subref.size() > kLabelWidth) {
    error = "080: labels have at most 4 characters";
    return false;
  }
  std::optional<double> level, shiftX, shiftY, unused;
  if (!f.number(4, level, error) || !f.number(5, shiftX, error) || !f.number(6, shiftY, error) ||
      !f.number(8, unused, error) || !f.number(9, unused, error))
    return false;
  if (shiftX.value_or(0) != 0 || shiftY.value_or(0) != 0) {
    error = "080: an origin shift in fields 5 and 6 is not supported (write 0.0)";
    return false;
  }
  std::optional<long> dim;
  if (!f.integer(7, dim, error)) return false;
  long d = dim ? (*dim >= 100 ? *dim % 100 : *dim) : defaultDimension;
  if (d < kMinDimension || d > kMaxDimension) {
    error = "080: string dimension " + std::to_string(d) + " is not supported (2 to " +
            std::to_string(kMaxDimension) + ")";
    return false;
  }
  h.header.dimension = static_cast<int>(d);
  if (d == 2) h.header.level = level;
  for (int n = 10; n <= f.last(); ++n) {
    std::optional<long> gap;
    if (!f.integer(n, gap, error)) return false;
    if (!gap) continue;
    if (*gap < 1) {
      error = "080: a break after point " + std::to_string(*gap) + " is impossible";
      return false;
    }
    h.gaps.push_back(static_cast<int>(*gap));
  }
  out = std::move(h);
  return true;
}

std::string shortNumber(double v) {
  char buf[64];
  auto r = std::to_chars(buf, buf + sizeof buf, v);
  return std::string(buf, r.ptr);
}

std::string headerRecord(const ModelString& s) {
  const StringHeader& h = s.header;
  std::string r = "080," + padded(h.label, kLabelWidth) + "," + padded(h.subref, kLabelWidth) + ",";
  if (h.dimension == 2 && h.level)
    r += "4=" + shortNumber(*h.level) + ",0.0,0.0,";
  else
    r += "5=       0.0,       0.0,";
  r += std::to_string(h.dimension);
  bool first = true;
  for (std::size_t i = 0; i + 1 < s.points.size(); ++i) {
    if (!s.points[i].gapAfter) continue;
    r += (first ? ",10=" : ",") + std::to_string(i + 1);
    first = false;
  }
  return r;
}

}  // namespace korvane::engine
