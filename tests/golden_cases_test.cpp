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
//   ## run: WORD           the entries run as the Run command runs them, to
//                          the first that stops, its progress and status shown
//                          ("entry N", "MX run", "status: "), with one line
//                          each of "entries", "save one", "save separate"
//   ## refuse: LINE TEXT   each run of the RecordingEngine stops early at the
//                          MX input's line LINE with the error TEXT
//   ## unreadable: MODEL   the RecordingEngine cannot read MODEL's store
//   ## excel: recording    Excel is the RecordingExcel of
//                          support/recording_excel.h, its notes shown "excel: "
//   ## excel: files        workbooks read and written as files (the case is
//                          skipped where they are not built)
//   ## excel: automation   Excel over automation as on Windows, against the
//                          recording objects of support/automation.h: Excel
//                          runs (a macro's result text is "crea,FROM MACRO"),
//                          and every workbook's cells hold 12.5; "automation
//                          without Excel": none runs
//   ## cad: WORD           AutoCAD and MicroStation as support/automation.h
//                          fakes them; one line each of "autocad" (AutoCAD
//                          18.0 runs), "no document" (it has none open),
//                          "microstation" (MicroStation runs), "keep"
//                          (numbered copies of the scripts kept), "none"
//   ## python: SCRIPT ARGS runs tests/workbooks/SCRIPT before the compile
//                          ("<project>" in ARGS is the project folder); shown
//                          "python SCRIPT: " with its exit status and output
//   ## python after: ...   the same after the compile
//   ## show: log           what the run logs, "log: " a line
//   ## show: runs          the MX input of each run, "run: " (RecordingEngine)
//   ## show: written       the files the run says it wrote, "written: " each
//   ## show: models        the embedded engine's models at the end, "model: "
//                          with how many strings and points each has
//   ## show: FILE          the project file FILE at the end: "file FILE: " and
//                          its content, "(folder)" or "(none)"
// Asks, runs, log lines, Excel's notes and the calls of automation (shown
// "automation: ") come after the entry's MX lines in the order they happened; shown text is
// C-escaped (\r, \n, \t, \\, \xHH).
//
// Each case is compiled twice, the second time with the diagnostics of
// `korvane check` watching: watching never changes what is compiled.
//
// A new case is two files. KORVANE_WRITE_GOLDEN=1 writes the .expected of
// every case from what the compiler gives now: read each one before keeping it.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <sstream>

#include "base/fs.h"
#include "base/messages.h"
#include "engine/embedded_engine.h"
#include "shell/autocad_lookup.h"
#include "shell/cad_players.h"
#include "shell/diagnostics.h"
#include "shell/run_command.h"
#include "support/automation.h"
#include "support/process.h"
#include "support/project.h"
#include "support/recording_excel.h"
#include "support/vectors.h"
#ifdef KORVANE_WORKBOOK_FILES
#include "hosts/excel/workbook/workbook_files.h"
#endif

namespace korvane::test {
namespace {

namespace stdfs = std::filesystem;

stdfs::path casesFolder() { return stdfs::path(sourceDir()) / "tests" / "cases"; }

// `text` with the project folder written "<project>" and "/" between the
// names of a path under it, then C-escaped when `escape`.
std::string shown(const std::string& text, const std::string& folder, bool escape = true) {
  const char* hex = "0123456789ABCDEF";
  std::string out;
  bool inPath = false;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text.compare(at, folder.size(), folder) == 0) {
      out += "<project>";
      at += folder.size() - 1;
      inPath = true;
      continue;
    }
    const unsigned char c = text[at];
    inPath =
        inPath && c > ' ' && std::string(",|\")").find(static_cast<char>(c)) == std::string::npos;
    if (inPath && c == '\\')
      out += '/';
    else if (!escape || (c >= ' ' && c != '\\'))
      out += static_cast<char>(c);
    else if (c == '\r' || c == '\n' || c == '\t' || c == '\\')
      out += c == '\r' ? "\\r" : c == '\n' ? "\\n" : c == '\t' ? "\\t" : "\\\\";
    else
      out += std::string("\\x") + hex[c >> 4] + hex[c & 15];
  }
  return out;
}

// One compile of a case, gathering what it gives.
struct CaseRun : InputPrompt, RunProgress, StatusSink {
  TempProject project;
  const std::string name, folder = project.folder();
  std::multimap<std::string, std::string> options;  // "## KEY: VALUE" at the case's top
  std::unique_ptr<Compiler> c;
  std::vector<std::string> answers, calls;  // calls: of automation objects
  RecordingSystem automation{calls};
  FakeAutoCad acad{calls};
  std::unique_ptr<hosts::ExcelHost> excel;
  std::size_t callsSeen = 0;
  std::string out, events;
  std::size_t runsSeen = 0;

