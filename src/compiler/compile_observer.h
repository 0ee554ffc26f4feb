// Watching a compile as it goes: diagnostics and progress are observers of
// the one compile pass. The pass tells every observer what it meets at the
// points below; an observer never changes what is compiled.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

class CompileObserver {
 public:
  virtual ~CompileObserver() = default;
  // A file (or a section or part of it) is now read, and left again.
  virtual void fileEntered(const std::string& /*fullName*/) {}
  virtual void fileLeft() {}
  // A line of the innermost file is about to be compiled.
  virtual void lineRead(long /*line*/, const std::string& /*rawLine*/) {}
  // A line went to the compiled output as it is; `firstField` is its first
  // field (empty for a line of MX data).
  virtual void plainLine(const std::string& /*firstField*/) {}
  // A function call whose name is no function of the language.
  virtual void unknownFunction(const std::string& /*name*/) {}
  // A name that is no variable was evaluated (and stood for itself);
  // `inBars` when it was inside |...| in a line.
  virtual void unassignedName(const std::string& /*name*/, bool /*inBars*/) {}
  // A `default` line assigned `defaults` (before what the caller passed down).
  virtual void defaultsApplied(const std::string& /*defaults*/) {}
  // An extended command's keyword text after its default block ran;
  // `fixed` are the assignment lists the command itself makes.
  virtual void commandKeywordText(const std::string& /*keyword*/, const std::string& /*text*/,
                                  std::span<const std::string_view> /*fixed*/) {}
  // The default block of an extended command is about to run.
  virtual void defaultBlockOpening() {}
  // The data rows of a "single" or "double" repetition reached the end of
  // the file without an "end" line.
  virtual void rowsWithoutEnd() {}
  // A section label was not found in a file.
  virtual void sectionMissing(const std::string& /*fullName*/, const std::string& /*label*/) {}
  // A section of a file is compiled.
  virtual void sectionFound(const std::string& /*fullName*/, const std::string& /*label*/) {}
};

// The observers of a run; calls each in turn.
class CompileObservers {
 public:
  void add(CompileObserver* o) { list_.push_back(o); }
  void remove(CompileObserver* o) {
    for (auto it = list_.begin(); it != list_.end(); ++it)
      if (*it == o) {
        list_.erase(it);
        return;
      }
  }
  bool empty() const { return list_.empty(); }
  template <class F>
  void notify(F&& f) const {
    for (CompileObserver* o : list_) f(*o);
  }

 private:
  std::vector<CompileObserver*> list_;
};

}  // namespace korvane
