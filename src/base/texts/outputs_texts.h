// Keys of the language file's "Outputs" section: comment lines written into
// the MX input (a directive row's announcing line takes these alone).
#pragma once

#include "base/message_key.h"

namespace korvane::texts::outputs {

struct Key : MessageKey {
  using MessageKey::MessageKey;
};

inline constexpr Key kTrimStart{"Outputs", "s3"};
inline constexpr Key kTrimEnd{"Outputs", "s4"};
inline constexpr Key kPointQueryFailed{"Outputs", "s7"};
inline constexpr Key kWorkbookNotFound{"Outputs", "s8"};
inline constexpr Key kScriptAnnounced{"Outputs", "s9"};
inline constexpr Key kExcelMacroAnnounced{"Outputs", "s10"};
inline constexpr Key kPrintAnnounced{"Outputs", "s11"};
inline constexpr Key kInputFile{"Outputs", "s12"};
inline constexpr Key kKeyinAnnounced{"Outputs", "s13"};

}  // namespace korvane::texts::outputs
