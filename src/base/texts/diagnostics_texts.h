// Keys of the language file's "Diagnostics" section: the lines that say how
// a failure's place was reached.
#pragma once

#include "base/message_key.h"

namespace korvane::texts::diagnostics {

inline constexpr MessageKey kInsertedBy{"Diagnostics", "inserted"};
inline constexpr MessageKey kRepetitionPass{"Diagnostics", "pass"};
inline constexpr MessageKey kMxLine{"Diagnostics", "mxline"};
inline constexpr MessageKey kInFile{"Diagnostics", "infile"};

}  // namespace korvane::texts::diagnostics
