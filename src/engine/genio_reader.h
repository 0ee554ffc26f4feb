// Reading the point list of one GENIO string: data records laid out by the
// current FORMAT, split into points by the current ORDR, up to the terminator
// (the first point whose x and y are both 0).
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "engine/fortran_format.h"
#include "engine/genio_records.h"
#include "engine/model_string.h"

namespace korvane::engine {

class PointListReader {
 public:
  enum class Step { More, Done, Error };

  // Prepares for the points of the string that `header` begins. False with a
  // reason when FORMAT and ORDR do not fit together.
  bool start(const FortranFormat& format, const GenioOrder& order, HeaderRecord header,
             std::string& error);
  // One data record. Done when the terminator has been read. The text is not
  // copied: it must stay in place until the point group it begins is read.
  Step feed(std::string_view line, std::string& error);
  // The point list is cut short (by another record or the end of the input):
  // true when the records read so far end the string with a terminator
  // (companion records of a multi-record terminator may be left out).
  bool endEarly(std::string& error);
  // The finished string, with its discontinuities applied.
  bool finish(ModelString& out, std::string& error);

  const std::string& label() const { return header_.header.label; }
  int recordsRead() const { return recordsRead_; }

 private:
  Step decode(bool complete, std::string& error);
  // The columns of an item; shorter than the field where the record ends early.
  std::string_view field(int item) const;
  bool number(int item, double& out, std::string& error) const;

  HeaderRecord header_;
  GenioOrder order_;
  RecordLayout layout_;
  std::vector<std::string_view> group_;  // the records of the point group read so far
  std::vector<ModelPoint> points_;
  int xItem_ = 0, yItem_ = 0;
  int recordsRead_ = 0;
};

}  // namespace korvane::engine
