// What the MX services answer: status words, labels, parameters, the model
// library, and the factory. What point records hold the compiler's model
// queries read in the golden cases point_records and model_queries*.
#include "engine/label_rules.h"
#include "shell/engine_choice.h"
#include "support/engine.h"
#include "support/vectors.h"

using namespace korvane::hosts;
using namespace korvane::engine;
using korvane::testing::EngineTest;

namespace {

// Model M: a 3D string broken after its second point, a 6D master string and a
// 5D section string whose fifth dimension is a text.
const std::string kModel = korvane::test::engineCase("three_strings");

}  // namespace

TEST_F(EngineTest, InterfacesStatusWordsAndCounts) {
  MxDataAccess& da = engine_->dataAccess();
  std::int32_t count = 7;
  PointRecord r;
  EXPECT_EQ(da.stringInfo("M", "S1", count), MxStatus::kNoModel);  // no store yet
  EXPECT_EQ(count, 0);
  EXPECT_EQ(da.record(1, r), MxStatus::kNoModel);                        // no model named yet
  ASSERT_EQ(run(kModel + std::string("crea,OTHER\ndele,OTHER\n")), "");  // GENIO names M
  EXPECT_EQ(da.stringInfo("M", "NONE", count), MxStatus::kNoString);
  EXPECT_EQ(da.stringInfo("NONE", "S1", count), MxStatus::kNoModel);
  EXPECT_EQ(da.point("M", "S1", 0, r), MxStatus::kNoPoint);
  EXPECT_EQ(da.point("M", "S1", 5, r), MxStatus::kNoPoint);
  EXPECT_EQ(da.record(0, r), MxStatus::kNoPoint);
  EXPECT_EQ(da.record(8, r), MxStatus::kNoPoint);  // M has 4 + 2 + 1 points
  ASSERT_EQ(da.record(7, r), MxStatus::kFound);
  EXPECT_EQ(r.txt[12], "X001");
}

// The next label of a prefix and the parameters are the golden case
// point_records; here the status words and the label rules themselves.
TEST_F(EngineTest, InterfacesLabelsAndParameters) {
  std::string text = "geni,M\n001FORMAT(2F8.1)\n";
  for (const char* l : {"AB00", "AB05", "ab0z", "AC00", "B"})
    text += std::string("080,") + l + ",,,,,2\n     1.0     1.0\n     0.0     0.0\n";
  ASSERT_EQ(run(text + "999\n"), "");
  MxDataAccess& da = engine_->dataAccess();
  std::int32_t count = 0;
  ASSERT_EQ(da.labelCount("M", "ab", count), MxStatus::kFound);
  EXPECT_EQ(count, 3);
  EXPECT_EQ(da.labelCount("N", "A", count), MxStatus::kNoModel);
  std::string label;
  EXPECT_EQ(da.nextLabel("M", "", label), MxStatus::kBadArgument);
  EXPECT_EQ(da.nextLabel("M", "ABCD", label), MxStatus::kBadArgument);
  EXPECT_EQ(da.nextLabel("N", "A", label), MxStatus::kNoModel);
  // When the highest label is the last one, the lowest free one is given.
  EXPECT_EQ(nextLabel({"ABZZ", "AB00", "AB01"}, "AB"), "AB02");
  std::vector<std::string> full;
  for (char a : std::string("0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ"))
    full.push_back(std::string("XY0") + a);
  EXPECT_EQ(nextLabel(full, "XY0"), std::nullopt);
  std::string value = "x";
  EXPECT_EQ(da.parameter("privatemacros", 1, value), MxStatus::kNoParameter);  // a setting: 2
  EXPECT_EQ(da.parameter("NoSuchThing", 3, value), MxStatus::kNoParameter);
  EXPECT_EQ(value, "");
  EXPECT_EQ(engine_->configuration().setting("PublicMacros"), "/macros/public");
  EXPECT_EQ(engine_->configuration().setting("ProjectMacros"), "");
}

