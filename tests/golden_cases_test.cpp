// The input language end to end: every tests/cases/NAME.ipf is compiled in a
// throw-away project holding the files of tests/cases (its macro files among
// them) and, if there is one, everything in the folder tests/cases/NAME/. What
// it gives must equal NAME.expected line for line: the MX lines without the
// sentinel lines, then what the options below show. A run that stops ends
// its lines with "stop: " and the English message, "|" for its line breaks.
// The project folder is written "<project>" throughout.
//
// Lines at the top of a case set it up:
//   ## engine: embedded    the embedded engine, so that model queries read the
//                          models the lines build (else the RecordingEngine,
//                          which runs nothing and knows no models)
//   ## setting: KEY=VALUE  an MX setting such as PrivateMacros; "<project>"
//                          in VALUE is the project folder
//   ## entry: ENTRY        compiles ENTRY (a project file, or "[section]" of
//                          the case) instead of the case; several run in turn
//                          with their variables carried over, as the entries
//                          of one run, each shown with what it gave
//   ## answer: TEXT        input() gets TEXT, each answer once in turn, then
//                          is cancelled; each question is shown "ask: "
//   ## show: log           what the run logs, "log: " a line
//   ## show: runs          the MX input of each run, "run: " (RecordingEngine)
//   ## show: FILE          the project file FILE at the end: "file FILE: " and
//                          its content, "(folder)" or "(none)"
// Asks, runs and log lines come after the entry's MX lines in the order they
// happened; shown text is C-escaped (\r, \n, \t, \\, \xHH).
//
// Each case is compiled twice, the second time with the diagnostics of
// `korvane check` watching: watching never changes what is compiled.
//
// A new case is two files. KORVANE_WRITE_GOLDEN=1 writes the .expected of
// every case from what the compiler gives now: read each one before keeping it.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <map>
#include <sstream>

#include "base/fs.h"
#include "base/messages.h"
#include "shell/diagnostics.h"
#include "support/project.h"
#include "support/vectors.h"

namespace korvane::test {
namespace {

namespace stdfs = std::filesystem;

stdfs::path casesFolder() { return stdfs::path(sourceDir()) / "tests" / "cases"; }

std::string escaped(const std::string& text) {
  std::string out;
  for (unsigned char c : text) {
    if (c == '\r' || c == '\n' || c == '\t' || c == '\\') {
      out += c == '\r' ? "\\r" : c == '\n' ? "\\n" : c == '\t' ? "\\t" : "\\\\";
    } else if (c < 0x20) {
      const char* hex = "0123456789ABCDEF";
      out += std::string("\\x") + hex[c >> 4] + hex[c & 15];
    } else {
      out += static_cast<char>(c);
    }
  }
  return out;
}

struct Setup {
  EngineChoice engine = EngineChoice::Recording;
  std::map<std::string, std::string> settings;
  std::vector<std::string> entries, answers, shown;
};

Setup setupOf(const std::string& source, const std::string& folder) {
  Setup s;
  std::istringstream in(source);
  for (std::string line; std::getline(in, line) && line.rfind("## ", 0) == 0;) {
    if (line.back() == '\r') line.pop_back();
    const std::size_t colon = line.find(": ");
    if (colon == std::string::npos) continue;
    const std::string key = line.substr(3, colon - 3), value = line.substr(colon + 2);
    if (key == "engine") s.engine = value == "embedded" ? EngineChoice::Embedded : s.engine;
    if (key == "setting") {
      const std::size_t eq = value.find('=');
      s.settings[value.substr(0, eq)] = replaceAll(value.substr(eq + 1), "<project>", folder);
    }
    if (key == "entry") s.entries.push_back(value);
    if (key == "answer") s.answers.push_back(value);
    if (key == "show") s.shown.push_back(value);
  }
  return s;
}

// Answers input() from the case's list and notes each question.
struct Answers : InputPrompt {
  std::vector<std::string> left;
  std::function<void(const std::string&)> note;
  bool ask(const std::string&, const std::string& prompt, std::string& answer) override {
    note("ask: " + escaped(prompt));
    if (left.empty()) return false;
    answer = left.front();
    left.erase(left.begin());
    return true;
  }
};

// What a case gives, in the form of its .expected file; `watched`: with the
// diagnostics of `korvane check` watching the compile.
std::string outcome(const std::string& name, bool watched) {
  TempProject project;
  for (const auto& e : stdfs::directory_iterator(casesFolder()))
    if (e.is_regular_file() && e.path().extension() != ".expected")
      project.write(e.path().filename().string(), fs::readFile(e.path().string()).value_or(""));
  if (stdfs::is_directory(casesFolder() / name))
    stdfs::copy(casesFolder() / name, fs::native(project.folder()), stdfs::copy_options::recursive);
  const Setup setup = setupOf(fs::readFile((casesFolder() / (name + ".ipf")).string()).value_or(""),
                              project.folder());
  Compiler c{project, setup.settings, setup.engine};
  Diagnostics diagnostics{c.ctx.language, c.ctx.vars, c.ctx.settingsPath};
  if (watched) c.ctx.observers.add(&diagnostics);
  const auto has = [&](const char* what) {
    return std::find(setup.shown.begin(), setup.shown.end(), what) != setup.shown.end();
  };

  std::string events;
  std::size_t runsSeen = 0;
  const auto note = [&](const std::string& event) {
    for (; has("runs") && runsSeen < c.engine.runs.size(); ++runsSeen)
      events += "run: " + escaped(c.engine.runs[runsSeen]) + "\n";
    if (!event.empty()) events += event + "\n";
  };
  Answers answers;
  answers.left = setup.answers;
  answers.note = note;
  if (!setup.answers.empty()) c.ctx.prompt = &answers;
  if (has("log")) c.ctx.log = [&](const std::string& line) { note("log: " + escaped(line)); };

  std::string out;
  for (std::string entry : setup.entries.empty() ? std::vector<std::string>{""} : setup.entries) {
    if (entry.empty() || entry[0] == '[')
      entry = name + ".ipf" + (entry.empty() ? "" : " ") + entry;
    c.lines.clear();
    const bool ok = c.compile(entry);
    note("");
    for (const auto& l : c.lines) out += l + "\n";
    out += events;
    events.clear();
    if (!ok) out += "stop: " + replaceAll(c.stopMessage(), "\n", " | ") + "\n";
  }
  for (const auto& file : setup.shown)
    if (file != "log" && file != "runs")
      out += "file " + file + ": " +
             (!project.exists(file)                                 ? "(none)"
              : stdfs::is_directory(fs::native(project.path(file))) ? "(folder)"
                                                                    : escaped(project.read(file))) +
             "\n";
  out = replaceAll(out, fs::withTrailingSeparator(project.folder()), "<project>/");
  return replaceAll(out, project.folder(), "<project>");
}

class GoldenCase : public ::testing::TestWithParam<std::string> {};

TEST_P(GoldenCase, CompilesToItsExpectedLines) {
  const std::string name = GetParam();
  const std::string got = outcome(name, false);
  expectFileHolds((casesFolder() / (name + ".expected")).string(), got);
  EXPECT_EQ(outcome(name, true), got) << "watching changed what " << name << " compiles";
}

INSTANTIATE_TEST_SUITE_P(Cases, GoldenCase, ::testing::ValuesIn(caseNames("cases", ".ipf")),
                         [](const auto& info) { return testName(info.param); });

}  // namespace
}  // namespace korvane::test
