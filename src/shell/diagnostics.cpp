#include "shell/diagnostics.h"

#include <algorithm>
#include <cctype>
#include <filesystem>

#include "base/codepage.h"
#include "base/fs.h"
#include "base/similar.h"
#include "base/text.h"
#include "base/texts/check_texts.h"
#include "compiler/expression.h"
#include "compiler/language.h"
#include "compiler/variable_table.h"
#include "shell/input_sections.h"

namespace korvane {
namespace {

// Names shorter than this, outside |...|, are too often labels (K1, f1).
constexpr std::size_t kShortestNearName = 4;
// Distinct words outside |...| weighed in a run before the rest are let pass.
constexpr std::size_t kMaxWeighed = 10000;

// The leading word of a line: what could be a misspelt directive.
std::string leadingWord(const std::string& text) {
  std::size_t end = 0;
  while (end < text.size() && text[end] != ' ' && text[end] != ',') ++end;
  return text.substr(0, end);
}

bool isKeywordLike(const std::string& word) {
  if (word.empty() || !std::isalpha(static_cast<unsigned char>(word[0]))) return false;
  return std::all_of(word.begin(), word.end(), [](char c) {
    return std::isalnum(static_cast<unsigned char>(c)) || c == '_' || c == '-' || c == '>';
  });
}

}  // namespace

Diagnostics::Diagnostics(const LanguageTables* language, const VariableTable& vars,
                         std::string settingsFile, SectionLister sections)
    : language_(language),
      vars_(vars),
      settingsFile_(std::move(settingsFile)),
      sections_(std::move(sections)) {
  if (language_) {
    keywords_ = language_->directives.keywords();
    functions_ = language_->functions.names();
  }
}

void Diagnostics::clear() {
  findings_.clear();
  seen_.clear();
  weighed_.clear();
  dropped_ = 0;
}

bool Diagnostics::isSettingsFile(const std::string& file) const {
  if (settingsFile_.empty()) return false;
  const auto a = fs::native(file), b = fs::native(settingsFile_);
  if (!cp::equalsIgnoreCase(fs::fromNative(a.filename()), fs::fromNative(b.filename())))
    return false;
  std::error_code ec;
  return std::filesystem::equivalent(a, b, ec);
}

void Diagnostics::fileEntered(const std::string& fullName) {
  // The same file again (a repeated part, a section) is known already.
  bool settings = false;
  bool known = false;
  for (const Frame& f : frames_)
    if (f.file == fullName) {
      settings = f.settings;
      known = true;
      break;
    }
  if (!known) settings = isSettingsFile(fullName);
  frames_.push_back({fullName, settings, 0, {}});
}

void Diagnostics::fileLeft() {
  if (!frames_.empty()) frames_.pop_back();
}

const Diagnostics::Frame* Diagnostics::place() const {
  for (auto it = frames_.rbegin(); it != frames_.rend(); ++it)
    if (!it->settings) return &*it;
  return nullptr;
}

void Diagnostics::lineRead(long line, const std::string& rawLine) {
  if (frames_.empty()) return;
  frames_.back().line = line;
  frames_.back().raw = rawLine;
  // "#iff a>3 then b=1" is taken as an assignment, not as a condition.
  if (rawLine.size() > 1 && rawLine[0] == '#' && rawLine[1] != '#') {
    const std::string rest = rawLine.substr(1);
    const std::string word = leadingWord(rest);
    if (word.size() < rest.size() && rest[word.size()] == ' ' &&
        cp::lower(rest).find(" then ") != std::string::npos) {
      const std::string near = text::closestWord(word, {"if"});
      if (!near.empty()) add(Finding::Kind::Assignment, "#" + word, 1, {}, "#" + near);
    }
  }
}

void Diagnostics::plainLine(const std::string& firstField) {
  const std::string word = cp::lower(leadingWord(firstField));
  if (!isKeywordLike(word)) return;
  const std::string near = text::closestWord(word, keywords_);
  if (near.empty()) return;
  const Frame* p = place();
  add(Finding::Kind::Directive, word, p ? columnOf(p->raw, word) : 0, {}, near);
}

void Diagnostics::unknownFunction(const std::string& name) {
  const Frame* p = place();
  add(Finding::Kind::Function, name, p ? columnOf(p->raw, name) : 0, {},
      text::closestWord(name, functions_));
}

void Diagnostics::unassignedName(const std::string& name, bool inBars) {
  const Frame* p = place();
  // Inside |...| the compile itself warns (compiler/run_warnings.h).
  if (!p || inBars) return;
  if (seen_.count({static_cast<int>(Finding::Kind::Variable), p->file, p->line, name})) return;
  // Outside |...| each word is weighed once a run: data rows repeat their
  // words many thousand times, and each weighing goes over every variable.
  if ((name.size() < kShortestNearName || weighed_.size() >= kMaxWeighed ||
       !weighed_.insert(name).second))
    return;
  std::vector<std::string> names;
  for (const auto& [n, v] : vars_.entries())
    if (!isTemporaryName(n)) names.push_back(n);
  std::string near = text::closestWord(name, names);
  // Outside |...| a word that is no variable is usually meant as text (a
  // label, a model's name); only a longer one close to a variable is worth a word.
  if (near.empty()) return;
  add(Finding::Kind::Variable, name, columnOf(p->raw, name), {}, std::move(near));
}

void Diagnostics::defaultBlockOpening() {
  blockOpen_ = true;
  defaults_.clear();
}

void Diagnostics::defaultsApplied(const std::string& defaults) {
  if (!blockOpen_) return;
  for (std::string& n : assignmentNames(defaults)) defaults_.push_back(std::move(n));
}

void Diagnostics::commandKeywordText(const std::string& keyword, const std::string& text,
                                     std::span<const std::string_view> fixed) {
  blockOpen_ = false;
  if (defaults_.empty()) return;  // a block without a `default` line names nothing
  std::vector<std::string> known = defaults_;
  for (const std::string_view list : fixed)
    for (std::string& n : assignmentNames(list)) known.push_back(std::move(n));
  const Frame* p = place();
  for (const std::string& name : assignmentNames(text)) {
    if (name.empty() || std::find(known.begin(), known.end(), name) != known.end()) continue;
    add(Finding::Kind::Setting, name, p ? columnOf(p->raw, name) : 0, keyword,
        text::closestWord(name, known));
  }
}

void Diagnostics::rowsWithoutEnd() { add(Finding::Kind::Rows, {}, 0, {}, {}); }

void Diagnostics::sectionMissing(const std::string& fullName, const std::string& label) {
  std::string near;
  if (sections_) {
    std::vector<std::string> names = sections_(fullName);
    near = text::closestWord(labelName(label), names);
    if (!near.empty()) near = "[" + near + "]";
  }
  const Frame* p = place();
  add(Finding::Kind::Section, label, p ? columnOf(p->raw, labelName(label)) : 0,
      fs::fromNative(fs::native(fullName).filename()), std::move(near));
}

void Diagnostics::runWarning(const RunWarning& w) {
  if (findings_.size() >= kMaxFindings) {
    ++dropped_;
    return;
  }
  findings_.push_back({Finding::Kind::Run, w.file, w.line, w.column, w.what, {}, {}});
}

void Diagnostics::add(Finding::Kind kind, const std::string& subject, long column,
                      std::string owner, std::string suggestion) {
  const Frame* p = place();
  Finding f;
  f.kind = kind;
  f.subject = subject;
  f.owner = std::move(owner);
  f.suggestion = std::move(suggestion);
  f.column = column;
  if (p) {
    f.file = p->file;
    f.line = p->line;
  }
  // A line read again (a repetition, a second insert) reports once.
  if (!seen_.insert({static_cast<int>(kind), f.file, f.line, subject}).second) return;
  if (findings_.size() >= kMaxFindings) {
    ++dropped_;
    return;
  }
  findings_.push_back(std::move(f));
}

std::string describeFinding(const Messages& messages, const Finding& f) {
  const std::string place = describePlace(messages, f.file, f.line, f.column);
  std::string what;
  switch (f.kind) {
    case Finding::Kind::Run:
      return place + f.subject;
    case Finding::Kind::Directive:
      what = messages.format(texts::check::kNoDirective, f.subject);
      break;
    case Finding::Kind::Assignment:
      what = messages.format(texts::check::kAssignment, f.subject);
      break;
    case Finding::Kind::Function:
      what = messages.format(texts::check::kNoFunction, f.subject);
      break;
    case Finding::Kind::Variable:
      what = messages.format(texts::check::kNoValue, f.subject);
      break;
    case Finding::Kind::Setting:
      what = messages.format(texts::check::kUnknownSetting, f.owner, f.subject);
      break;
    case Finding::Kind::Rows:
      what = messages.text(texts::check::kUnendedRows);
      break;
    case Finding::Kind::Section:
      what = messages.format(texts::check::kNoSection, f.owner, f.subject);
      break;
  }
  if (!f.suggestion.empty()) what += " " + messages.format(texts::check::kSuggestion, f.suggestion);
  return place + what;
}

}  // namespace korvane