  explicit CaseRun(const std::string& caseName) : name(caseName) {
    for (const auto& e : stdfs::directory_iterator(casesFolder()))
      if (e.is_regular_file() && e.path().extension() != ".expected")
        project.write(e.path().filename().string(), fs::readFile(e.path().string()).value_or(""));
    if (stdfs::is_directory(casesFolder() / name))
      stdfs::copy(casesFolder() / name, fs::native(folder), stdfs::copy_options::recursive);
    std::istringstream source(project.read(name + ".ipf"));
    for (std::string line; std::getline(source, line) && line.rfind("## ", 0) == 0;) {
      const std::size_t colon = line.find(": "), end = line.find_last_not_of('\r') + 1;
      if (colon != std::string::npos)
        options.emplace(line.substr(3, colon - 3),
                        replaceAll(line.substr(colon + 2, end - colon - 2), "<project>", folder));
    }
    std::map<std::string, std::string> settings;
    for (const std::string& s : all("setting"))
      settings[s.substr(0, s.find('='))] = s.substr(s.find('=') + 1);
    c = std::make_unique<Compiler>(
        project, settings,
        has("engine", "embedded") ? EngineChoice::Embedded : EngineChoice::Recording);
    for (const std::string& model : all("unreadable")) c->engine.unreadable = model;
    for (const std::string& refusal : all("refuse")) {
      c->engine.leaveSentinel = true;
      c->engine.failLine = std::stol(refusal);
      c->engine.failWith = refusal.substr(refusal.find(' ') + 1);
    }
    answers = all("answer");
    if (!answers.empty()) c->ctx.prompt = this;
    if (has("show", "log"))
      c->ctx.log = [this](const std::string& l) { note("log: " + shown(l, folder)); };
    if (has("excel", "recording"))
      excel = std::make_unique<RecordingExcel>(
          [this](const std::string& n) { note("excel: " + shown(n, folder)); });
#ifdef KORVANE_WORKBOOK_FILES
    if (has("excel", "files")) excel = hosts::makeWorkbookFiles();
#endif
    if (has("excel", "automation") || has("excel", "automation without Excel"))
      excel = automationExcel();
    c->ctx.excel = excel.get();
    if (all("cad").empty()) return;
    if (has("cad", "autocad")) acad.runIn(automation);
    if (has("cad", "no document")) acad.app->answers["ActiveDocument"] = hosts::AutoValue();
    if (has("cad", "microstation")) {
      auto station = std::make_shared<RecordingObject>(calls, "ustn");
      station->answers["CadInputQueue"] =
          hosts::AutoObject(std::make_shared<RecordingObject>(calls, "queue"));
      automation.running["MicroStationDGN.Application"] = station;
    }
    c->ctx.players = makeCadPlayers(automation, CadOptions{has("cad", "keep")});
    c->ctx.autocad = autoCadFinder(automation);
  }

  std::unique_ptr<hosts::ExcelHost> automationExcel() {
    const auto object = [this](const char* name) {
      auto o = std::make_shared<RecordingObject>(calls, name);
      o->logGets = true;
      return o;
    };
    auto book = object("book"), sheets = object("sheets"), sheet = object("sheet");
    auto cell = object("cell");
    book->answers["Worksheets"] = hosts::AutoObject(sheets);
    sheets->answers["Item"] = hosts::AutoObject(sheet);
    sheet->answers["Cells"] = sheet->answers["Range"] = hosts::AutoObject(cell);
    cell->answers["Value"] = 12.5;
    automation.anyFile = book;
    if (has("excel", "automation")) {
      auto app = object("excel");
      app->onCall = [](const std::string&, std::vector<hosts::AutoValue>& args) {
        if (args.size() > 3) args[3] = hosts::AutoValue("crea,FROM MACRO");  // by reference
        return hosts::AutoValue();
      };
      automation.running["Excel.Application"] = app;
      automation.processes["excel.exe"] = {"EXCEL.EXE"};
    }
    return hosts::makeAutomationExcel(automation);
  }

