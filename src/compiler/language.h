// The tables of the input language: its directives (with the extended
// commands) and its functions, built once from the arrays of rows that the
// compiler, the functions and the commands define
// (compiler/extension/language_rows.h); the shell lists them
// (shell/standard_language.cpp).
#pragma once

#include <array>
#include <bitset>
#include <initializer_list>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "compiler/extension/language_rows.h"

namespace korvane {

class FunctionTable {
 public:
  // A second row for a name replaces the first.
  void add(FunctionRows rows);
  // The handler for a lower-case name, or null for a name that is no function.
  FunctionHandler find(std::string_view name) const;
  std::vector<std::string> names() const;  // in alphabetical order

 private:
  std::map<std::string_view, FunctionHandler, std::less<>> rows_;
};

// No keyword of the language is longer ("earthwork->excel").
constexpr std::size_t kLongestKeyword = 16;

class DirectiveTable {
 public:
  // A second row for a keyword replaces the first. The rows must outlive the
  // table (they are constant arrays).
  void add(DirectiveRows rows);
  const DirectiveRow* find(std::string_view keyword) const;
  std::vector<std::string> keywords() const;  // in alphabetical order

 private:
  void add(const DirectiveRow& row);
  struct Slot {
    std::size_t hash = 0;
    const DirectiveRow* row = nullptr;
  };
  void place(const Slot& slot);

  // Which last letters each keyword length ends with: most lines are MX data,
  // whose first field this rules out before any hashing.
  std::array<std::bitset<256>, kLongestKeyword + 1> endings_;
  // An open-addressing index of the rows, at most a quarter full: a directive
  // line costs one hash and, as a rule, one comparison.
  std::vector<Slot> index_;
  std::size_t used_ = 0;
};

struct LanguageTables {
  LanguageTables(std::initializer_list<DirectiveRows> directives,
                 std::initializer_list<FunctionRows> functions);
  DirectiveTable directives;
  FunctionTable functions;
};

// The directives the compiler itself implements: inclusion and repetition,
// assignments and conditions, file housekeeping (compiler_directives.cpp),
// and the output channels (output_channels.cpp).
extern const DirectiveRows kCompilerDirectives;
extern const DirectiveRows kChannelDirectives;

}  // namespace korvane
