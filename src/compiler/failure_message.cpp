#include "compiler/failure_message.h"

#include "base/texts/diagnostics_texts.h"
#include "base/texts/messages_texts.h"
#include "base/texts/runtime_texts.h"
#include "compiler/line_reader.h"

namespace korvane {

std::string quotedText(std::string_view text) {
  if (text.size() <= kQuotedTextLength) return std::string(text);
  return std::string(text.substr(0, kQuotedTextLength)) + "...";
}

std::string inputLineText(const std::string& file, long n) {
  try {
    LineReader reader;
    if (!reader.open(file)) return {};
    std::string line;
    while (reader.readLine(line))
      if (reader.lineNumber() == n) return line;
  } catch (const CompileFailure&) {
    // A file that cannot be read back has no text to show.
  }
  return {};
}

std::string runtimeText(const Messages& messages, const CompileFailure& f) {
  const std::string a2 = f.reason() ? messages.format(*f.reason(), f.arg2()) : f.arg2();
  return messages.format(f.key(), quotedText(f.arg1()), quotedText(a2));
}

std::string describeTrail(const Messages& messages, const std::vector<SourcePlace>& trail) {
  std::string m;
  for (std::size_t i = 0; i < trail.size(); ++i) {
    const SourcePlace& p = trail[i];
    if (i > 0)
      m += "\n" + messages.format(texts::diagnostics::kInsertedBy, p.file, std::to_string(p.line));
    // The pass of a repetition: of the innermost place on a line of its own,
    // of an outer one after it.
    if (p.repetition > 0)
      m += (i == 0 ? "\n" : " ") +
           messages.format(texts::diagnostics::kRepetitionPass, std::to_string(p.repetition));
  }
  return m;
}

std::string describeFailure(const Messages& messages, const CompileFailure& f) {
  if (f.kind() == CompileFailure::Kind::Message) {
    std::string m = messages.format(f.key(), f.arg1(), f.arg2());
    if (!f.engineError.empty())
      m += "\n" + messages.format(texts::runtime::kEngineStopped, f.engineError);
    if (!f.mxSource.empty()) {
      const SourcePlace& p = f.mxSource.front();
      m += "\n" + messages.format(texts::runtime::kWhere, p.file, std::to_string(p.line));
      m += "\n" +
           messages.format(texts::runtime::kLineText, quotedText(inputLineText(p.file, p.line)));
      m += "\n" + messages.format(texts::diagnostics::kMxLine, quotedText(f.mxLine));
      m += describeTrail(messages, f.mxSource);
    } else if (!f.whereFile.empty()) {
      m += "\n" + messages.format(texts::runtime::kWhere, f.whereFile, std::to_string(f.whereLine));
    }
    // A part of an inserted file that is not there is named with its file.
    if (f.key() == texts::messages::kLineNotFound && !f.file.empty()) {
      m += "\n" + messages.format(texts::diagnostics::kInFile, f.file);
      if (f.trail.size() > 1) m += describeTrail(messages, f.trail);
    }
    return m;
  }
  // An interruption is no error of the input: it has no title.
  std::string m = f.key() == texts::runtime::kInterrupted
                      ? std::string()
                      : messages.text(texts::runtime::kTitle) + ": ";
  m += runtimeText(messages, f);
  if (!f.file.empty())
    m += "\n" + messages.format(texts::runtime::kWhere, f.file, std::to_string(f.line));
  if (!f.lineText.empty())
    m += "\n" + messages.format(texts::runtime::kLineText, quotedText(f.lineText));
  if (!f.mxLine.empty())
    m += "\n" + messages.format(texts::diagnostics::kMxLine, quotedText(f.mxLine));
  m += describeTrail(messages, f.trail);
  return m;
}

}  // namespace korvane
