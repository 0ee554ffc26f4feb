// What a "file not found" or "section not found" adds for the reader: the
// line of the insert and the inserts that led there, the folders searched,
// the closest name that is there, and the sections the file has.
#pragma once

#include <string>

#include "base/messages.h"
#include "compiler/extension/compile_failure.h"

namespace korvane {

// The lines to show after the failure's message; empty for any other failure.
std::string notFoundDetails(const Messages& messages, const CompileFailure& f);

}  // namespace korvane
