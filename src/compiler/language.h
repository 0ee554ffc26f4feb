// The tables of the input language: its directives (with the extended
// commands) and its functions. The compiler owns them and fills in its own
// directives; the functions and commands layers add their rows; the shell
// puts the whole language together once (shell/standard_language.h).
#pragma once

#include <array>
#include <bitset>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/text.h"

namespace korvane {

class CallContext;
class DirectiveCall;

// ---- functions -------------------------------------------------------------

// A function of the input language: takes its arguments from the call
// context's argument array and returns its value.
using FunctionHandler = std::string (*)(CallContext& call);

class FunctionTable {
 public:
  // `name` in lower case; a second row for a name replaces the first.
  void add(std::string_view name, FunctionHandler handler);
  // The handler for a lower-case name, or null for a name that is no function.
  FunctionHandler find(std::string_view name) const;
  std::vector<std::string> names() const;  // in alphabetical order

 private:
  std::map<std::string, FunctionHandler, std::less<>> rows_;
};

// ---- directives and extended commands --------------------------------------

// The default block of an extended command: the settings file's section
// "[COMMAND:" + keyword + "]", compiled with an empty base folder and mode.
enum class DefaultBlock {
  None,
  Plain,            // compiled with no assignment text
  WithKeywordText,  // the keyword text passed down to its `default` line
};

// What the compile pass does for a directive before calling its handler, in
// this order. Fields of the directive line are taken before any of it.
struct Preparation {
  // "Outputs" key of a line written as "   " + text ("%1" = argument 1).
  const char* announce = nullptr;
  bool flushFirst = false;
  bool readKeywordText = false;  // the joined lines after the directive line
  DefaultBlock defaults = DefaultBlock::None;
  // Assignment lists applied after the default block ("%1" = argument 1).
  std::vector<std::string> assignments;
  bool assignKeywordText = false;  // the keyword text applied last
};

// What a handler tells the compile pass afterwards.
enum class DirectiveResult { Continue, EndCall };

using DirectiveHandler = DirectiveResult (*)(DirectiveCall& call);

struct DirectiveRow {
  Preparation preparation;
  DirectiveHandler handler = nullptr;
};

// No keyword of the language is longer ("earthwork->excel").
constexpr std::size_t kLongestKeyword = 16;

class DirectiveTable {
 public:
  DirectiveTable() = default;
  // The index points into the rows: a table moves, it is never copied.
  DirectiveTable(const DirectiveTable&) = delete;
  DirectiveTable& operator=(const DirectiveTable&) = delete;
  DirectiveTable(DirectiveTable&&) = default;
  DirectiveTable& operator=(DirectiveTable&&) = default;

  // `keyword` in lower case; a second row for a keyword replaces the first.
  void add(std::string_view keyword, Preparation preparation, DirectiveHandler handler);
  const DirectiveRow* find(std::string_view keyword) const;
  std::vector<std::string> keywords() const;

 private:
  std::unordered_map<std::string, DirectiveRow, text::Hash, std::equal_to<>> rows_;
  // Which last letters each keyword length ends with: most lines are MX data,
  // whose first field this rules out before any hashing.
  std::array<std::bitset<256>, kLongestKeyword + 1> endings_;
  // An open-addressing index over rows_, rebuilt with each row added (they
  // are all added at start-up): a directive line costs one hash and, as a
  // rule, one comparison.
  struct Slot {
    std::size_t hash = 0;
    const std::string* keyword = nullptr;
    const DirectiveRow* row = nullptr;
  };
  std::vector<Slot> index_;
};

struct LanguageTables {
  DirectiveTable directives;
  FunctionTable functions;
};

// The directives the compiler itself implements: inclusion and repetition,
// assignments and conditions, the output channels, file housekeeping.
void addCompilerDirectives(DirectiveTable& table);

}  // namespace korvane
