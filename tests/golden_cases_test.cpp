// The input language end to end: every tests/cases/NAME.ipf is compiled in a
// throw-away project holding all the files of tests/cases (its macro files
// among them), and the MX lines it gives, without the sentinel lines, must
// equal NAME.expected line for line. A run that stops ends the expected lines
// with "stop: " and the English message, "|" for its line breaks and
// "<project>/" for the project folder (in the MX lines too).
//
// A case runs on the RecordingEngine, which runs nothing and knows no models.
// A case whose first line is "## engine: embedded" runs on the embedded engine
// instead, so that its model queries read the models its lines build.
//
// Each case is compiled twice, the second time with the diagnostics of
// `korvane check` watching: watching never changes what is compiled.
//
// A new case is two files. KORVANE_WRITE_GOLDEN=1 writes the .expected of
// every case from what the compiler gives now: read each one before keeping it.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "base/fs.h"
#include "base/messages.h"
#include "shell/diagnostics.h"
#include "support/project.h"

namespace korvane::test {
namespace {

namespace stdfs = std::filesystem;

stdfs::path casesFolder() { return stdfs::path(sourceDir()) / "tests" / "cases"; }

std::vector<std::string> caseNames() {
  std::vector<std::string> names;
  for (const auto& e : stdfs::directory_iterator(casesFolder()))
    if (e.path().extension() == ".ipf") names.push_back(e.path().stem().string());
  std::sort(names.begin(), names.end());
  return names;
}

std::string readAll(const stdfs::path& p) {
  std::ifstream in(p, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), {});
}

// What a case gives, in the form of its .expected file; `watched`: with the
// diagnostics of `korvane check` watching the compile.
std::string outcome(const std::string& name, bool watched) {
  TempProject project;
  for (const auto& e : stdfs::directory_iterator(casesFolder()))
    if (e.path().extension() != ".expected")
      project.write(e.path().filename().string(), readAll(e.path()));
  const std::string source = readAll(casesFolder() / (name + ".ipf"));
  const bool embedded = source.rfind("## engine: embedded", 0) == 0;
  Compiler c{project, {}, embedded ? EngineChoice::Embedded : EngineChoice::Recording};
  Diagnostics diagnostics{c.ctx.language, c.ctx.vars, c.ctx.settingsPath};
  if (watched) c.ctx.observers.add(&diagnostics);
  const bool ok = c.compile(name + ".ipf");
  std::string out;
  const std::string folder = fs::withTrailingSeparator(project.folder());
  for (const auto& l : c.lines) out += replaceAll(l, folder, "<project>/") + "\n";
  if (!ok) {
    std::string m =
        replaceAll(c.stopMessage(), fs::withTrailingSeparator(project.folder()), "<project>/");
    out += "stop: " + replaceAll(m, "\n", " | ") + "\n";
  }
  return out;
}

class GoldenCase : public ::testing::TestWithParam<std::string> {};

TEST_P(GoldenCase, CompilesToItsExpectedLines) {
  const std::string name = GetParam();
  const stdfs::path expectedFile = casesFolder() / (name + ".expected");
  const std::string got = outcome(name, false);
  if (std::getenv("KORVANE_WRITE_GOLDEN")) {
    std::ofstream(expectedFile, std::ios::binary) << got;
    return;
  }
  ASSERT_TRUE(stdfs::exists(expectedFile)) << "no " << expectedFile << "; it would be:\n" << got;
  EXPECT_EQ(got, readAll(expectedFile)) << name;
  EXPECT_EQ(outcome(name, true), got) << "watching changed what " << name << " compiles";
}

INSTANTIATE_TEST_SUITE_P(Cases, GoldenCase, ::testing::ValuesIn(caseNames()), [](const auto& info) {
  std::string n = info.param;
  std::replace_if(
      n.begin(), n.end(), [](char ch) { return !std::isalnum(ch); }, '_');
  return n;
});

}  // namespace
}  // namespace korvane::test
