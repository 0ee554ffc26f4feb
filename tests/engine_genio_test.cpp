// GENIO output read back: round trips through export and import, and the
// text 081 writes to a file. Runs that show what GENIO reads and writes in
// their listing are the cases of tests/engine_cases.
#include "base/fs.h"
#include "base/messages.h"
#include "support/engine.h"
#include "support/vectors.h"

using namespace korvane::engine;
using korvane::testing::EngineTest;

namespace {

void expectSameStrings(const ModelString& a, const ModelString& b) {
  EXPECT_EQ(a.header.label, b.header.label);
  EXPECT_EQ(a.header.subref, b.header.subref);
  EXPECT_EQ(a.header.dimension, b.header.dimension);
  EXPECT_EQ(a.header.level, b.header.level);
  ASSERT_EQ(a.points.size(), b.points.size()) << a.header.label;
  for (std::size_t i = 0; i < a.points.size(); ++i) {
    EXPECT_EQ(a.points[i].dims, b.points[i].dims) << a.header.label << " point " << i + 1;
    EXPECT_EQ(a.points[i].gapAfter, b.points[i].gapAfter) << a.header.label << " point " << i + 1;
  }
}

}  // namespace

// MX's own GENIO file of tests/engine_cases/genio_mx_style.txt imported and
// exported: the 3D string comes out exactly as MX wrote it.
TEST_F(EngineTest, GenioExportImportRoundTripIsLossless) {
  const std::string mx = korvane::test::sourceDir() + "/tests/engine_cases/genio_mx_style.txt";
  ASSERT_EQ(engine_->importGenio(mx, "ROAD").error, "");
  EXPECT_FALSE(engine_->modelExists("ROAD DESIGN"));  // the import names the model
  std::vector<std::string> lines, mxLines;
  engine_->exportGenio("ROAD", [&](const std::string& l) { lines.push_back(l); });
  splitLines(korvane::fs::readFile(mx).value_or(""), mxLines);
  const std::string header = "080,GX03,    ,5=       0.0,       0.0,";
  auto at = std::find(lines.begin(), lines.end(), header + "3");
  auto mxAt = std::find(mxLines.begin(), mxLines.end(), header + "100007703");
  ASSERT_TRUE(at != lines.end() && mxAt != mxLines.end());
  for (int i = 1; i <= 4; ++i) EXPECT_EQ(at[i], mxAt[i]);
  std::string text;
  for (const auto& l : lines) text += l + "\r\n";
  ASSERT_EQ(engine_->importGenio(project_.write("export.txt", text), "COPY").error, "");
  EXPECT_EQ(labels("COPY"), labels("ROAD"));
  for (const char* label : {"GX03", "MAST", "GEOM"})
    expectSameStrings(load("COPY", label), load("ROAD", label));
}

// What 081 writes is the engine case breaks_and_levels; written to a file
// with "over" it has its lines CRLF-ended, loads back as it was, and each
// "over" writes its file anew.
TEST_F(EngineTest, GenioOutputIsReloadableText) {
  ASSERT_EQ(run(korvane::test::engineCase("breaks_and_levels")), "");
  const std::string listed = listing();
  const std::size_t from = listed.find("   GENIO output"), to = listed.find("\n999\n", from);
  ASSERT_NE(to, std::string::npos) << listed;
  ASSERT_EQ(run("over,out.txt,genio\ngeni,M\n081\n999\n"), "");
  EXPECT_EQ(project_.read("out.txt"),
            korvane::replaceAll(listed.substr(from, to + 5 - from), "\n", "\r\n"));
  std::string reload = "geni,COPY\n";
  for (const std::string& l : readLines("out.txt")) reload += l + "\n";
  ASSERT_EQ(run(reload), "");
  for (const char* label : {"BRK", "CONT"})
    expectSameStrings(load("COPY", label), load("M", label));
  ASSERT_EQ(run("over,out.txt,genio\ngeni,M\n019,4=-1\n081\n999\n"), "");
  EXPECT_EQ(project_.read("out.txt"),
            "   GENIO output of model M (Korvane embedded engine)\r\n"
            "001FORMAT(3D23.17)\r\n003,ORDR,4=1,1,2,3\r\n999\r\n");
}
