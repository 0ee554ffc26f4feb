// Fortran FORMAT specifications as GENIO uses them for its data records:
// F, E, D and I numeric descriptors, A text descriptors, nX, "/" and ":",
// parenthesised groups with repeat counts and format reversion. A format is
// turned into a layout (which record and columns each item of one READ or
// WRITE occupies), and values are read from and written into those columns
// with Fortran's rules.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvane::engine {

enum class Edit { F, E, D, I, A, X, Slash, Colon };

// Parentheses nest at most this deep, the format's own included: (2(3(F5.1)))
// is 3 deep.
constexpr int kMaxFormatNesting = 8;
// Edit descriptors one READ or WRITE may step through, repeats counted: a
// format like (999(999(/)),F5.1) is refused rather than walked.
constexpr long kMaxFormatSteps = 100000;

struct FormatNode {
  Edit edit = Edit::F;
  int repeat = 1;
  int width = 0;  // for X: the number of positions skipped
  int decimals = 0;
  bool isGroup = false;
  std::vector<FormatNode> group;
};

// Where one item of a READ or WRITE lies.
struct FieldSlot {
  int record = 0;  // 0-based record within the statement
  int column = 0;  // 0-based first column
  int width = 0;
  int decimals = 0;
  Edit edit = Edit::F;
};

struct RecordLayout {
  std::vector<FieldSlot> slots;  // one per item, in item order
  std::vector<int> lengths;      // per record: the column after its last field
  // Per record: the columns the format describes for it, fields with no item
  // left included; a READ skips what they hold.
  std::vector<int> widths;
  int records() const { return static_cast<int>(lengths.size()); }
};

bool isNumericEdit(Edit e);

class FortranFormat {
 public:
  // Parses "(...)" in any case, blanks ignored; EngineError when malformed.
  static FortranFormat parse(std::string_view descriptors);
  // MX's own format for GENIO output: (3D23.17).
  static FortranFormat mxDefault();

  // Canonical text, upper case, e.g. "(3D23.17/3D23.17/2D23.17,4A4)".
  std::string text() const;
  // The layout of one statement with `items` values. Output stops at the first
  // data descriptor with no item left (X, "/" before it are still obeyed);
  // when the items outlast the format, a new record starts and the format
  // reverts to its last top-level group (or to its start). EngineError when
  // the format cannot place the items.
  RecordLayout layout(int items) const;

  // How many items the first record of a statement holds, and one pass
  // through the whole format.
  int firstRecordItems() const;
  int itemsPerPass() const;

  bool operator==(const FortranFormat& o) const { return text() == o.text(); }

 private:
  std::vector<FormatNode> nodes_;
};

// Numbers as Fortran reads them (blanks ignored, an all-blank field is 0,
// E/D/Q or a bare sign for the exponent, and without a decimal point the last
// `impliedDecimals` digits are the fraction). `s` must hold no blanks.
bool parseFortranNumber(std::string_view s, int impliedDecimals, double& out);

// The value of a numeric field; nullopt when it is not a number.
std::optional<double> readNumberField(std::string_view field, const FieldSlot& slot);
// Why a field is not a number, naming its columns.
std::string notANumber(std::string_view field, const FieldSlot& slot);
// Reads a text field into a 4-character value (right-trimmed), as Fortran
// reads CHARACTER*4 with Aw: the rightmost 4 characters when w > 4.
std::string readTextField(std::string_view field);

// Exactly slot.width characters: right-justified, asterisks when the value
// does not fit. E and D write 0.ddddE+ee; a 3-digit exponent drops the letter.
std::string writeNumberField(double v, const FieldSlot& slot);
// A 4-character text written with Aw: blanks first when w > 4, cut when w < 4.
std::string writeTextField(std::string_view text, int width);

}  // namespace korvane::engine
