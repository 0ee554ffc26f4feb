// The text shown for a failure that ended a compile, built from the language
// file in one place.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/messages.h"
#include "compiler/extension/compile_failure.h"

namespace korvane {

// How much of a line or a value a message quotes: longer ones are cut and
// "..." added, so that a failure on a line of 64 KB is a message of a few lines.
constexpr std::size_t kQuotedTextLength = 200;
std::string quotedText(std::string_view text);

// The "Runtime" text of a run-time failure, its "%1" and "%2" quoted short.
std::string runtimeText(const Messages& messages, const CompileFailure& f);

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
