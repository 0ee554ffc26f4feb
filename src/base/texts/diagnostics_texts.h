// Keys of the language file's "Diagnostics" section: the lines that say how
// a failure's place was reached.
#pragma once

#include "base/message_key.h"

namespace korvane::texts::diagnostics {

inline constexpr MessageKey kInsertedBy{"Diagnostics", "inserted"};
inline constexpr MessageKey kRepetitionPass{"Diagnostics", "pass"};
inline constexpr MessageKey kMxLine{"Diagnostics", "mxline"};
inline constexpr MessageKey kInFile{"Diagnostics", "infile"};
inline constexpr MessageKey kSearched{"Diagnostics", "searched"};
inline constexpr MessageKey kSectionsOf{"Diagnostics", "sections"};
inline constexpr MessageKey kNoSections{"Diagnostics", "nosections"};

}  // namespace korvane::texts::diagnostics
