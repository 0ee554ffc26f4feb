// Likely mistakes met while a run compiles: a model or string that is not in
// the store, a workbook that is not there, a name read before any assignment,
// a character the code page cannot hold. They change nothing that is
// compiled; the front end shows them (standard error, the window's log), or
// stops the run at the first one (--strict), or hears none (-w).
#pragma once

#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "base/message_key.h"
#include "base/messages.h"

namespace korvane {

struct RunContext;
class LineReader;

// One warning: where it was met (file empty when not known, column 0 when
// only the line is known) and what was found, with the close name when one is.
struct RunWarning {
  std::string file;
  long line = 0;
  long column = 0;
  std::string what;
};

// Where a front end shows the warnings of a run.
class WarningSink {
 public:
  virtual ~WarningSink() = default;
  virtual void warning(const RunWarning& w) = 0;
};

struct RunWarnings {
  enum class Mode { Shown, Silent, Strict };
  Mode mode = Mode::Shown;
  WarningSink* sink = nullptr;  // none: the warnings are not shown
  // Models that a query's GENIO request made because they were not there,
  // for the run's summary.
  std::set<std::string> emptyModels;
  // Each place and subject is told once a run: a repeated part reads its
  // lines again and again. Beyond kMaxTold they are only counted.
  static constexpr std::size_t kMaxTold = 1000;
  std::set<std::tuple<std::string, long, std::string>> told;
  std::size_t dropped = 0;
  // The file last asked whether it is the settings file, and the answer.
  std::string weighedFile;
  bool weighedIsSettings = false;
};

// Tells the run's warning `key` (%1 = a1, %2 = a2) at the line being compiled,
// its column where `word` stands in it, with "did you mean" the name that
// `suggest` gives when it gives one (asked only for a warning not told yet).
// Under --strict it ends the run (a StopMessage).
void warn(RunContext& ctx, MessageKey key, std::string_view a1, std::string_view a2,
          std::string_view word, const std::function<std::string()>& suggest);

// The line just read holds a control character or a character the code page
// cannot hold (LineReader says where).
void warnCharacters(RunContext& ctx, const LineReader& reader);

// The place, what was found and, when close, what was probably meant, as one line.
std::string describeWarning(const Messages& messages, const RunWarning& w);

// "FILE, line N, column C: " (the parts that are known); empty when the file is not.
std::string describePlace(const Messages& messages, const std::string& file, long line,
                          long column);

// Where `word` stands in `raw` (1-based), ignoring case; a match must not be
// part of a longer name. 0 when it is not there as written (it may have come
// from a substitution).
long columnOf(std::string_view raw, std::string_view word);

// A name read with no value: told when it is inside |...| or where a number
// was expected, with the closest variable assigned so far.
void warnUnsetName(RunContext& ctx, std::string_view name);

}  // namespace korvane
