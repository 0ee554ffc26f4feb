// Keys of the language file's "Automation" section: why a call to another
// program failed, the "%2" of the run-time failure that names the call.
#pragma once

#include "base/message_key.h"

namespace korvane::texts::automation {

struct Key : MessageKey {
  using MessageKey::MessageKey;
};

inline constexpr Key kRaised{"Automation", "raised"};
inline constexpr Key kFailed{"Automation", "failed"};
inline constexpr Key kNoAnswer{"Automation", "noanswer"};
inline constexpr Key kGone{"Automation", "gone"};
inline constexpr Key kNotInstalled{"Automation", "notinstalled"};
inline constexpr Key kNotRunning{"Automation", "notrunning"};
inline constexpr Key kUnknownMember{"Automation", "unknownmember"};

}  // namespace korvane::texts::automation
