// The long-section macro run on the example project through the embedded
// engine, its AutoCAD script kept (--keep-scripts) and read back: the design
// has exact geometry, so every band value follows from the grades.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <map>

#include "base/codepage.h"
#include "base/conversions.h"
#include "engine/embedded_engine.h"
#include "longsection/generated_input.h"
#include "longsection/panel_file.h"
#include "longsection/script_drawing.h"
#include "longsection/validation.h"
#include "shell/longsection_draw.h"
#include "shell/standard_language.h"
#include "support/cli.h"

namespace korvane::test {
namespace {

using namespace longsection;

// The example's long-section strings (inputs/profile_strings.ipf): the ground
// as surveyed, the design rising 16 per mille from 101.50 at 1+000 to the
// change of grade at 1+050 and falling 10 per mille to 1+100.
double ground(double ch) {
  const double at[][2] = {{1000, 101.20}, {1020, 101.65}, {1040, 102.40},
                          {1060, 102.10}, {1080, 101.90}, {1100, 101.75}};
  for (int i = 0; i + 1 < 6; ++i)
    if (ch <= at[i + 1][0])
      return at[i][1] + (ch - at[i][0]) * (at[i + 1][1] - at[i][1]) / (at[i + 1][0] - at[i][0]);
  return at[5][1];
}
double design(double ch) {
  return ch <= 1050 ? 101.50 + 0.016 * (ch - 1000) : 101.50 + 0.016 * 50 - 0.010 * (ch - 1050);
}
std::string fixed2(double v) { return conv::Format(conv::CStr(v), "0.00"); }

struct LongsectionMacro : CliProject {
  LongsectionMacro() {
    std::filesystem::copy(sourceDir() + "/examples/road", project.folder(),
                          std::filesystem::copy_options::recursive |
                              std::filesystem::copy_options::overwrite_existing);
  }
  Parameters example() const {
    Parameters p;
    p.referenceModel = "DESIGN M1";
    p.masterString = "MAST";
    p.groundString = "LGND";
    p.designString = "LDES";
    p.horizontalScale = 500;
    // 80 mm of graph right of the bands' titles: 40 m of chainage a sheet.
    p.sheetSize = "Custom";
    p.sheetWidth = 80 + p.marginLeft + p.marginRight + p.bandTitleWidth;
    p.sheetHeight = 200;
    return p;
  }
};

TEST_F(LongsectionMacro, DrawsTheExampleDesignSheetBySheet) {
  ASSERT_EQ(run("run \"inputs/road.ipf [main]\" inputs/profile_strings.ipf"), 0) << err();
  const Parameters p = example();
  const Messages texts(home + "/English.lng");
  Extent extent;
  {
    engine::EngineOptions o;
    o.projectFolder = project.folder();
    std::string error;
    auto engine = engine::EmbeddedEngine::create(o, error);
    ASSERT_TRUE(engine) << error;
    EXPECT_EQ(validate(p, engine.get(), texts, &extent), std::vector<std::string>{});
    Parameters wrong = p;
    wrong.groundString = "NONE";
    EXPECT_EQ(
        validate(wrong, engine.get(), texts),
        std::vector<std::string>{texts.format({"Longsection", "nostringx"}, "NONE", "DESIGN M1")});
  }
  // 100 m at 40 m a sheet: two whole sheets and one of 20 m.
  EXPECT_EQ(extent.start, 1000);
  EXPECT_EQ(extent.end, 1100);
  ASSERT_EQ(extent.sheets, 3);
  ASSERT_TRUE(writePanelFile(project.path("road_ls.ipd"), p));
  ASSERT_FALSE(writeGeneratedInput(project.path("road_ls.ipd"), p, texts).empty());
  ASSERT_TRUE(writeDrawingParameterFile(project.folder(), "road_ls", p, extent));

  ASSERT_EQ(run("run road_ls.ipf --keep-scripts"), 0) << err();
  ASSERT_TRUE(project.exists("script001.scr"));
  EXPECT_FALSE(project.exists("script002.scr"));  // every query ran before the script
  const Drawing d = readScript(project.read("script001.scr"));
  EXPECT_TRUE(d.skipped.empty());

  // One datum line a sheet, 1 m below the lowest level drawn (101.20).
  const std::string datum = cp::fromUtf8("Ö.h.: 100.00 mBf");
  int sheets = 0;
  std::map<std::string, int> bandTitles;
  for (const DrawText& t : d.texts) {
    if (t.text == datum) ++sheets;
    ++bandTitles[t.text];
  }
  EXPECT_EQ(sheets, 3);
  for (const char* title :
       {"Szelvényszám", "Terepszint", "Tervezett szint", "Töltés / bevágás", "Esés ‰"})
    EXPECT_EQ(bandTitles[cp::fromUtf8(title)], 3) << title;

  // The columns: the rotated texts at one x, from the top band down.
  std::map<long, std::vector<const DrawText*>> columns;
  for (const DrawText& t : d.texts)
    if (t.rotation == 90) columns[std::lround(t.at.x * 1000)].push_back(&t);
  std::map<std::string, int> seen;
  for (auto& [x, texts] : columns) {
    std::sort(texts.begin(), texts.end(),
              [](const DrawText* a, const DrawText* b) { return a->at.y > b->at.y; });
    ASSERT_EQ(texts.size(), 4u) << texts.front()->text;
    const std::string label = texts[0]->text;  // "1+020.00"
    ASSERT_EQ(label.substr(0, 2), "1+") << label;
    const double ch = 1000 + conv::Val(label.substr(2));
    EXPECT_EQ(texts[1]->text, fixed2(ground(ch))) << label;
    EXPECT_EQ(texts[2]->text, fixed2(design(ch))) << label;
    EXPECT_EQ(texts[3]->text, fixed2(design(ch) - ground(ch))) << label;
    ++seen[label];
  }
  // Every 20 m, the sheet ends on both sheets, and the change of grade at
  // 1+050, which no 20 m column has.
  const std::map<std::string, int> expected = {{"1+000.00", 1}, {"1+020.00", 1}, {"1+040.00", 2},
                                               {"1+050.00", 1}, {"1+060.00", 1}, {"1+080.00", 2},
                                               {"1+100.00", 1}};
  EXPECT_EQ(seen, expected);

  // The grades: +16 per mille on the first two sheets, both on the second,
  // -10 per mille on the last two.
  std::map<std::string, int> grades;
  for (const DrawText& t : d.texts)
    if (t.rotation == 0 && (t.text == fixed2(16) || t.text == fixed2(-10))) ++grades[t.text];
  EXPECT_EQ(grades[fixed2(16)], 2);
  EXPECT_EQ(grades[fixed2(-10)], 2);

  // The ground thin and the design thick, once a sheet each.
  int thick = 0, thin = 0;
  for (const DrawPolyline& l : d.lines) {
    if (l.layer == "LS_DESIGN") thick += l.width > 0;
    if (l.layer == "LS_GROUND") thin += l.width == 0;
  }
  EXPECT_EQ(thick, 3);
  EXPECT_EQ(thin, 3);

  // Without AutoCAD: the same script kept beside the input, and its picture.
  engine::EngineOptions o;
  o.projectFolder = project.folder();
  o.settings = {{"PrivateMacros", home + "/macros"}};
  std::string error;
  auto engine = engine::EmbeddedEngine::create(o, error);
  ASSERT_TRUE(engine) << error;
  RunEnvironment env;
  env.projectFolder = project.folder() + "/";
  env.settingsPath = home + "/Korvane.ini";
  env.messages = texts;
  env.language = &standardLanguage();
  env.engine = engine.get();
  DrawnLongsection drawn;
  ASSERT_TRUE(drawLongsectionWithoutCad(env, project.path("road_ls.ipf"), drawn, error)) << error;
  EXPECT_EQ(project.read("road_ls.scr"), project.read("script001.scr"));
  const std::string svg = project.read("road_ls.svg");
  std::size_t datums = 0;
  for (std::size_t at = svg.find(">Ö.h.: 100.00 mBf<"); at != std::string::npos;
       at = svg.find(">Ö.h.: 100.00 mBf<", at + 1))
    ++datums;
  EXPECT_EQ(datums, 3u);
}

}  // namespace
}  // namespace korvane::test
