// Where compiled lines come from: each line of the output gets back the place
// it was written from. That an engine error names the input line that wrote
// the refused MX line, with the inserts and repetitions that led there, is
// the golden cases engine_error_*; a run-time failure inside an inserted file
// is failure_in_an_inserted_file.
#include "compiler/source_map.h"

#include <gtest/gtest.h>

#include "compiler/compiled_output.h"
#include "support/project.h"

using namespace korvane;

namespace {

// The output keeps the places of its lines in runs; every line must still get
// its own place back, whatever mix of plain lines, many lines from one line and
// lines from nowhere was written.
TEST(SourceMap, EveryOutputLineGetsItsPlaceBackFromTheRuns) {
  test::TempProject project;
  SourceMap m;
  CompiledOutput out;
  out.setSourceMap(&m);
  out.open(project.path("tmpinput.txt"));
  std::vector<SourceOrigin> written;
  auto write = [&](const char* text) {
    out.writeLine(text);
    written.push_back(isSentinelLine(text) ? SourceOrigin{} : m.here());
  };
  write(std::string(kSentinelCreate).c_str());
  m.enter("a", 0);
  for (long line : {1, 2, 3, 3, 3, 7, 8, 8, 9, 10, 4}) {
    m.atLine(line);
    write("crea,x");
  }
  m.enter("b", 1);
  m.atLine(1);
  write("crea,y");
  m.leave();
  m.enter("b", 2);
  m.atLine(1);
  write("crea,y");
  write(std::string(kSentinelDelete).c_str());
  m.leave();
  m.atLine(11);
  write("crea,z");
  // Repeated parts of three lines and of one line, pass after pass.
  for (long pass = 1; pass <= 500; ++pass) {
    m.enter("c", pass);
    for (long line : {2, 3, 4}) {
      m.atLine(line);
      write("crea,c");
    }
    m.leave();
  }
  m.atLine(12);
  for (long pass = 1; pass <= 500; ++pass) {
    m.enter("d", pass);
    m.atLine(2);
    write("crea,d");
    m.leave();
  }
  for (std::size_t i = 0; i < written.size(); ++i) {
    SCOPED_TRACE(i + 1);
    EXPECT_EQ(out.originOfLine(static_cast<long>(i) + 1), written[i]);
  }
  EXPECT_EQ(out.originOfLine(0).node, SourceMap::kNone);
  EXPECT_EQ(out.originOfLine(static_cast<long>(written.size()) + 1).node, SourceMap::kNone);
  // Passes of a repetition share the node of the place they are read from, and
  // their lines one run: the map and the runs do not grow with the passes.
  EXPECT_EQ(m.nodeCount(), 4u);
  // Runs: the two sentinels; a's 1-3, 3-3, 7-8, 8-10, 4; b's two passes;
  // z; c's 500 passes; d's 500 passes.
  EXPECT_EQ(out.originRuns(), 11u);
}

}  // namespace
