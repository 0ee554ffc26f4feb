// Keys of the language file's "Runtime" section: the run-time failures (a
// RuntimeFailure takes these alone) and the lines that place them.
#pragma once

#include "base/message_key.h"

namespace korvane::texts::runtime {

struct Key : MessageKey {
  using MessageKey::MessageKey;
};

inline constexpr Key kTitle{"Runtime", "title"};
inline constexpr Key kWhere{"Runtime", "where"};
inline constexpr Key kLineText{"Runtime", "text"};
inline constexpr Key kDivisionByZero{"Runtime", "div0"};
inline constexpr Key kOverflow{"Runtime", "overflow"};
inline constexpr Key kTypeMismatch{"Runtime", "mismatch"};
inline constexpr Key kBadArgument{"Runtime", "badarg"};
inline constexpr Key kTooManyFields{"Runtime", "fields"};
inline constexpr Key kTooManyArguments{"Runtime", "args"};
inline constexpr Key kVariablesFull{"Runtime", "vars"};
inline constexpr Key kUnpairedBar{"Runtime", "bar"};
inline constexpr Key kUnbalancedParentheses{"Runtime", "paren"};
inline constexpr Key kInsertsTooDeep{"Runtime", "depth"};
inline constexpr Key kNotAvailable{"Runtime", "notavail"};
inline constexpr Key kNotText{"Runtime", "binary"};
inline constexpr Key kUtf16Text{"Runtime", "utf16"};
inline constexpr Key kLineTooLong{"Runtime", "linelen"};
inline constexpr Key kCannotWrite{"Runtime", "write"};
inline constexpr Key kCannotRead{"Runtime", "read"};
inline constexpr Key kEngineStopped{"Runtime", "engine"};
inline constexpr Key kBadPattern{"Runtime", "pattern"};
inline constexpr Key kNoThen{"Runtime", "then"};
inline constexpr Key kNothingAfterThen{"Runtime", "then_empty"};
inline constexpr Key kInterrupted{"Runtime", "interrupted"};
inline constexpr Key kStringFunctionArguments{"Runtime", "strfunc"};
inline constexpr Key kSubscript{"Runtime", "subscript"};
inline constexpr Key kNoMicroStation{"Runtime", "mstation"};
inline constexpr Key kExpressionTooDeep{"Runtime", "exprdepth"};
inline constexpr Key kNoModel{"Runtime", "nomodel"};
inline constexpr Key kNoString{"Runtime", "nostring"};
inline constexpr Key kFieldNumber{"Runtime", "field"};
inline constexpr Key kStringTooLong{"Runtime", "longstring"};
inline constexpr Key kAutomationFailed{"Runtime", "automation"};
inline constexpr Key kTextTooLong{"Runtime", "textlen"};
inline constexpr Key kLabelOrder{"Runtime", "order"};
inline constexpr Key kTooManyCrossings{"Runtime", "crossings"};
inline constexpr Key kWorkbookUnreadable{"Runtime", "xlbook"};
inline constexpr Key kNoWorksheet{"Runtime", "xlsheet"};
inline constexpr Key kNotACell{"Runtime", "xlcell"};
inline constexpr Key kCellRefused{"Runtime", "xlvalue"};
inline constexpr Key kWorkbookUnwritable{"Runtime", "xlwrite"};
inline constexpr Key kWorkbookReadOnly{"Runtime", "xlreadonly"};
inline constexpr Key kModelStore{"Runtime", "mxstore"};

}  // namespace korvane::texts::runtime
