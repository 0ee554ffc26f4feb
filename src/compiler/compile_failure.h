// The one way a compile run ends before its end: a CompileFailure thrown from
// wherever the run cannot go on, unwinding every level of the compile pass to
// the driver, which turns it into the language file's message (describe()) and
// sets the stop state. Two kinds:
//  - a message of the "Messages" section, shown as it stands: a file or
//    section that is not there, MX stopping early, no AutoCAD;
//  - a run-time failure of the "Runtime" section (bad arithmetic, too many
//    fields, a full variable table, a feature that is not available), shown
//    with the file, line and line text where the compile stood.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "base/conversions.h"
#include "base/messages.h"
#include "compiler/source_map.h"
#include "hosts/automation.h"
#include "hosts/excel.h"

namespace korvane {

class CompileFailure : public std::runtime_error {
 public:
  enum class Kind { Message, Runtime };

  Kind kind() const { return kind_; }
  // The key in the language file's section for the kind, and its "%1", "%2".
  const std::string& key() const { return key_; }
  const std::string& arg1() const { return a1_; }
  const std::string& arg2() const { return a2_; }

  // Where the compile stood; filled by the innermost compile level.
  bool located = false;
  std::string file;
  long line = 0;
  std::string lineText;
  // The places that led there, innermost first (the first is file and line).
  std::vector<SourcePlace> trail;

  // For a run that MX did not finish: MX's own words, and the input line
  // whose flush started the run.
  std::string engineError;
  std::string whereFile;
  long whereLine = 0;
  // The MX line the engine refused, and where the input wrote it (innermost
  // first); empty when the engine did not name a line.
  std::string mxLine;
  std::vector<SourcePlace> mxSource;

 protected:
  CompileFailure(Kind kind, std::string key, std::string a1, std::string a2)
      : std::runtime_error(key),
        kind_(kind),
        key_(std::move(key)),
        a1_(std::move(a1)),
        a2_(std::move(a2)) {}

 private:
  Kind kind_;
  std::string key_, a1_, a2_;
};

// A run-time failure; `key` names the message in the "Runtime" section.
class RuntimeFailure : public CompileFailure {
 public:
  explicit RuntimeFailure(std::string key, std::string a1 = {}, std::string a2 = {})
      : CompileFailure(Kind::Runtime, std::move(key), std::move(a1), std::move(a2)) {}
};

// A message of the "Messages" section that ends the run.
class StopMessage : public CompileFailure {
 public:
  explicit StopMessage(std::string key, std::string a1 = {}, std::string a2 = {})
      : CompileFailure(Kind::Message, std::move(key), std::move(a1), std::move(a2)) {}
};

// The run-time failure for a conversion error; `subject` replaces the text the
// error names when given (a function names its argument).
RuntimeFailure failureFromConversion(const conv::ConversionError& e, std::string subject = {});

// The run-time failure for a call to another program that failed: the object
// and member, and why in the language file's words.
RuntimeFailure failureFromAutomation(const Messages& messages, const hosts::AutomationError& e);

// The run-time failure for a workbook that cannot be used as asked.
RuntimeFailure failureFromWorkbook(const hosts::WorkbookError& e);

// How much of a line or a value a message quotes: longer ones are cut and
// "..." added, so that a failure on a line of 64 KB is a message of a few lines.
constexpr std::size_t kQuotedTextLength = 200;
std::string quotedText(std::string_view text);

// The full text shown for a failure: a message as it stands (with MX's error and
// the place of the flush for a run MX did not finish); a run-time failure with
// its title, the file and line, and the line's text.
std::string describeFailure(const Messages& messages, const CompileFailure& f);

// The lines that tell how the compile came to a place: each outer place of
// `trail` (innermost first) as "inserted by FILE, line N", with the pass of a
// repetition.
std::string describeTrail(const Messages& messages, const std::vector<SourcePlace>& trail);

// The text of line n (1-based) of an input file, as the compile pass reads it;
// empty when the file or the line is not there.
std::string inputLineText(const std::string& file, long n);

}  // namespace korvane
