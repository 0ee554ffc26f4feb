// GENIO input and output through engine runs: MX-style files, FORMAT and ORDR
// variants, selection masks, redirection and round trips.
#include "support/engine.h"

using namespace korvane::engine;
using korvane::testing::EngineTest;

namespace {

// A GENIO file as MX writes it: 3D23.17 with D exponents, a 3D string with a
// null level, a 6D master string (two records a point) and a 12D geometry
// string (three records a point, codes as A4 texts).
const char* const kMxStyle =
    "GENIO ROAD DESIGN\n"
    "017,NORM\n"
    "001FORMAT(3D23.17)\n"
    "003,ORDR,4=1,1,2,3,\n"
    "080,GX03,    ,5=       0.0,       0.0,100007703\n"
    "0.65010025000000000D+060.24030050000000000D+060.11234000000000000D+03\n"
    "0.65011025000000000D+060.24030050000000000D+06-.99900000000000000D+03\n"
    "0.65012075000000000D+060.24031000000000000D+060.11350000000000000D+03\n"
    "0.00000000000000000D+000.00000000000000000D+000.11350000000000000D+03\n"
    "003,ORDR,4=1,1,2,3,4,5,6,\n"
    "080,MAST,    ,5=       0.0,       0.0,100007706\n"
    "0.65010000000000000D+060.24030000000000000D+060.11000000000000000D+03\n"
    "0.00000000000000000D+000.15707963267949000D+010.00000000000000000D+00\n"
    "0.65020000000000000D+060.24030000000000000D+060.11100000000000000D+03\n"
    "0.10000000000000000D+030.15707963267949000D+010.00000000000000000D+00\n"
    "0.00000000000000000D+000.00000000000000000D+000.11100000000000000D+03\n"
    "0.00000000000000000D+000.00000000000000000D+000.00000000000000000D+00\n"
    "001FORMAT(3D23.17/3D23.17/2D23.17,4A4)\n"
    "003,ORDR,4=1,1,2,3,4,5,6,7,8,9,10,11,12,\n"
    "080,GEOM,MAST,5=       0.0,       0.0,100007712\n"
    "0.65010000000000000D+060.24030000000000000D+060.11000000000000000D+03\n"
    "0.00000000000000000D+000.15707963267949000D+010.00000000000000000D+00\n"
    "0.25000000000000000D-010.00000000000000000D+00ST  SG\n"
    "0.00000000000000000D+000.00000000000000000D+000.11000000000000000D+03\n"
    "0.00000000000000000D+000.00000000000000000D+000.00000000000000000D+00\n"
    "0.00000000000000000D+000.00000000000000000D+00\n"
    "999\n"
    "FINISH\n";

// Three 3D strings written in F format, one point a record.
const char* const kThreeStrings =
    "geni,M\n"
    "001FORMAT(3F12.3)\n"
    "003,ORDR,4=1,1,2,3\n"
    "080,A001\n"
    "     100.000     200.000      10.000\n"
    "     110.000     200.000      11.000\n"
    "       0.000       0.000       0.000\n"
    "080,A002\n"
    "     300.000     400.000      20.000\n"
    "       0.000       0.000       0.000\n"
    "080,B001\n"
    "     500.000     600.000      30.000\n"
    "     510.000     600.000      31.000\n"
    "     520.000     600.000      32.000\n"
    "       0.000       0.000       0.000\n"
    "080,C001\n"
    "     700.000     800.000      40.000\n"
    "       0.000       0.000       0.000\n"
    "999\n";

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

TEST_F(EngineTest, GenioMxStyleFileLoadsEveryDimension) {
  write("mx.txt", kMxStyle);
  ASSERT_EQ(engine_->importGenio(path("mx.txt"), "ROAD").error, "");
  EXPECT_EQ(labels("ROAD"), (std::vector<std::string>{"GX03", "MAST", "GEOM"}));
  EXPECT_FALSE(engine_->modelExists("ROAD DESIGN"));  // the import names the model

  ModelString gx = load("ROAD", "gx03");
  ASSERT_EQ(gx.points.size(), 3u);
  EXPECT_EQ(gx.header.dimension, 3);  // 100007703: the last two digits
  EXPECT_EQ(gx.points[0].dims[0].num, 650100.25);
  EXPECT_EQ(gx.points[1].dims[2].num, -999.0);

  ModelString mast = load("ROAD", "MAST");
  ASSERT_EQ(mast.points.size(), 2u);
  ASSERT_EQ(mast.points[1].dims.size(), 6u);
  EXPECT_EQ(mast.points[1].dims[3].num, 100.0);
  EXPECT_EQ(mast.points[1].dims[4].num, 1.5707963267949);

  ModelString geom = load("ROAD", "GEOM");
  ASSERT_EQ(geom.points.size(), 1u);
  EXPECT_EQ(geom.header.subref, "MAST");
  EXPECT_EQ(geom.points[0].dims[6].num, 0.025);
  EXPECT_EQ(geom.points[0].dims[8], DimValue::text("ST"));
  EXPECT_EQ(geom.points[0].dims[9], DimValue::text("SG"));
  EXPECT_EQ(geom.points[0].dims[11], DimValue::text(""));
}

TEST_F(EngineTest, GenioExportImportRoundTripIsLossless) {
  write("mx.txt", kMxStyle);
  ASSERT_EQ(engine_->importGenio(path("mx.txt"), "ROAD").error, "");
  std::vector<std::string> lines;
  engine_->exportGenio("ROAD", [&](const std::string& l) { lines.push_back(l); });

  // The 3D string comes out exactly as MX wrote it.
  std::vector<std::string> mx;
  splitLines(kMxStyle, mx);
  auto at = std::find(lines.begin(), lines.end(), "080,GX03,    ,5=       0.0,       0.0,3");
  ASSERT_NE(at, lines.end());
  for (int i = 1; i <= 4; ++i) EXPECT_EQ(at[i], mx[4 + i]);
  EXPECT_NE(std::find(lines.begin(), lines.end(), "001FORMAT(3D23.17/3D23.17/2D23.17,4A4)"),
            lines.end());
  EXPECT_NE(std::find(lines.begin(), lines.end(), "003,ORDR,4=1,1,2,3,4,5,6"), lines.end());
  EXPECT_EQ(lines.back(), "999");
  EXPECT_EQ(lines.front().rfind("   ", 0), 0u);  // the banner is a comment

  std::string text;
  for (const auto& l : lines) text += l + "\r\n";
  write("export.txt", text);
  ASSERT_EQ(engine_->importGenio(path("export.txt"), "COPY").error, "");
  EXPECT_EQ(labels("COPY"), labels("ROAD"));
  for (const char* label : {"GX03", "MAST", "GEOM"})
    expectSameStrings(load("COPY", label), load("ROAD", label));
}

TEST_F(EngineTest, GenioSelectionMasksChooseTheStringsWritten) {
  ASSERT_EQ(run(kThreeStrings), "");
  // A001 included, other A strings excluded, everything else matches no mask: included.
  ASSERT_EQ(run("over,sel1.txt,genio\ngeni,M\n019,A001,4=1\n019,A,4=-1\n081\n999\n"
                "geni,M\n019,B,4=1\n019,4=-1\n081\n999\nover,,genio\n"),
            "");
  std::string out = read("sel1.txt");
  auto count = [&](const std::string& what) {
    std::size_t n = 0;
    for (std::size_t p = out.find(what); p != std::string::npos; p = out.find(what, p + 1)) ++n;
    return n;
  };
  EXPECT_EQ(count("080,A001"), 1u);
  EXPECT_EQ(count("080,A002"), 0u);
  EXPECT_EQ(count("080,B001"), 2u);  // in both outputs
  EXPECT_EQ(count("080,C001"), 1u);  // the second GENIO's masks excluded it; the first's are gone

  // Re-loading the selection reproduces the selected strings.
  ASSERT_EQ(run("over,sel2.txt,genio\ngeni,M\n019,A,4=1\n019,????,4=-1\n081\n999\nover,,genio\n"),
            "");
  std::vector<std::string> lines = readLines("sel2.txt");
  std::string reload = "geni,COPY\n";
  for (std::size_t i = 1; i < lines.size(); ++i) reload += lines[i] + "\n";
  ASSERT_EQ(run(reload), "");
  EXPECT_EQ(labels("COPY"), (std::vector<std::string>{"A001", "A002"}));
  expectSameStrings(load("COPY", "A001"), load("M", "A001"));
  expectSameStrings(load("COPY", "A002"), load("M", "A002"));
}

// The request getminmax makes, read back by the golden model-query cases; a
// label the model does not have gives a file without any 080 record.
TEST_F(EngineTest, GenioMinMaxRequestForAMissingLabelWritesNoString) {
  ASSERT_EQ(run(kThreeStrings), "");
  ASSERT_EQ(run("over,tmpminmax.txt,genio\ngeni,M\n001format(8f12.3,4a4)\n081,ZZZZ\n999\n"), "");
  for (const std::string& l : readLines("tmpminmax.txt")) EXPECT_NE(l.rfind("080,", 0), 0u) << l;
}

TEST_F(EngineTest, GenioHeaderColumnsAndLinesSafeForRelabelling) {
  const std::string points =
      "0.10000000000000000D+030.20000000000000000D+030.30000000000000000D+02\n"
      "0.00000000000000000D+000.00000000000000000D+000.30000000000000000D+02\n";
  ASSERT_EQ(run("geni,M\n080,G1,M1\n" + points + "999\ngeni,M\n080,AB,,,,,3\n" + points + "999\n"),
            "");
  ASSERT_EQ(run("over,relabel.txt,genio\ngeni,M\n081\n999\nover,,genio\n"), "");
  std::vector<std::string> lines = readLines("relabel.txt");
  int headers = 0;
  for (std::size_t i = 1; i < lines.size(); ++i) {
    EXPECT_NE(lines[i].rfind("   ", 0), 0u) << lines[i];
    EXPECT_NE(lines[i].rfind("GENIO", 0), 0u) << lines[i];
    if (lines[i].rfind("080,", 0) != 0) continue;
    ++headers;
    EXPECT_EQ(lines[i][8], ',');
    EXPECT_EQ(lines[i][13], ',');
  }
  EXPECT_EQ(headers, 2);
  EXPECT_NE(read("relabel.txt").find("080,G1  ,M1  ,"), std::string::npos);
  EXPECT_NE(read("relabel.txt").find("080,AB  ,    ,"), std::string::npos);
}

TEST_F(EngineTest, GenioReloadReplacesStringInPlace) {
  ASSERT_EQ(run(kThreeStrings), "");
  ASSERT_EQ(
      run("geni,M\n001FORMAT(3F12.3)\n080,a002\n"
          "       1.000       2.000       3.000\n       4.000       5.000       6.000\n"
          "       7.000       8.000       9.000\n       0.000       0.000       0.000\n999\n"),
      "");
  EXPECT_EQ(labels("M"), (std::vector<std::string>{"A001", "A002", "B001", "C001"}));
  EXPECT_EQ(load("M", "A002").points.size(), 3u);
}

TEST_F(EngineTest, GenioSeveralPointsPerRecordAndReversion) {
  ASSERT_EQ(run("geni,M\n001FORMAT(6F10.2)\n003,ORDR,4=2,1,2,3,1,2,3\n080,P2\n"
                "      1.00      2.00      3.00      4.00      5.00      6.00\n"
                "      7.00      8.00      9.00      0.00      0.00      9.00\n999\n"
                "geni,M\n001FORMAT(F10.2)\n003,ORDR,4=1,1,2,3\n080,R1\n"
                "      1.00\n      2.00\n      3.00\n      0.00\n      0.00\n      0.00\n999\n"),
            "");
  ModelString p2 = load("M", "P2");
  ASSERT_EQ(p2.points.size(), 3u);
  EXPECT_EQ(p2.points[2].dims[2].num, 9.0);
  ModelString r1 = load("M", "R1");  // one value a record: the format reverts
  ASSERT_EQ(r1.points.size(), 1u);
  EXPECT_EQ(r1.points[0].dims[1].num, 2.0);

  ASSERT_EQ(run("over,p2.txt,genio\ngeni,M\n001FORMAT(6F10.2)\n003,ORDR,4=2,1,2,3,1,2,3\n"
                "081,P2\n999\n"),
            "");
  std::vector<std::string> lines = readLines("p2.txt");
  ASSERT_EQ(lines.size(), 7u);
  EXPECT_EQ(lines[5], "      7.00      8.00      9.00      0.00      0.00      9.00");
}

TEST_F(EngineTest, GenioDiscontinuitiesAndLevelsSurviveOutput) {
  ASSERT_EQ(run("geni,M\n001FORMAT(3F12.3)\n080,BRK,,,,,3,,,2,3\n"
                "       1.000       0.000       0.000\n       2.000       0.000       0.000\n"
                "       3.000       0.000       0.000\n       4.000       0.000       0.000\n"
                "       0.000       0.000       0.000\n"
                "001FORMAT(2F12.3)\n080,CONT,,4=125.5,0.0,0.0,2\n"
                "       1.000       1.000\n       2.000       2.000\n"
                "       0.000       0.000\n999\n"),
            "");
  ModelString brk = load("M", "BRK");
  EXPECT_EQ(brk.points[0].gapAfter, false);
  EXPECT_EQ(brk.points[1].gapAfter, true);
  EXPECT_EQ(brk.points[2].gapAfter, true);
  ModelString cont = load("M", "CONT");
  EXPECT_EQ(cont.header.dimension, 2);
  EXPECT_EQ(cont.header.level, 125.5);
  EXPECT_EQ(cont.points[0].dims.size(), 2u);

  ASSERT_EQ(run("over,brk.txt,genio\ngeni,M\n081\n999\n"), "");
  std::string text = read("brk.txt");
  EXPECT_NE(text.find("080,BRK ,    ,5=       0.0,       0.0,3,10=2,3"), std::string::npos);
  std::vector<std::string> lines = readLines("brk.txt");
  std::string reload = "geni,COPY\n";
  for (std::size_t i = 1; i < lines.size(); ++i) reload += lines[i] + "\n";
  ASSERT_EQ(run(reload), "");
  expectSameStrings(load("COPY", "BRK"), brk);
  expectSameStrings(load("COPY", "CONT"), cont);
}

TEST_F(EngineTest, GenioTerminatorMayOmitCompanionRecords) {
  // A 6D terminator given as its first record only, directly followed by 999.
  ASSERT_EQ(run("geni,M\n001FORMAT(3F12.3)\n003,ORDR,4=1,1,2,3,4,5,6\n080,MAST,,,,,6\n"
                "     100.000     200.000      30.000\n       5.000       0.000       0.000\n"
                "       0.000       0.000      30.000\n999\n"),
            "");
  ModelString m = load("M", "MAST");
  ASSERT_EQ(m.points.size(), 1u);
  EXPECT_EQ(m.points[0].dims[3].num, 5.0);
}

TEST_F(EngineTest, GenioOutputWithoutOverGoesToListing) {
  ASSERT_EQ(run(kThreeStrings), "");
  ASSERT_EQ(run("geni,M\n081,C001\n999\n"), "");
  EXPECT_NE(listing().find("080,C001,    ,5=       0.0,       0.0,3\n"), std::string::npos);
  // "over" overwrites its file, relative names lie in the project folder.
  write("out.txt", std::string(5000, 'x'));
  ASSERT_EQ(run("over,out.txt,genio\ngeni,M\n081,C001\n999\n"), "");
  EXPECT_EQ(read("out.txt").find('x'), std::string::npos);
}
