// The rows of the input language's tables. Every file that implements
// functions or directives ends with a constant array of its rows, as Lua's
// libraries end with their luaL_Reg arrays; shell/standard_language.cpp
// lists the arrays.
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "base/texts/outputs_texts.h"

namespace korvane {

class CallContext;
class DirectiveCall;

// ---- functions -------------------------------------------------------------

// A function of the input language: takes its arguments from the call
// context's argument array and returns its value.
using FunctionHandler = std::string (*)(CallContext& call);

struct FunctionRow {
  std::string_view name;  // in lower case
  FunctionHandler handler = nullptr;
};
using FunctionRows = std::span<const FunctionRow>;

// ---- directives and extended commands --------------------------------------

// The default block of an extended command: the settings file's section
// "[COMMAND:" + keyword + "]", compiled with an empty base folder and mode.
enum class DefaultBlock {
  None,
  Plain,            // compiled with no assignment text
  WithKeywordText,  // the keyword text passed down to its `default` line
};

// What the compile pass does for a directive before calling its handler, in
// this order. Fields of the directive line are taken before any of it.
struct Preparation {
  // The "Outputs" text of a line written as "   " + text ("%1" = argument 1).
  std::optional<texts::outputs::Key> announce = std::nullopt;
  bool flushFirst = false;
  bool readKeywordText = false;  // the joined lines after the directive line
  DefaultBlock defaults = DefaultBlock::None;
  // Assignment lists applied after the default block ("%1" = argument 1);
  // an empty one is skipped.
  std::array<std::string_view, 2> assignments{};
  bool assignKeywordText = false;  // the keyword text applied last
};

// What a handler tells the compile pass afterwards.
enum class DirectiveResult { Continue, EndCall };

using DirectiveHandler = DirectiveResult (*)(DirectiveCall& call);

struct DirectiveRow {
  std::string_view keyword;  // in lower case
  Preparation preparation;
  DirectiveHandler handler = nullptr;
};
using DirectiveRows = std::span<const DirectiveRow>;

}  // namespace korvane
