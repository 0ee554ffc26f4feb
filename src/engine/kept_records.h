// GENIO data the engine keeps without computing with it: triangles (090)
// and text strings (an 080 of dimension 15). Their records are read by the
// FORMAT in force, one READ at a time, and stored as written, so that an
// export gives them back unchanged.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "engine/fortran_format.h"
#include "engine/genio_reader.h"

namespace korvane::engine {

// The dimension of a text string.
constexpr int kTextStringDimension = 15;

class KeptRecords : public DataRecords {
 public:
  // `header` is the 080 or 090 record. With a count (090's triangles) that
  // many READs follow; without one (a text string) READs follow up to the
  // one whose first two numbers are endX and endY, which may be repeated (a
  // writer closes its texts so), up to the next record.
  KeptRecords(const FortranFormat& format, std::string header, KeptBlock::Kind kind,
              std::string label, std::optional<long> count, double endX, double endY);

  Step feed(std::string_view line) override;
  void endEarly() override;
  std::string store(ModelStore& store, std::int64_t modelId) override;
  int recordsRead() const override { return static_cast<int>(block_.lines.size()) - 2; }

 private:
  double number(std::string_view line, const FieldSlot& slot) const;

  KeptBlock block_;
  std::string label_;
  std::optional<long> count_;
  double endX_, endY_;
  int recordsPerRead_ = 1;
  std::vector<FieldSlot> xy_;  // the first two numeric fields of a READ's first record
  int inGroup_ = 0;            // records of the READ begun
  long reads_ = 0;             // READs complete
  bool ending_ = false;        // the READ begun holds the end values
};

}  // namespace korvane::engine
