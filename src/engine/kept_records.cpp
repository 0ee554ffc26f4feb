#include "engine/kept_records.h"

#include "engine/engine_error.h"
#include "engine/genio_records.h"

namespace korvane::engine {

KeptRecords::KeptRecords(const FortranFormat& format, std::string header, KeptBlock::Kind kind,
                         std::string label, std::optional<long> count, double endX, double endY)
    : label_(std::move(label)), count_(count), endX_(endX), endY_(endY) {
  block_.kind = kind;
  block_.lines = {formatRecord(format), std::move(header)};
  const RecordLayout pass = format.layout(format.itemsPerPass());
  recordsPerRead_ = pass.records();
  for (const FieldSlot& s : pass.slots)
    if (s.record == 0 && isNumericEdit(s.edit) && xy_.size() < 2) xy_.push_back(s);
  if (!count_ && xy_.size() < 2)
    throw EngineError("FORMAT " + format.text() +
                      " reads no x and y in the first record of the "
                      "text string " +
                      label_);
}

double KeptRecords::number(std::string_view line, const FieldSlot& slot) const {
  auto col = static_cast<std::size_t>(slot.column);
  std::string field(col < line.size() ? line.substr(col, static_cast<std::size_t>(slot.width))
                                      : std::string_view());
  field.resize(static_cast<std::size_t>(slot.width), ' ');
  if (std::optional<double> v = readNumberField(field, slot)) return *v;
  throw EngineError(label_ + ": " + notANumber(field, slot));
}

DataRecords::Step KeptRecords::feed(std::string_view line) {
  block_.lines.emplace_back(line);
  if (!count_ && inGroup_ == 0) {
    const bool wasEnded = ending_;
    ending_ = number(line, xy_[0]) == endX_ && number(line, xy_[1]) == endY_;
    if (wasEnded && !ending_)
      throw EngineError("a data record after the end of the text string " + label_);
  }
  if (++inGroup_ < recordsPerRead_) return Step::More;
  inGroup_ = 0;
  if (count_) return ++reads_ == *count_ ? Step::Done : Step::More;
  if (!ending_) ++reads_;
  // The text string goes on to the next record: a writer may repeat its end.
  return Step::More;
}

void KeptRecords::endEarly() {
  if (!count_ && ending_) return;  // the companion records of the end may be left out
  if (count_)
    throw EngineError("090 of " + label_ + " announces " + std::to_string(*count_) +
                      " triangles, " + std::to_string(reads_) + " are read before this record");
  throw EngineError("the text string " + label_ + " has no end (a point whose x and y are " +
                    shortNumber(endX_) + " and " + shortNumber(endY_) + ") before this record");
}

std::string KeptRecords::store(ModelStore& store, std::int64_t modelId) {
  block_.items = reads_;
  store.keep(modelId, block_);
  if (block_.kind == KeptBlock::Kind::Triangles)
    return "triangles " + label_ + ": " + std::to_string(reads_) + " kept as written";
  return "text string " + label_ + ": " + std::to_string(reads_) + " points kept as written";
}

}  // namespace korvane::engine