  std::vector<std::string> all(const std::string& key) const {
    std::vector<std::string> values;
    for (auto [at, end] = options.equal_range(key); at != end; ++at) values.push_back(at->second);
    return values;
  }
  bool has(const std::string& key, const std::string& value) const {
    const std::vector<std::string> values = all(key);
    return std::find(values.begin(), values.end(), value) != values.end();
  }
  // Notes an event, after the MX runs and automation calls made before it.
  void note(const std::string& event) {
    for (; has("show", "runs") && runsSeen < c->engine.runs.size(); ++runsSeen)
      events += "run: " + shown(c->engine.runs[runsSeen], folder) + "\n";
    for (; callsSeen < calls.size(); ++callsSeen)
      events += "automation: " + shown(calls[callsSeen], folder) + "\n";
    if (!event.empty()) events += event + "\n";
  }
  void entryStarted(std::size_t i, std::size_t, const std::string&) override {
    note("entry " + std::to_string(i + 1));
  }
  void engineRun(std::size_t, const EngineRunCause& run) override {
    note("MX run " + std::to_string(run.number));
  }
  void status(const std::string& text) override { note("status: " + text); }
  bool ask(const std::string&, const std::string& prompt, std::string& answer) override {
    note("ask: " + shown(prompt, folder));
    if (answers.empty()) return false;
    answer = answers.front();
    answers.erase(answers.begin());
    return true;
  }
  // Runs "SCRIPT ARGS" of tests/workbooks/ in the project.
  void python(const std::string& command) {
    ProgramRun run;
    run.argv = shellWords(command);
    run.argv[0] = sourceDir() + "/tests/workbooks/" + run.argv[0];
    run.argv.insert(run.argv.begin(), "/usr/bin/python3");
    run.out = run.err = project.path("python.txt");
    const int status = runProgram(run);
    out += shown("python " + command + ": " + std::to_string(status) + " " +
                     project.read("python.txt"),
                 folder) +
           "\n";
  }

  // The MX lines and the events so far, and the message the entry stopped with.
  void lines(const std::string& stop) {
    note("");
    for (const auto& l : c->lines) out += shown(l, folder, false) + "\n";
    out += events;
    events.clear();
    c->lines.clear();
    if (!stop.empty()) out += "stop: " + shown(replaceAll(stop, "\n", " | "), folder, false) + "\n";
  }

  // What the case gives, in the form of its .expected file.
  std::string outcome() {
    for (const std::string& command : all("python")) python(command);
    std::vector<std::string> entries = all("entry");
    if (entries.empty()) entries.push_back("");
    for (std::string& entry : entries)
      entry = entry.empty() || entry[0] == '[' ? name + ".ipf" + (entry.empty() ? "" : " " + entry)
                                               : entry;
    if (!all("run").empty()) {
      for (std::string& entry : entries) entry = project.path(entry);
      c->ctx.statusSink = this;
      const RunOutcome o = runEntries(
          c->ctx, entries,
          {.saveOne = has("run", "save one"), .saveSeparate = has("run", "save separate")}, this);
      entries.clear();  // ran
      lines(o.stopped ? o.message : "");
      out += "entries run: " + std::to_string(o.entriesRun) +
             (o.stopped ? ", stopped at entry " + std::to_string(o.stoppedAt + 1) : "") + "\n";
    }
    for (const std::string& entry : entries) {
      c->lines.clear();
      const bool ok = c->compile(entry);
      lines(ok ? "" : c->stopMessage());
    }
    for (const std::string& command : all("python after")) python(command);
    if (has("show", "written"))
      for (const std::string& file : c->ctx.filesWritten)
        out += "written: " + shown(file, folder) + "\n";
    if (has("show", "models"))
      for (const auto& m : dynamic_cast<engine::EmbeddedEngine&>(*c->embedded).models())
        out += "model: " + m.name + " " + std::to_string(m.strings) + " " +
               std::to_string(m.points) + "\n";
    for (const std::string& file : all("show"))
      if (file != "log" && file != "runs" && file != "written" && file != "models")
        out += "file " + file + ": " +
               (!project.exists(file) ? "(none)"
                : stdfs::is_directory(fs::native(project.path(file)))
                    ? "(folder)"
                    : shown(project.read(file), folder)) +
               "\n";
    return out;
  }
};

class GoldenCase : public ::testing::TestWithParam<std::string> {};

TEST_P(GoldenCase, CompilesToItsExpectedLines) {
  const std::string name = GetParam();
#ifndef KORVANE_WORKBOOK_FILES
  if (fs::readFile((casesFolder() / (name + ".ipf")).string())->find("## excel: files") !=
      std::string::npos)
    GTEST_SKIP() << "workbook files are not built here";
#endif
  const std::string got = CaseRun(name).outcome();
  expectFileHolds((casesFolder() / (name + ".expected")).string(), got);
  // Each case again with the diagnostics of `korvane check` watching.
  CaseRun watched(name);
  Diagnostics diagnostics{watched.c->ctx.language, watched.c->ctx.vars,
                          watched.c->ctx.settingsPath};
  watched.c->ctx.observers.add(&diagnostics);
  EXPECT_EQ(watched.outcome(), got) << "watching changed what " << name << " compiles";
}

INSTANTIATE_TEST_SUITE_P(Cases, GoldenCase, ::testing::ValuesIn(caseNames("cases", ".ipf")),
                         [](const auto& info) { return testName(info.param); });

}  // namespace
}  // namespace korvane::test