TEST_F(EngineTest, InterfacesModelLibrary) {
  ASSERT_EQ(run(kModel), "");
  EXPECT_EQ(engine_->library().model("NONE"), nullptr);
  auto model = engine_->library().model("m");
  ASSERT_TRUE(model);
  EXPECT_EQ(model->stringLabels(), (std::vector<std::string>{"S1", "MAST", "X001"}));
  EXPECT_EQ(model->string("QQ"), nullptr);
  auto s = model->string("s1");
  ASSERT_TRUE(s);
  EXPECT_EQ(s->name(), "S1");
  auto pts = s->points();
  ASSERT_EQ(pts.size(), 4u);
  EXPECT_EQ(pts[1].Discontinuity, 1);
  EXPECT_EQ(pts[0].Discontinuity, 0);
  EXPECT_EQ(s->GetPointData(), (std::vector<double>{0, 1, 10, 3, 5, -999, 10, 5, 12, 10, 9, 13}));
  // Objects read the store when asked: a later run shows through.
  ASSERT_EQ(run("edit,M\n005,3=S1,6=2\n999\n"), "");
  EXPECT_EQ(s->GetPointData().size(), 6u);
  EXPECT_EQ(s->points()[1].Discontinuity, 0);
  ASSERT_EQ(run("dele,M\n"), "");
  EXPECT_TRUE(s->points().empty());
  EXPECT_TRUE(model->stringLabels().empty());
}

// A store that cannot be read (here: another run holds it beyond the wait) is
// never "no such model": queries answer kStoreFailure, the rest MxError.
TEST_F(EngineTest, InterfacesAStoreThatCannotBeReadIsNoAnswer) {
  ASSERT_EQ(run(kModel), "");
  auto model = engine_->library().model("M");
  ASSERT_TRUE(model);
  ModelStore::setBusyTimeout(50);
  {
    auto holder = ModelStore::open(project_.path(ModelStore::kFileName), ModelStore::Access::Run);
    std::int32_t count = 0;
    EXPECT_EQ(engine_->dataAccess().stringInfo("M", "S1", count), MxStatus::kStoreFailure);
    EXPECT_THROW(engine_->modelExists("M"), MxError);
    EXPECT_THROW(engine_->stringExists("M", "S1"), MxError);
    EXPECT_THROW(engine_->library().model("M"), MxError);
    EXPECT_THROW(model->stringLabels(), MxError);
    EXPECT_THROW(engine_->strings("M"), EngineError);
  }
  ModelStore::setBusyTimeout(1000);
  EXPECT_EQ(model->stringLabels().size(), 3u);
}

TEST_F(EngineTest, InterfacesFactoryAndRunVerb) {
  korvane::EngineSettings o;
  o.projectFolder = project_.folder();
  std::string error;
  auto engine = korvane::makeEngine(korvane::EngineKind::Embedded, o, error);
  ASSERT_TRUE(engine) << error;
  EXPECT_EQ(engine->project().currentFolder(), project_.folder());
  o.projectFolder = project_.path("missing");
  EXPECT_FALSE(korvane::makeEngine(korvane::EngineKind::Embedded, o, error));
  EXPECT_EQ(error, "the project folder \"" + o.projectFolder + "\" does not exist");

  const std::string in = project_.write("in.txt", "crea,A\n");
  EXPECT_EQ(engine_->configuration().run("draw", in).error,
            "the engine runs input files only (verb \"input\"), not \"draw\"");
  MxRunResult r = engine_->configuration().run("INPUT", project_.path("nothing.txt"));
  EXPECT_EQ(r.error, "cannot read the input file " + project_.path("nothing.txt"));
  r = engine_->configuration().run("input", in);
  EXPECT_TRUE(r.ok());
  EXPECT_EQ(r.listing, project_.path("korvane-engine.lst"));
}
