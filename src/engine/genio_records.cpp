#include "engine/genio_records.h"

#include <algorithm>
#include <charconv>

#include "base/codepage.h"
#include "base/text.h"
#include "engine/engine_error.h"
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

Fields genioFields(std::string_view record) {
  if (record.size() <= 3 || record.find(',') != std::string_view::npos) return Fields(record);
  auto columns = [&](std::size_t from, std::size_t to) {  // 1-based, inclusive
    return from > record.size() ? std::string_view() : record.substr(from - 1, to - from + 1);
  };
  std::string comma = std::string(record.substr(0, 3)) + "," + std::string(columns(4, 7));
  if (record.substr(0, 3) == "003") {
    std::string_view list = columns(8, record.size());
    comma += ",4=";
    for (std::size_t at = list.find_first_not_of(' '); at != std::string_view::npos;) {
      std::size_t end = std::min(list.find(' ', at), list.size());
      comma += std::string(list.substr(at, end - at)) + ",";
      at = list.find_first_not_of(' ', end);
    }
    return Fields(comma);
  }
  comma += "," + std::string(columns(8, 11));
  if (!text::trim(columns(12, 15)).empty() || !text::trim(columns(72, record.size())).empty())
    throw EngineError(
        "a card in fixed columns has text outside its fields (columns 12-15 or "
        "after 71): no comma, so columns are read");
  static constexpr std::size_t kFrom[] = {16, 24, 34, 44, 52, 62, 72};
  comma += ",4=";
  for (std::size_t i = 0; i + 1 < std::size(kFrom); ++i)
    comma += std::string(i ? "," : "") + std::string(columns(kFrom[i], kFrom[i + 1] - 1));
  return Fields(comma);
}

FortranFormat parseFormatRecord(std::string_view record) {
  std::string_view rest = record.substr(3);
  while (!rest.empty() && (rest[0] == ',' || rest[0] == ' ')) rest.remove_prefix(1);
  if (!cp::startsWithIgnoreCase(rest, "FORMAT"))
    throw EngineError("001 must be followed by FORMAT(...)");
  rest.remove_prefix(6);
  while (!rest.empty() && rest[0] == ' ') rest.remove_prefix(1);
  if (rest.empty() || rest[0] != '(')
    throw EngineError("FORMAT must be followed by a parenthesised list");
  int depth = 0;
  std::size_t end = 0;
  for (; end < rest.size(); ++end) {
    if (rest[end] == '(') ++depth;
    if (rest[end] == ')' && --depth == 0) break;
  }
  if (end == rest.size()) throw EngineError("malformed FORMAT " + excerpt(rest) + ": missing ')'");
  std::string_view after = rest.substr(end + 1);
  if (after.find_first_not_of(", ") != std::string_view::npos)
    throw EngineError("text after the FORMAT list: '" + excerpt(text::trim(after)) + "'");
  return FortranFormat::parse(rest.substr(0, end + 1));
}

std::string formatRecord(const FortranFormat& f) { return "001FORMAT" + f.text(); }

