#include "engine/genio_writer.h"

namespace korvane::engine {
namespace {

bool dimensionIsText(const ModelString& s, int d) {
  for (const ModelPoint& p : s.points)
    if (d <= static_cast<int>(p.dims.size()) && p.dims[static_cast<std::size_t>(d - 1)].isText)
      return true;
  return false;
}

// The value of dimension d of a point as an output item.
DimValue item(const StringHeader& h, const ModelPoint& p, int d) {
  if (d == 3 && h.dimension == 2) return DimValue::number(dimNumber(h, p, 3));
  if (d > static_cast<int>(p.dims.size())) return DimValue::number(0);
  return p.dims[static_cast<std::size_t>(d - 1)];
}

}  // namespace

FortranFormat naturalFormat(const ModelString& s, const WriteLayout& layout) {
  const std::string number = std::string(1, layout.exponent) + "23.17";
  std::string descriptors;
  int numbers = 0, texts = 0;
  auto close = [&] {
    if (!descriptors.empty()) descriptors += '/';
    if (numbers > 0) descriptors += (numbers > 1 ? std::to_string(numbers) : "") + number;
    if (texts > 0)
      descriptors +=
          std::string(numbers > 0 ? "," : "") + (texts > 1 ? std::to_string(texts) : "") + "A4";
    numbers = texts = 0;
  };
  for (int d = 1; d <= s.header.dimension; ++d) {
    if (dimensionIsText(s, d)) {
      ++texts;
      continue;
    }
    if (numbers == 3 || texts > 0) close();
    ++numbers;
  }
  close();
  if (layout.revertingSixD && descriptors == "3" + number + "/3" + number)
    descriptors = "3" + number;
  return FortranFormat::parse("(" + descriptors + ")");
}

GenioWriter::GenioWriter(LineSink sink, std::optional<FortranFormat> format,
                         std::optional<GenioOrder> order, WriteLayout layout)
    : sink_(std::move(sink)),
      format_(std::move(format)),
      order_(std::move(order)),
      layout_(layout) {}

void GenioWriter::banner(const std::string& text) { sink_("   " + text); }

void GenioWriter::end() {
  if (!lastPair_) {  // nothing selected: still say how the data would be laid out
    sink_(formatRecord(format_.value_or(FortranFormat::mxDefault())));
    sink_(order_.value_or(GenioOrder()).record());
  }
  sink_("999");
}

void GenioWriter::write(const ModelString& s) {
  FortranFormat format = format_  ? *format_
                         : order_ ? FortranFormat::mxDefault()
                                  : naturalFormat(s, layout_);
  GenioOrder order = order_ ? *order_ : GenioOrder::natural(s.header.dimension);
  const RecordLayout layout = format.layout(order.perRecord * order.itemsPerPoint());
  std::string pair = formatRecord(format) + "\n" + order.record();
  if (pair != lastPair_) {
    sink_(formatRecord(format));
    sink_(order.record());
    lastPair_ = pair;
  }
  const double end = endValueFor(s);
  sink_(headerRecord(s, end));

  std::vector<DimValue> items;
  auto flush = [&] {
    emit(items, layout);
    items.clear();
  };
  for (const ModelPoint& p : s.points) {
    for (int d : order.dims) items.push_back(item(s.header, p, d));
    if (static_cast<int>(items.size()) == order.perRecord * order.itemsPerPoint()) flush();
  }
  // Terminator: x and y the end value, the last level repeated; then zero points to fill the
  // record.
  double lastZ = s.points.empty() ? 0 : dimNumber(s.header, s.points.back(), 3);
  for (int d : order.dims) items.push_back(DimValue::number(d == 3 ? lastZ : d <= 2 ? end : 0));
  while (static_cast<int>(items.size()) < order.perRecord * order.itemsPerPoint())
    items.push_back(DimValue::number(0));
  flush();
}

void GenioWriter::write(const KeptBlock& kept) {
  for (std::size_t i = 0; i < kept.lines.size(); ++i)
    if (i > 0 || kept.lines[0] != lastFormat_) sink_(kept.lines[i]);
  lastFormat_ = kept.lines.empty() ? std::string() : kept.lines[0];
  lastPair_ = std::string();  // a string after it writes its FORMAT and ORDR again
}

void GenioWriter::emit(const std::vector<DimValue>& items, const RecordLayout& layout) {
  std::vector<std::string> records;
  for (int len : layout.lengths) records.emplace_back(static_cast<std::size_t>(len), ' ');
  for (std::size_t i = 0; i < items.size() && i < layout.slots.size(); ++i) {
    const FieldSlot& slot = layout.slots[i];
    const DimValue& v = items[i];
    std::string text;
    if (isNumericEdit(slot.edit))
      text = writeNumberField(v.isText ? 0 : v.num, slot);
    else
      text = v.isText ? writeTextField(v.txt, slot.width) : std::string(slot.width, ' ');
    records[static_cast<std::size_t>(slot.record)].replace(static_cast<std::size_t>(slot.column),
                                                           text.size(), text);
  }
  for (const std::string& r : records) sink_(r);
}

}  // namespace korvane::engine
