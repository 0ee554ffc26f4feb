// How the store keeps strings (one BLOB of fixed-size point records a string),
// the connection the engine keeps between runs, and the listing written over
// in place.
#include <cmath>

#include "engine/engine_error.h"
#include "engine/point_blob.h"
#include "engine/sqlite_db.h"
#include "support/engine.h"

using namespace korvane::engine;
using korvane::testing::EngineTest;

namespace {

ModelPoint pointOf(std::vector<DimValue> dims, bool gap = false) {
  ModelPoint p;
  p.dims = std::move(dims);
  p.gapAfter = gap;
  return p;
}

}  // namespace

TEST(StoragePoints, RecordsKeepNumbersTextsGapsAndChainage) {
  // A 5D string: x, y, z, an offset and a text; a 3-4-5 step between its points.
  ModelString s;
  s.header.dimension = 5;
  s.points = {pointOf({DimValue::number(10), DimValue::number(20), DimValue::number(-999),
                       DimValue::number(-0.0), DimValue::text("S1")},
                      true),
              pointOf({DimValue::number(13), DimValue::number(24), DimValue::number(1e-300),
                       DimValue::number(6.02e23), DimValue::text("ABCD")}),
              pointOf({DimValue::number(16), DimValue::number(28)})};  // fewer dimensions
  std::string blob = encodePoints(s);
  // One byte of flags, the chainage, and a tag and 8 bytes a dimension.
  ASSERT_EQ(pointRecordSize(5), 1u + 8u + 5u * 9u);
  ASSERT_EQ(blob.size(), 3 * pointRecordSize(5));

  std::vector<ModelPoint> back = decodePoints(blob, 5, 3);
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(back[i].dims, s.points[i].dims) << i;
    EXPECT_EQ(back[i].gapAfter, s.points[i].gapAfter) << i;
  }
  EXPECT_TRUE(std::signbit(back[0].dims[3].num));
  // Chainage: the gap after point 1 is not counted; 2 to 3 is a 3-4-5 step.
  EXPECT_EQ(back[0].chainage, 0.0);
  EXPECT_EQ(back[1].chainage, 0.0);
  EXPECT_EQ(back[2].chainage, 5.0);
  // A record alone gives the same point.
  ModelPoint second = decodePoint(std::string_view(blob).substr(pointRecordSize(5)), 5);
  EXPECT_EQ(second.dims, s.points[1].dims);

  // Damage is an engine error, not a crash.
  EXPECT_THROW(decodePoints(blob.substr(1), 5, 3), EngineError);
  std::string bad = blob;
  bad[1 + 8] = 7;  // the tag of x of point 1
  EXPECT_THROW(decodePoints(bad, 5, 3), EngineError);
}

TEST_F(EngineTest, StorageReadsOnePointWithoutTheString) {
  std::string input = "geni,M\n001FORMAT(3F12.3)\n080,LONG\n";
  char line[64];
  for (int i = 1; i <= 1000; ++i) {
    std::snprintf(line, sizeof line, "%12.3f%12.3f%12.3f\n", 3.0 * i, 4.0 * i, i / 8.0);
    input += line;
  }
  ASSERT_EQ(run(input + "       0.000       0.000       0.000\n999\n"), "");
  korvane::hosts::PointRecord r;
  ASSERT_EQ(engine_->point("M", "LONG", 777, r), MxStatus::kFound);
  EXPECT_EQ(r.num[0], 2331.0);
  EXPECT_EQ(r.num[2], 97.125);
  EXPECT_DOUBLE_EQ(r.num[4], 776 * 5.0);  // 776 steps of a 3-4-5 triangle
  EXPECT_EQ(engine_->point("M", "LONG", 1001, r), MxStatus::kNoPoint);
  ASSERT_EQ(engine_->point("M", "LONG", 1000, r), MxStatus::kFound);
  EXPECT_EQ(r.num[1], 4000.0);
}

TEST_F(EngineTest, StorageIsOneFileInWalModeWithItsLock) {
  ASSERT_EQ(run("crea,A\n"), "");
  SqliteDb db(path(ModelStore::kFileName), SqliteDb::OpenMode::ReadWrite);
  {
    Statement mode(db, "PRAGMA journal_mode");
    ASSERT_TRUE(mode.step());
    EXPECT_EQ(mode.text(0), "wal");
  }
  EXPECT_EQ(db.queryInt("PRAGMA user_version"), 2);
  EXPECT_TRUE(std::filesystem::exists(path("korvane-models.db-lock")));
  // A store of the first schema version is refused, not converted.
  engine_.reset();
  db.exec("PRAGMA user_version = 1");
  korvane::engine::EngineOptions o;
  o.projectFolder = folder_.string();
  std::string error;
  EXPECT_FALSE(EmbeddedEngine::create(o, error));
  EXPECT_NE(error.find("schema version 1, this engine reads version 2"), std::string::npos)
      << error;
}

TEST_F(EngineTest, StorageReopensAStoreRemovedBetweenRuns) {
#ifdef _WIN32
  GTEST_SKIP() << "Windows does not remove a file that is open: the store the engine holds "
                  "cannot vanish between its runs there";
#endif
  ASSERT_EQ(run("crea,OLD\n"), "");
  ASSERT_TRUE(engine_->modelExists("OLD"));
  for (const std::string& f : ModelStore::files(path(ModelStore::kFileName)))
    std::filesystem::remove(f);
  EXPECT_FALSE(engine_->modelExists("OLD"));  // no store any more: no model
  ASSERT_EQ(run("crea,NEW\n"), "");
  std::vector<ModelSummary> models = engine_->models();
  ASSERT_EQ(models.size(), 1u);
  EXPECT_EQ(models[0].name, "NEW");
}

TEST_F(EngineTest, StorageListingIsRewrittenWholeByEveryRun) {
  std::string many;
  for (int i = 0; i < 200; ++i) many += "crea,MODEL " + std::to_string(i) + "\n";
  ASSERT_EQ(run(many), "");
  ASSERT_NE(listing().find("MODEL 199"), std::string::npos);
  ASSERT_EQ(run("dele,X\n"), "");
  std::string l = listing();
  EXPECT_EQ(l.find("MODEL"), std::string::npos);  // nothing left of the longer listing
  EXPECT_EQ(l.substr(l.size() - 22), "Run ended, no errors.\n");
}

TEST_F(EngineTest, StorageStatementCacheRefusesOverlappingUse) {
  SqliteDb db(path("scratch.db"), SqliteDb::OpenMode::ReadWriteCreate);
  {
    auto first = db.cached("SELECT 1");
    ASSERT_TRUE(first->step());
    EXPECT_THROW(db.cached("SELECT 1"), std::logic_error);
  }
  auto again = db.cached("SELECT 1");  // free once the first use has ended
  ASSERT_TRUE(again->step());
  EXPECT_EQ(again->integer(0), 1);
}