GenioOrder parseOrderRecord(const Fields& f) {
  if (cp::upper(text::trim(f.raw(2))) != "ORDR") throw EngineError("003 needs ORDR in field 2");
  std::optional<long> per = f.integer(4);
  if (!per || *per < 1 || *per > 100)
    throw EngineError("003 ORDR needs the points per record (1 to 100) in field 4");
  std::vector<int> list;
  int last = f.last();
  while (last > 4 && !f.has(last)) --last;  // MX writes a trailing comma
  for (int n = 5; n <= last; ++n) {
    std::optional<long> d = f.integer(n);
    if (!d) throw EngineError("003 ORDR: field " + std::to_string(n) + " is empty");
    if (*d < 1 || *d > kMaxDimension)
      throw EngineError("003 ORDR: dimension " + std::to_string(*d) + " is outside 1 to " +
                        std::to_string(kMaxDimension));
    list.push_back(static_cast<int>(*d));
  }
  // The list names the dimensions of every point of a record: 4=2,1,2,3,1,2,3.
  const std::size_t k = static_cast<std::size_t>(*per);
  if (list.empty() || list.size() % k != 0)
    throw EngineError("003 ORDR: " + std::to_string(list.size()) + " dimensions do not make " +
                      std::to_string(k) + " equal points");
  GenioOrder o;
  o.perRecord = static_cast<int>(k);
  o.dims.assign(list.begin(), list.begin() + static_cast<long>(list.size() / k));
  for (std::size_t i = 0; i < list.size(); ++i)
    if (list[i] != o.dims[i % o.dims.size()])
      throw EngineError("003 ORDR: every point of a record must list the same dimensions");
  for (std::size_t i = 0; i < o.dims.size(); ++i)
    if (std::find(o.dims.begin(), o.dims.begin() + static_cast<long>(i), o.dims[i]) !=
        o.dims.begin() + static_cast<long>(i))
      throw EngineError("003 ORDR lists dimension " + std::to_string(o.dims[i]) +
                        " twice for a point");
  if (std::find(o.dims.begin(), o.dims.end(), 1) == o.dims.end() ||
      std::find(o.dims.begin(), o.dims.end(), 2) == o.dims.end())
    throw EngineError("003 ORDR must list dimensions 1 and 2 (x and y)");
  return o;
}

HeaderRecord parseHeaderRecord(const Fields& f, int defaultDimension) {
  HeaderRecord h;
  h.header.label = normalLabel(f.raw(2));
  h.header.subref = normalLabel(f.raw(3));
  if (h.header.label.empty()) throw EngineError("080 needs a string label in field 2");
  if (h.header.label.size() > kLabelWidth || h.header.subref.size() > kLabelWidth)
    throw EngineError("080: labels have at most 4 characters");
  std::optional<double> level = f.number(4), shiftX = f.number(5), shiftY = f.number(6);
  h.endX = f.number(8).value_or(0);
  h.endY = f.number(9).value_or(0);
  h.shiftX = shiftX.value_or(0);
  h.shiftY = shiftY.value_or(0);
  std::optional<long> dim = f.integer(7);
  long d = dim ? (*dim >= 100 ? *dim % 100 : *dim) : defaultDimension;
  if (d < kMinDimension || d > kMaxDimension)
    throw EngineError("080: string dimension " + std::to_string(d) + " is not supported (2 to " +
                      std::to_string(kMaxDimension) + ")");
  h.header.dimension = static_cast<int>(d);
  if (d == 2) h.header.level = level;
  for (int n = 10; n <= f.last(); ++n) {
    std::optional<long> gap = f.integer(n);
    if (!gap) continue;
    if (*gap < 1)
      throw EngineError("080: a break after point " + std::to_string(*gap) + " is impossible");
    h.gaps.push_back(static_cast<int>(*gap));
  }
  return h;
}

std::string shortNumber(double v) {
  char buf[64];
  auto r = std::to_chars(buf, buf + sizeof buf, v);
  return std::string(buf, r.ptr);
}

double endValueFor(const ModelString& s) {
  auto at = [&](double v) {
    return std::any_of(s.points.begin(), s.points.end(), [&](const ModelPoint& p) {
      return dimNumber(s.header, p, 1) == v && dimNumber(s.header, p, 2) == v;
    });
  };
  double end = 0;
  while (at(end)) --end;
  return end;
}

std::string headerRecord(const ModelString& s, double end) {
  const StringHeader& h = s.header;
  std::string r = "080," + padded(h.label, kLabelWidth) + "," + padded(h.subref, kLabelWidth) + ",";
  if (h.dimension == 2 && h.level)
    r += "4=" + shortNumber(*h.level) + ",0.0,0.0,";
  else
    r += "5=       0.0,       0.0,";
  r += std::to_string(h.dimension);
  if (end != 0) r += "," + shortNumber(end) + "," + shortNumber(end);
  bool first = true;
  for (std::size_t i = 0; i + 1 < s.points.size(); ++i) {
    if (!s.points[i].gapAfter) continue;
    r += (first ? ",10=" : ",") + std::to_string(i + 1);
    first = false;
  }
  return r;
}

}  // namespace korvane::engine
