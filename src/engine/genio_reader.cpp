#include "engine/genio_reader.h"

#include <algorithm>

#include "engine/engine_limits.h"

namespace korvane::engine {

bool PointListReader::start(const FortranFormat& format, const GenioOrder& order,
                            HeaderRecord header, std::string& error) {
  header_ = std::move(header);
  order_ = order;
  group_.clear();
  points_.clear();
  recordsRead_ = 0;
  if (!format.layout(order.perRecord * order.itemsPerPoint(), layout_, error)) return false;
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
      if (!isNumericEdit(s.edit)) {
        error = "FORMAT " + format.text() + " reads x or y with an A descriptor";
        return false;
      }
    }
  return true;
}

std::string_view PointListReader::field(int item) const {
  const FieldSlot& s = layout_.slots[static_cast<std::size_t>(item)];
  std::string_view line = group_[static_cast<std::size_t>(s.record)];
  auto col = static_cast<std::size_t>(s.column);
  return col < line.size() ? line.substr(col, static_cast<std::size_t>(s.width))
                           : std::string_view();
}

bool PointListReader::number(int item, double& out, std::string& error) const {
  const FieldSlot& slot = layout_.slots[static_cast<std::size_t>(item)];
  std::string_view text = field(item);
  if (readNumberField(text, slot, out, error)) return true;
  std::string padded(text);  // quoted with the blanks the record left out
  padded.resize(static_cast<std::size_t>(slot.width), ' ');
  readNumberField(padded, slot, out, error);
  return false;
}

PointListReader::Step PointListReader::feed(std::string_view line, std::string& error) {
  if (group_.empty() && line.find_first_not_of(' ') == std::string_view::npos) {
    error = "empty data record in the points of string " + label() +
            " (a string ends with a point whose x and y are 0)";
    return Step::Error;
  }
  int record = static_cast<int>(group_.size());
  auto length = static_cast<std::size_t>(layout_.lengths[static_cast<std::size_t>(record)]);
  if (line.size() > length && line.find_first_not_of(' ', length) != std::string_view::npos) {
    error = "data record longer than its FORMAT allows (" + std::to_string(length) +
            " columns): '" + excerpt(line.substr(length)) + "' after column " +
            std::to_string(length);
    return Step::Error;
  }
  group_.emplace_back(line);
  ++recordsRead_;
  if (static_cast<int>(group_.size()) < layout_.records()) return Step::More;
  Step s = decode(true, error);
  group_.clear();
  return s;
}

PointListReader::Step PointListReader::decode(bool complete, std::string& error) {
  const int per = order_.itemsPerPoint();
  const int available = static_cast<int>(group_.size());
  const int dimension = header_.header.dimension;
  auto inReach = [&](int item) {
    return layout_.slots[static_cast<std::size_t>(item)].record < available;
  };
  for (int p = 0; p < order_.perRecord; ++p) {
    int base = p * per;
    if (!complete && (!inReach(base + xItem_) || !inReach(base + yItem_))) return Step::More;
    double x = 0, y = 0;
    if (!number(base + xItem_, x, error) || !number(base + yItem_, y, error)) return Step::Error;
    if (x == 0 && y == 0) return Step::Done;
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
        double num = 0;
        if (!number(base + i, num, error)) return Step::Error;
        v = DimValue::number(num);
      }
      if (d <= dimension) pt.dims[static_cast<std::size_t>(d - 1)] = v;
    }
    points_.push_back(std::move(pt));
  }
  return Step::More;
}

bool PointListReader::endEarly(std::string& error) {
  if (!group_.empty() && decode(false, error) == Step::Done) return true;
  if (error.empty())
    error = "the points of string " + label() +
            " have no terminator (a point whose x and y are 0) before this record";
  return false;
}

bool PointListReader::finish(ModelString& out, std::string& error) {
  if (points_.empty()) {
    error = "string " + label() + " has no points";
    return false;
  }
  for (int g : header_.gaps) {
    if (g >= static_cast<int>(points_.size())) {
      error = "080 of string " + label() + " breaks it after point " + std::to_string(g) +
              ", but it has " + std::to_string(points_.size()) + " points";
      return false;
    }
    points_[static_cast<std::size_t>(g - 1)].gapAfter = true;
  }
  out.header = header_.header;
  out.points = std::move(points_);
  points_.clear();
  return true;
}

}  // namespace korvane::engine
