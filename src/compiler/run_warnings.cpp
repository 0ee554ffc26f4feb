#include "compiler/run_warnings.h"

#include <filesystem>

#include "base/codepage.h"
#include "base/fs.h"
#include "base/similar.h"
#include "base/texts/check_texts.h"
#include "base/texts/messages_texts.h"
#include "compiler/compile_internals.h"
#include "compiler/extension/compile_failure.h"
#include "compiler/function_dispatch.h"
#include "compiler/line_reader.h"
#include "compiler/variable_table.h"

namespace korvane {

long columnOf(std::string_view raw, std::string_view word) {
  if (word.empty()) return 0;
  const std::string hay = cp::lower(std::string(raw)), needle = cp::lower(std::string(word));
  for (std::size_t at = hay.find(needle); at != std::string::npos; at = hay.find(needle, at + 1)) {
    const bool startOk = at == 0 || !isNameCharacter(hay[at - 1]);
    const std::size_t end = at + needle.size();
    const bool endOk = end >= hay.size() || !isNameCharacter(hay[end]);
    if (startOk && endOk) return static_cast<long>(at) + 1;
  }
  return 0;
}

std::string describePlace(const Messages& messages, const std::string& file, long line,
                          long column) {
  if (file.empty()) return {};
  std::string place =
      line > 0 ? messages.format(texts::check::kPlace, file, std::to_string(line)) : file;
  if (column > 0) place += ", " + messages.format(texts::check::kColumn, std::to_string(column));
  return place + ": ";
}

std::string describeWarning(const Messages& messages, const RunWarning& w) {
  return describePlace(messages, w.file, w.line, w.column) + w.what;
}

namespace {

// Whether `file` is the settings file, which holds the commands' default blocks.
bool isSettingsFile(RunContext& ctx, const std::string& file) {
  RunWarnings& warnings = ctx.warnings;
  if (file != warnings.weighedFile) {
    std::error_code ec;
    warnings.weighedFile = file;
    warnings.weighedIsSettings =
        !file.empty() && !ctx.settingsPath.empty() &&
        std::filesystem::equivalent(fs::native(file), fs::native(ctx.settingsPath), ec);
  }
  return warnings.weighedIsSettings;
}

// Where the compile stands, as the user wrote it: a command's default block in
// the settings file is placed at the input line that ran the command.
RunWarning placeHere(RunContext& ctx, std::string_view word, long column) {
  CompileInternals& in = internals(ctx);
  RunWarning w{in.whereFile, in.whereLine, column, {}};
  std::size_t depth = static_cast<std::size_t>(in.depth);
  if (isSettingsFile(ctx, w.file)) {
    for (const SourcePlace& p : in.sourceMap.chainHere())
      if (p.file != w.file) {
        w = {p.file, p.line, 0, {}};
        break;
      }
    while (depth > 0 && depth < in.callStorage.size() &&
           in.callStorage[depth].reader.fullName() != w.file)
      --depth;
  }
  // The line of the innermost call being compiled (its storage is at its depth).
  if (!word.empty() && depth < in.callStorage.size())
    w.column = columnOf(in.callStorage[depth].raw, word);
  return w;
}

void warnAt(RunContext& ctx, MessageKey key, std::string_view a1, std::string_view a2, long column,
            std::string_view word, const std::function<std::string()>& suggest) {
  RunWarnings& warnings = ctx.warnings;
  if (warnings.mode == RunWarnings::Mode::Silent) return;
  RunWarning w = placeHere(ctx, word, column);
  std::string subject = std::string(key.key) + ",";
  subject.append(a1).append(",").append(a2);
  if (!warnings.told.emplace(w.file, w.line, std::move(subject)).second) return;
  if (warnings.told.size() > RunWarnings::kMaxTold) {
    ++warnings.dropped;
    return;
  }
  w.what = ctx.messages.format(key, a1, a2);
  if (const std::string suggestion = suggest ? suggest() : std::string(); !suggestion.empty())
    w.what += " " + ctx.messages.format(texts::check::kSuggestion, suggestion);
  if (warnings.mode == RunWarnings::Mode::Strict)
    throw StopMessage(texts::messages::kStrictStop, describeWarning(ctx.messages, w));
  if (warnings.sink) warnings.sink->warning(w);
}

}  // namespace

void warn(RunContext& ctx, MessageKey key, std::string_view a1, std::string_view a2,
          std::string_view word, const std::function<std::string()>& suggest) {
  warnAt(ctx, key, a1, a2, 0, word, suggest);
}

void warnCharacters(RunContext& ctx, const LineReader& reader) {
  if (const long at = reader.controlColumn()) {
    // Named as it is typed: Ctrl-Z for the end-of-file mark of old editors.
    const std::string name =
        "Ctrl-" + std::string(1, static_cast<char>('@' + reader.controlCharacter()));
    warnAt(ctx, texts::check::kControlCharacter, name, {}, at, {}, {});
  }
  if (const long at = reader.lostColumn())
    warnAt(ctx, texts::check::kNotInCodePage, {}, {}, at, {}, {});
}

void warnUnsetName(RunContext& ctx, std::string_view name) {
  warn(ctx, texts::check::kNoValue, name, {}, name, [&] {
    std::vector<std::string> names;
    for (const auto& [n, v] : ctx.vars.entries())
      if (!isTemporaryName(n)) names.push_back(n);
    return text::closestWord(name, names);
  });
}

}  // namespace korvane
