// Writing strings as GENIO text that GENIO input reads back: a banner line
// (a comment, which readers discard), 001 FORMAT and 003 ORDR whenever they
// change, the 080 header, the data records, the terminator and a closing 999.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "engine/fortran_format.h"
#include "engine/genio_records.h"
#include "engine/model_store.h"
#include "engine/model_string.h"

namespace korvane::engine {

using LineSink = std::function<void(const std::string&)>;

// How strings are laid out where no FORMAT is given: the exponent letter of
// the numbers (MX writes D), and a 6-dimensional string under (3D23.17),
// two records a point by reversion, in place of (3D23.17/3D23.17).
struct WriteLayout {
  char exponent = 'D';
  bool revertingSixD = false;
};

// A string's own layout: all its dimensions, numbers three to a record as
// D23.17, texts as A4 at the end of the record they follow, e.g.
// (3D23.17/3D23.17/2D23.17,4A4) for a 12-dimensional geometry string.
FortranFormat naturalFormat(const ModelString& s, const WriteLayout& layout = {});

class GenioWriter {
 public:
  // `format` and `order` are what the GENIO block set (001 and 003), if anything.
  GenioWriter(LineSink sink, std::optional<FortranFormat> format, std::optional<GenioOrder> order,
              WriteLayout layout = {});

  void banner(const std::string& text);  // written as a comment line
  // EngineError when the FORMAT cannot lay out the string's points.
  void write(const ModelString& s);
  // Kept records (kept_records.h) as they were read, after their FORMAT.
  void write(const KeptBlock& kept);
  void end();  // "999"

 private:
  void emit(const std::vector<DimValue>& items, const RecordLayout& layout);

  LineSink sink_;
  std::optional<FortranFormat> format_;
  std::optional<GenioOrder> order_;
  WriteLayout layout_;
  std::optional<std::string> lastPair_;  // FORMAT and ORDR records last written
  std::string lastFormat_;               // FORMAT of the kept records last written
};

}  // namespace korvane::engine
