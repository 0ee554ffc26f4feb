// The one way a compile run ends before its end: a CompileFailure thrown from
// wherever the run cannot go on, unwinding every level of the compile pass to
// the driver, which turns it into the language file's message. Two kinds:
//  - a message of the "Messages" section, shown as it stands: a file or
//    section that is not there, MX stopping early, no AutoCAD;
//  - a run-time failure of the "Runtime" section (bad arithmetic, too many
//    fields, a full variable table, a feature that is not available), shown
//    with the file, line and line text where the compile stood.
// An error of the layers below (a conversion, a call to another program, a
// workbook, an engine that cannot answer) becomes its run-time failure in one
// place, foreignFailure().
#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "base/texts/automation_texts.h"
#include "base/texts/messages_texts.h"
#include "base/texts/runtime_texts.h"
#include "compiler/extension/source_place.h"

namespace korvane {

class CompileFailure : public std::runtime_error {
 public:
  enum class Kind { Message, Runtime };

  Kind kind() const { return kind_; }
  // The text in the language file's section for the kind, and its "%1", "%2".
  MessageKey key() const { return key_; }
  const std::string& arg1() const { return a1_; }
  const std::string& arg2() const { return a2_; }
  // For a call to another program that failed: the "Automation" text that
  // says why, which stands for "%2" with arg2() as its own "%1".
  const std::optional<texts::automation::Key>& reason() const { return reason_; }

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

  // For a file that is not there: the folders searched. For a section that
  // is not there: the file searched, in full.
  std::vector<std::string> searched;
  std::string searchedFile;

 protected:
  CompileFailure(Kind kind, MessageKey key, std::string a1, std::string a2,
                 std::optional<texts::automation::Key> reason = {})
      : std::runtime_error(std::string(key.key)),
        kind_(kind),
        key_(key),
        a1_(std::move(a1)),
        a2_(std::move(a2)),
        reason_(reason) {}

 private:
  Kind kind_;
  MessageKey key_;
  std::string a1_, a2_;
  std::optional<texts::automation::Key> reason_;
};

// A run-time failure: a text of the "Runtime" section.
class RuntimeFailure : public CompileFailure {
 public:
  explicit RuntimeFailure(texts::runtime::Key key, std::string a1 = {}, std::string a2 = {},
                          std::optional<texts::automation::Key> reason = {})
      : CompileFailure(Kind::Runtime, key, std::move(a1), std::move(a2), reason) {}
};

// A text of the "Messages" section that ends the run.
class StopMessage : public CompileFailure {
 public:
  explicit StopMessage(texts::messages::Key key, std::string a1 = {}, std::string a2 = {})
      : CompileFailure(Kind::Message, key, std::move(a1), std::move(a2)) {}
};

// Called inside a catch block: the run-time failure for the error being
// handled when it is an error of the layers below — a conversion (naming
// `subject` instead of the error's own text when one is given: a function
// names its argument), a call to another program, a workbook that cannot be
// used as asked, an engine that cannot answer at all. Anything else is
// rethrown as it is: a CompileFailure, and what is no failure of the input
// (bad_alloc, a logic error).
RuntimeFailure foreignFailure(std::string subject = {});

}  // namespace korvane
