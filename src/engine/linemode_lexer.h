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

enum class Major { Moss, Create, Delete, Genio, Edit, Over, Finish };

struct MajorRecord {
  Major major;
  std::string word;      // the keyword as written, e.g. "crea" or "GENIO"
  std::string argument;  // the rest after "," or blanks, trimmed; for model names also
                         // without one trailing "," and without surrounding quotes
};

// A record starting with a letter whose first four letters name a major
// option, followed by ",", a blank or the end. Nullopt otherwise.
std::optional<MajorRecord> parseMajor(std::string_view record);
// True when the record starts with a letter (so it is meant as a major option).
bool startsWithLetter(std::string_view record);

// The record number of a minor option: three digits followed by ",", the end,
// blanks, or (for 001) the word FORMAT. -1 when the record is not one.
int minorNumber(std::string_view record);

// The comma fields of a minor option record; field 1 is the record number.
class Fields {
 public:
  // False with a reason for a malformed "N=" position.
  static bool split(std::string_view record, Fields& out, std::string& error);

  bool has(int n) const;  // present and not blank
  // The raw text of field n (untrimmed; labels keep their blanks), "" when absent.
  std::string_view raw(int n) const;
  // A numeric field (blanks around it allowed). Nullopt when absent or blank;
  // false with a reason when it holds something that is not a number.
  bool number(int n, std::optional<double>& out, std::string& why) const;
  // As number(), but the value must be a whole number.
  bool integer(int n, std::optional<long>& out, std::string& why) const;
  int last() const { return fields_.empty() ? 0 : fields_.rbegin()->first; }

 private:
  std::map<int, std::string> fields_;
};

}  // namespace korvane::engine
