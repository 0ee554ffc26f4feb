// Test support: a throw-away project folder, and a compile run wired to it with
// the shipped settings and English language file.
#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "compiler/run_context.h"
#include "hosts/mx/null_engine.h"
#include "shell/driver.h"

namespace korvane::test {

class TempProject {
 public:
  TempProject();
  ~TempProject();
  TempProject(const TempProject&) = delete;
  TempProject& operator=(const TempProject&) = delete;

  // The folder, as Korvane text, with and without a trailing separator.
  std::string folder() const;
  std::string path(const std::string& relative) const;
  // Writes a file (creating folders); "\n" in `content` is written as given.
  std::string write(const std::string& relative, const std::string& content) const;
  std::string read(const std::string& relative) const;
  bool exists(const std::string& relative) const;

 private:
  std::filesystem::path root_;
};

// The value of a variable, "<unset>" when it has none.
std::string valueOf(const RunContext& ctx, const std::string& name);

// An engine that records the MX input of every run and answers model queries
// from a set the test fills.
class RecordingEngine final : public hosts::MxEngine, hosts::MxConfiguration, hosts::MxProject {
 public:
  RecordingEngine(std::string project, std::map<std::string, std::string> settings)
      : null_(project, settings), project_(std::move(project)), settings_(std::move(settings)) {}
  hosts::MxConfiguration& configuration() override { return *this; }
  hosts::MxProject& project() override { return *this; }
  hosts::MxDataAccess& dataAccess() override { return null_.dataAccess(); }
  hosts::MxModelLibrary& library() override { return null_.library(); }

  std::string setting(std::string_view name) override;
  hosts::MxRunResult run(std::string_view verb, const std::string& fullName) override;
  bool modelExists(std::string_view model) override;
  bool stringExists(std::string_view model, std::string_view label) override {
    return strings.count(std::string(model) + "/" + std::string(label)) > 0;
  }
  std::string currentFolder() override { return project_; }
  std::string projectFileName() override { return projectFile; }

  std::vector<std::string> runs;  // content of each run's input
  std::set<std::string> models, strings;
  std::string projectFile;     // the MX project file's name the engine answers
  bool leaveSentinel = false;  // simulate MX stopping before the end
  std::string failWith;        // error text the next runs report
  long failLine = 0;           // the input line the next runs name as refused
  std::string unreadable;      // a model whose store cannot be read: asking throws MxError

 private:
  hosts::NullEngine null_;
  std::string project_;
  std::map<std::string, std::string> settings_;
};

// The engine a Compiler runs its MX input on: the RecordingEngine, or the
// embedded engine on the project folder (model queries then see real models).
enum class EngineChoice { Recording, Embedded };

struct Compiler {
  explicit Compiler(const TempProject& project, std::map<std::string, std::string> settings = {},
                    EngineChoice choice = EngineChoice::Recording);
  // Compiles one run entry (a name relative to the project, optionally with
  // " [section]") as a run of its own; returns false when the run stopped.
  // Variables carry over as between the entries of one run.
  bool compile(const std::string& entry);
  // How the last compile stopped; nothing when it ran to its end.
  std::optional<Stopped> stopped;
  // The message it stopped with, as shown; empty when it ran to its end.
  std::string stopMessage() const;
  // The "Runtime" text of the run-time failure it stopped with, without its
  // place; "<none>" when no run-time failure stopped it.
  std::string failure() const;
  // The MX lines of the run so far, without sentinel lines.
  std::vector<std::string> lines;
  std::string var(const std::string& name) const { return valueOf(ctx, name); }

  const TempProject& project;
  RecordingEngine engine;
  std::unique_ptr<hosts::MxEngine> embedded;  // with EngineChoice::Embedded
  RunContext ctx;
};

// A compile state without a project folder or an engine: the whole language
// and the English messages, for expressions and functions that touch no file.
struct Evaluator {
  Evaluator();
  std::string eval(std::string_view expr);
  std::string var(const std::string& name) const { return valueOf(ctx, name); }
  RunContext ctx;
};

std::string sourceDir();

// Runs the korvane program in `folder` with `args` (a shell fragment), output
// in out.txt and err.txt there and no input; returns its exit status.
int runKorvane(const std::string& folder, const std::string& args);

}  // namespace korvane::test
