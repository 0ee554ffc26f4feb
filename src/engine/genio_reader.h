// Reading the point list of one GENIO string: data records laid out by the
// current FORMAT, split into points by the current ORDR, up to the terminator
// (the first point whose x and y equal the end values of the string's 080,
// both 0 unless it declares others).
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "engine/fortran_format.h"
#include "engine/genio_records.h"
#include "engine/model_store.h"
#include "engine/model_string.h"

namespace korvane::engine {

// The data records that follow a header record, read one at a time.
class DataRecords {
 public:
  enum class Step { More, Done };
  virtual ~DataRecords() = default;
  // One data record; Done when it ends the data. EngineError for a record
  // that does not fit.
  virtual Step feed(std::string_view line) = 0;
  // The data is cut short (by another record or the end of the input):
  // EngineError unless what was read may end there.
  virtual void endEarly() = 0;
  // Stores what was read into the model; the listing's note of it.
  virtual std::string store(ModelStore& store, std::int64_t modelId) = 0;
  virtual int recordsRead() const = 0;
};

class PointListReader : public DataRecords {
 public:
  // Prepares for the points of the string that `header` begins; EngineError
  // when FORMAT and ORDR do not fit together.
  PointListReader(const FortranFormat& format, const GenioOrder& order, HeaderRecord header);
  // One data record. Done when the terminator has been read. The text is not
  // copied: it must stay in place until the point group it begins is read.
  // EngineError, naming the string, for a record that does not fit.
  Step feed(std::string_view line) override;
  // The point list is cut short (by another record or the end of the input):
  // EngineError unless the records read so far end the string with a
  // terminator (companion records of a multi-record terminator may be left out).
  void endEarly() override;
  // Stores the finished string (a string of its label is replaced).
  std::string store(ModelStore& store, std::int64_t modelId) override;
  // The finished string, with its discontinuities applied.
  ModelString finish();

  const std::string& label() const { return header_.header.label; }
  int recordsRead() const override { return recordsRead_; }

 private:
  Step read(std::string_view line);
  std::string endPoint() const;  // "a point whose x and y are 0"
  Step decode(bool complete);
  // The columns of an item; shorter than the field where the record ends early.
  std::string_view field(int item) const;
  double number(int item) const;

  HeaderRecord header_;
  GenioOrder order_;
  RecordLayout layout_;
  std::vector<std::string_view> group_;  // the records of the point group read so far
  std::vector<ModelPoint> points_;
  int xItem_ = 0, yItem_ = 0;
  int recordsRead_ = 0;
};

}  // namespace korvane::engine
