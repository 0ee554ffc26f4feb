// Lexical rules of Linemode input: which lines are comments, how a major
// option is recognised (its first four letters, any case), how a minor option
// record splits into numbered comma fields ("N=" jumps to field N, further
// values continue into N+1, N+2, ...).
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace korvane::engine {

enum class LineKind { Blank, Comment, Record };

// Blank: nothing but blanks. Comment: three leading blanks followed by text,
// or a line starting "***".
LineKind classifyLine(std::string_view line);

// The word a major option begins with, as written: at least four letters
// followed by ",", a blank or the end ("crea", "GENIO"). Empty otherwise.
std::string_view majorWord(std::string_view record);
// True when the record starts with a letter (so it is meant as a major option).
bool startsWithLetter(std::string_view record);

// The record number of a minor option: three digits followed by ",", the end,
// blanks, or (for 001) the word FORMAT. -1 when the record is not one.
int minorNumber(std::string_view record);

// How a record is looked up in the record table (linemode_records.h): a
// minor option by its three digits ("080"), a major option by the first four
// letters of its word in lower case ("crea"); empty for anything else.
std::string recordKey(std::string_view record);

// A GENIO minor option written as a card in fixed columns, its number
// followed by a word or label from column 4 ("003ORDR 1 1 2 3", "080MAST"):
// the number ("003"), as recordKey gives it; empty for anything else.
std::string cardKey(std::string_view record);

// The comma fields of a minor option record; field 1 is the record number.
// EngineError for a malformed "N=" position or a field that is not the
// number asked for.
class Fields {
 public:
  explicit Fields(std::string_view record);

  bool has(int n) const;  // present and not blank
  // The raw text of field n (untrimmed; labels keep their blanks), "" when absent.
  std::string_view raw(int n) const;
  // A numeric field (blanks around it allowed); nullopt when absent or blank.
  std::optional<double> number(int n) const;
  // As number(), but the value must be a whole number.
  std::optional<long> integer(int n) const;
  int last() const { return fields_.empty() ? 0 : fields_.rbegin()->first; }

 private:
  std::map<int, std::string> fields_;
};

}  // namespace korvane::engine
