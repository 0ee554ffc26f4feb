#include "engine/genio_reader.h"

#include <algorithm>

#include "engine/engine_error.h"
#include "engine/engine_limits.h"

namespace korvane::engine {

PointListReader::PointListReader(const FortranFormat& format, const GenioOrder& order,
                                 HeaderRecord header)
    : header_(std::move(header)),
      order_(order),
      layout_(format.layout(order.perRecord * order.itemsPerPoint())) {
  auto at = [&](int d) {
    return static_cast<int>(std::find(order.dims.begin(), order.dims.end(), d) -
                            order.dims.begin());
  };
  xItem_ = at(1);
  yItem_ = at(2);
  for (int p = 0; p < order.perRecord; ++p)
    for (int item : {xItem_, yItem_}) {
      const FieldSlot& s =
          layout_.slots[static_cast<std::size_t>(p * order.itemsPerPoint() + item)];
      if (!isNumericEdit(s.edit))
        throw EngineError("FORMAT " + format.text() + " reads x or y with an A descriptor");
    }
}

std::string PointListReader::endPoint() const {
  const HeaderRecord& h = header_;
  if (h.endX == 0 && h.endY == 0) return "a point whose x and y are 0";
  return "a point whose x and y are " + shortNumber(h.endX) + " and " + shortNumber(h.endY);
}

std::string_view PointListReader::field(int item) const {
  const FieldSlot& s = layout_.slots[static_cast<std::size_t>(item)];
  std::string_view line = group_[static_cast<std::size_t>(s.record)];
  auto col = static_cast<std::size_t>(s.column);
  return col < line.size() ? line.substr(col, static_cast<std::size_t>(s.width))
                           : std::string_view();
}

double PointListReader::number(int item) const {
  const FieldSlot& slot = layout_.slots[static_cast<std::size_t>(item)];
  std::string_view text = field(item);
  if (std::optional<double> v = readNumberField(text, slot)) return *v;
  std::string padded(text);  // quoted with the blanks the record left out
  padded.resize(static_cast<std::size_t>(slot.width), ' ');
  throw EngineError(notANumber(padded, slot));
}

PointListReader::Step PointListReader::feed(std::string_view line) {
  try {
    return read(line);
  } catch (const EngineError& e) {
    throw EngineError("string " + label() + ": " + e.what());
  }
}

PointListReader::Step PointListReader::read(std::string_view line) {
  if (group_.empty() && line.find_first_not_of(' ') == std::string_view::npos)
    throw EngineError("empty data record in the points of string " + label() +
                      " (a string ends with " + endPoint() + ")");
  int record = static_cast<int>(group_.size());
  auto length = static_cast<std::size_t>(layout_.widths[static_cast<std::size_t>(record)]);
  if (line.size() > length && line.find_first_not_of(' ', length) != std::string_view::npos)
    throw EngineError("data record longer than its FORMAT allows (" + std::to_string(length) +
                      " columns): '" + excerpt(line.substr(length)) + "' after column " +
                      std::to_string(length));
  group_.emplace_back(line);
  ++recordsRead_;
  if (static_cast<int>(group_.size()) < layout_.records()) return Step::More;
  Step s = decode(true);
  group_.clear();
  return s;
}

PointListReader::Step PointListReader::decode(bool complete) {
  const int per = order_.itemsPerPoint();
  const int available = static_cast<int>(group_.size());
  const int dimension = header_.header.dimension;
  auto inReach = [&](int item) {
    return layout_.slots[static_cast<std::size_t>(item)].record < available;
  };
  for (int p = 0; p < order_.perRecord; ++p) {
    int base = p * per;
    if (!complete && (!inReach(base + xItem_) || !inReach(base + yItem_))) return Step::More;
    const double x = number(base + xItem_), y = number(base + yItem_);
    if (x == header_.endX && y == header_.endY) return Step::Done;
    if (!complete) return Step::More;
    ModelPoint pt;
    pt.dims.assign(static_cast<std::size_t>(dimension), DimValue::number(0));
    for (int i = 0; i < per; ++i) {
      int d = order_.dims[static_cast<std::size_t>(i)];
      const FieldSlot& slot = layout_.slots[static_cast<std::size_t>(base + i)];
      DimValue v;
      if (slot.edit == Edit::A) {
        std::string text(field(base + i));
        text.resize(static_cast<std::size_t>(slot.width), ' ');
        v = DimValue::text(readTextField(text));
      } else {
        const double shift = d == 1 ? header_.shiftX : d == 2 ? header_.shiftY : 0;
        v = DimValue::number(number(base + i) + shift);
      }
      if (d <= dimension) pt.dims[static_cast<std::size_t>(d - 1)] = v;
    }
    points_.push_back(std::move(pt));
  }
  return Step::More;
}

void PointListReader::endEarly() {
  if (!group_.empty() && decode(false) == Step::Done) return;
  throw EngineError("the points of string " + label() + " have no terminator (" + endPoint() +
                    ") before this record");
}

std::string PointListReader::store(ModelStore& store, std::int64_t modelId) {
  ModelString s = finish();
  store.saveString(modelId, s);
  return "string " + s.header.label + ": " + std::to_string(s.points.size()) +
         " points of dimension " + std::to_string(s.header.dimension) + " stored";
}

ModelString PointListReader::finish() {
  if (points_.empty()) throw EngineError("string " + label() + " has no points");
  for (int g : header_.gaps) {
    if (g >= static_cast<int>(points_.size()))
      throw EngineError("080 of string " + label() + " breaks it after point " + std::to_string(g) +
                        ", but it has " + std::to_string(points_.size()) + " points");
    points_[static_cast<std::size_t>(g - 1)].gapAfter = true;
  }
  ModelString out{header_.header, std::move(points_)};
  points_.clear();
  return out;
}

}  // namespace korvane::engine
