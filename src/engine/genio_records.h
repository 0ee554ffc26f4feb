// The GENIO minor option records that describe data: 001 FORMAT, 003 ORDR and
// the 080 string header, read from Linemode fields and written back.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "engine/fortran_format.h"
#include "engine/linemode_lexer.h"
#include "engine/model_string.h"

namespace korvane::engine {

// 003 ORDR: how many points one data record holds and which dimensions each
// point lists, in order ("4=2,1,2,3,1,2,3": two xyz points a record).
struct GenioOrder {
  int perRecord = 1;
  std::vector<int> dims{1, 2, 3};  // the dimensions of one point

  int itemsPerPoint() const { return static_cast<int>(dims.size()); }
  int highestDimension() const;
  std::string record() const;  // "003,ORDR,4=1,1,2,3"
  bool operator==(const GenioOrder&) const = default;
  // Every dimension of a string of dimension d, one point a record.
  static GenioOrder natural(int dimension);
};

// The fields of a GENIO minor option record, in either of its forms: comma
// fields ("080,MAST,,5=0.0,0.0,3"), or a card in fixed columns, a record
// without a comma ("080MAST ...", "003ORDR 1 1 2 3"). A card holds field 2 in
// columns 4-7, 3 in 8-11, 4 in 16-23, 5 in 24-33, 6 in 34-43, 7 in 44-51, 8
// in 52-61 and 9 in 62-71; 003 gives its list after ORDR separated by blanks,
// which also reads it from those columns.
Fields genioFields(std::string_view record);

// The records are read strictly: EngineError for anything they do not take.
// 001: "001FORMAT(3D23.17)", "001,FORMAT (4F12.3,A4)", "001format(8f12.3,4a4)".
FortranFormat parseFormatRecord(std::string_view record);
std::string formatRecord(const FortranFormat& f);  // "001FORMAT(...)"

GenioOrder parseOrderRecord(const Fields& f);

// 080: label in field 2, sub-reference in 3, level of a 2-dimensional string
// in 4, an origin shift in 5 and 6 (added to every x and y read; the end
// values are compared before it), dimension in 7 (only its last two
// digits count: 100007703 is 3), the x and y of the point that ends the
// string in 8 and 9 (0 and 0 when blank), and from field 10 on the numbers of
// the points after which the string is broken.
struct HeaderRecord {
  StringHeader header;
  std::vector<int> gaps;
  double endX = 0, endY = 0;
  double shiftX = 0, shiftY = 0;
};
HeaderRecord parseHeaderRecord(const Fields& f, int defaultDimension);
// "080," + label padded to 4 + "," + sub-reference padded to 4 + ",...":
// the label stays in columns 5 to 8 and the sub-reference in 10 to 13. A
// string with a point at x = y = 0 declares `end` as its end values.
std::string headerRecord(const ModelString& s, double end = 0);
// The x and y of the point that ends a string as it is written: 0, unless a
// point of the string lies at (0, 0); then -1, -2 ... the first that none does.
double endValueFor(const ModelString& s);

// Shortest text that reads back as the same double.
std::string shortNumber(double v);

}  // namespace korvane::engine
