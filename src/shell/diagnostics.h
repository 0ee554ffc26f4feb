// Warnings about an input that compiles but probably not as its writer
// meant: words close to a directive that go to MX as they stand, calls of
// functions that do not exist, names read before any assignment, settings
// that a command's default block does not know, data rows without "end",
// section labels that are not there. Gathered by watching the real compile
// pass, so they follow exactly what the compile does.
#pragma once

#include <cstddef>
#include <functional>
#include <set>
#include <string>
#include <tuple>
#include <unordered_set>
#include <vector>

#include "base/messages.h"
#include "compiler/compile_observer.h"
#include "compiler/run_warnings.h"

namespace korvane {

struct LanguageTables;
class VariableTable;

struct Finding {
  // Run: a warning of the compile itself (compiler/run_warnings.h), its text in `subject`.
  enum class Kind { Directive, Assignment, Function, Variable, Setting, Rows, Section, Run };
  Kind kind = Kind::Directive;
  std::string file;  // empty when the place is not known
  long line = 0;
  long column = 0;         // 1-based; 0 when only the line is known
  std::string subject;     // the word, name or label
  std::string owner;       // the command of a setting; the file of a section
  std::string suggestion;  // "did you mean", when one is close
};

class Diagnostics final : public CompileObserver {
 public:
  // Findings kept per run; the rest are only counted.
  static constexpr std::size_t kMaxFindings = 1000;
  using SectionLister = std::function<std::vector<std::string>(const std::string& file)>;

  // `settingsFile` holds the commands' default blocks: findings there are
  // placed at the line of the input that ran the block.
  Diagnostics(const LanguageTables* language, const VariableTable& vars, std::string settingsFile,
              SectionLister sections = {});

  const std::vector<Finding>& findings() const { return findings_; }
  std::size_t count() const { return findings_.size() + dropped_; }
  void clear();

  void fileEntered(const std::string& fullName) override;
  void fileLeft() override;
  void lineRead(long line, const std::string& rawLine) override;
  void plainLine(const std::string& firstField) override;
  void unknownFunction(const std::string& name) override;
  void unassignedName(const std::string& name, bool inBars) override;
  void defaultBlockOpening() override;
  void defaultsApplied(const std::string& defaults) override;
  void commandKeywordText(const std::string& keyword, const std::string& text,
                          std::span<const std::string_view> fixed) override;
  void rowsWithoutEnd() override;
  void sectionMissing(const std::string& fullName, const std::string& label) override;
  // A warning the compile told, kept in order among the findings.
  void runWarning(const RunWarning& w);

 private:
  struct Frame {
    std::string file;
    bool settings = false;
    long line = 0;
    std::string raw;
  };
  // The innermost frame that is not the settings file; null outside a file.
  const Frame* place() const;
  void add(Finding::Kind kind, const std::string& subject, long column, std::string owner,
           std::string suggestion);
  bool isSettingsFile(const std::string& file) const;

  const LanguageTables* language_;
  const VariableTable& vars_;
  std::string settingsFile_;
  SectionLister sections_;
  std::vector<Frame> frames_;
  std::vector<std::string> keywords_, functions_;
  bool blockOpen_ = false;
  std::vector<std::string> defaults_;
  std::vector<Finding> findings_;
  std::size_t dropped_ = 0;
  std::set<std::tuple<int, std::string, long, std::string>> seen_;
  std::unordered_set<std::string> weighed_;  // words outside |...| already weighed
};

// One finding as a line of text: the place, what was found and, when close,
// what was probably meant.
std::string describeFinding(const Messages& messages, const Finding& f);

}  // namespace korvane
