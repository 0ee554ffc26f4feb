#include "support/project.h"

#include <atomic>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "base/fs.h"
#include "compiler/compiled_output.h"
#include "compiler/expression.h"
#include "compiler/failure_message.h"
#include "engine/embedded_engine.h"
#include "shell/standard_language.h"
#include "support/process.h"

namespace korvane::test {
namespace stdfs = std::filesystem;

std::string sourceDir() { return KORVANE_SOURCE_DIR; }

int runKorvane(const std::string& folder, const std::string& args) {
  ProgramRun run;
  run.argv = shellWords(args);
  run.argv.insert(run.argv.begin(), builtProgram("korvane"));
  run.folder = folder;
  run.out = fs::join(folder, "out.txt");
  run.err = fs::join(folder, "err.txt");
  return runProgram(run);
}

TempProject::TempProject() {
  static std::atomic<int> counter{0};
  root_ = stdfs::temp_directory_path() /
          ("korvane-test-" + std::to_string(currentProcessId()) + "-" + std::to_string(counter++));
  stdfs::remove_all(root_);
  stdfs::create_directories(root_);
}

TempProject::~TempProject() {
  std::error_code ec;
  stdfs::remove_all(root_, ec);
}

std::string TempProject::folder() const { return fs::fromNative(root_); }
std::string TempProject::path(const std::string& relative) const {
  std::string r = relative;
  for (char& c : r)
    if (fs::isSeparator(c)) c = fs::kSep;  // the system's own separator, as the program joins
  return fs::join(folder(), r);
}

std::string TempProject::write(const std::string& relative, const std::string& content) const {
  stdfs::path p = root_ / relative;
  stdfs::create_directories(p.parent_path());
  std::ofstream(p, std::ios::binary) << content;
  return path(relative);
}

std::string TempProject::read(const std::string& relative) const {
  std::ifstream in(root_ / relative, std::ios::binary);
  std::stringstream s;
  s << in.rdbuf();
  return s.str();
}

bool TempProject::exists(const std::string& relative) const {
  return stdfs::exists(root_ / relative);
}

std::string RecordingEngine::setting(std::string_view name) {
  auto it = settings_.find(std::string(name));
  return it == settings_.end() ? std::string() : it->second;
}

bool RecordingEngine::modelExists(std::string_view model) {
  if (!unreadable.empty() && model == unreadable)
    throw hosts::MxError("the store of " + unreadable + " is damaged");
  return models.count(std::string(model)) > 0;
}

hosts::MxRunResult RecordingEngine::run(std::string_view, const std::string& fullName) {
  runs.push_back(fs::readFile(fullName).value_or("<unreadable>"));
  // MX that stops early leaves the sentinel model; one that reaches the end deletes it.
  if (leaveSentinel)
    models.insert(std::string(kSentinelModel));
  else
    models.erase(std::string(kSentinelModel));
  hosts::MxRunResult result;
  result.error = failWith;
  result.errorLine = failLine;
  return result;
}

Compiler::Compiler(const TempProject& p, std::map<std::string, std::string> settings,
                   EngineChoice choice)
    : project(p), engine(p.folder(), settings) {
  ctx.projectFolder = fs::withTrailingSeparator(p.folder());
  ctx.settingsPath = sourceDir() + "/data/Korvane.ini";
  ctx.messages = Messages(sourceDir() + "/data/English.lng");
  ctx.language = &standardLanguage();
  ctx.engine = &engine;
  if (choice == EngineChoice::Embedded) {
    engine::EngineOptions options;
    options.projectFolder = p.folder();
    options.settings = std::move(settings);
    std::string error;
    embedded = engine::EmbeddedEngine::create(options, error);
    if (!embedded) throw std::runtime_error("embedded engine: " + error);
    ctx.engine = embedded.get();
  }
  ctx.output.setMxTap([this](std::string_view line) { lines.emplace_back(line); });
}

bool Compiler::compile(const std::string& entry) {
  stopped = ApplyOneFile(ctx, fs::isAbsolute(entry) ? entry : project.path(entry));
  return !stopped;
}

std::string Compiler::stopMessage() const { return stopped ? stopped->message : std::string(); }

std::string Compiler::failure() const {
  if (!stopped || stopped->failure.kind() != CompileFailure::Kind::Runtime) return "<none>";
  return runtimeText(ctx.messages, stopped->failure);
}

Evaluator::Evaluator() {
  ctx.messages = Messages(sourceDir() + "/data/English.lng");
  ctx.language = &standardLanguage();
}

std::string Evaluator::eval(std::string_view expr) { return Evaluate(ctx, expr); }

std::string valueOf(const RunContext& ctx, const std::string& name) {
  const std::string* v = ctx.vars.find(name);
  return v ? *v : "<unset>";
}

}  // namespace korvane::test
