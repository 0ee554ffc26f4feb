// Test support: input texts compiled in a throw-away project with the Excel
// host under test, and the Python scripts of tests/workbooks/ that make
// workbooks as other programs store them and check what Korvane wrote.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "hosts/excel.h"
#include "support/process.h"
#include "support/project.h"

namespace korvane::test {

// GENIO lines that make the model T, whose string S1 runs (10,10) (13,14)
// (19,22): chainages 0, 5 and 15, a master for the ditch commands.
inline constexpr const char* kDitchModel =
    "geni,T\r\n001format(3f12.3)\r\n080,S1,,7=3\r\n"
    "00000010.00000000010.00000000000.000\r\n00000013.00000000014.00000000000.000\r\n"
    "00000019.00000000022.00000000000.000\r\n00000000.00000000000.00000000000.000\r\n999\r\n";

struct ExcelProject : ::testing::Test {
  TempProject project;
  Compiler c;
  std::unique_ptr<hosts::ExcelHost> excel;

  explicit ExcelProject(EngineChoice engine = EngineChoice::Recording) : c{project, {}, engine} {
    project.write("excel/.keep", "");  // the project's workbook folder
  }
  void use(std::unique_ptr<hosts::ExcelHost> host) {
    excel = std::move(host);
    c.ctx.excel = excel.get();
  }
  // Compiles `text` as the input q.ipf; false when the run stopped.
  bool compile(const std::string& text) {
    project.write("q.ipf", text);
    return c.compile("q.ipf");
  }
  std::string failure() const { return c.failure(); }

  // Runs the Python script tests/workbooks/`script` with `args`; what it
  // prints is python().
  int python(const std::string& script, std::vector<std::string> args) {
    ProgramRun run;
    run.argv = {"/usr/bin/python3", sourceDir() + "/tests/workbooks/" + script};
    run.argv.insert(run.argv.end(), args.begin(), args.end());
    run.out = run.err = project.path("python.txt");
    return runProgram(run);
  }
  std::string python() const { return project.read("python.txt"); }
};

}  // namespace korvane::test
