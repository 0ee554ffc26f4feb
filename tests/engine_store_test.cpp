// The model store: how it keeps strings (one BLOB of fixed-size point records
// a string), the file refused when foreign or damaged, the run lock, the
// connection the engine keeps between runs, and never half the work of a
// major option.
#include <cmath>

#ifndef _WIN32
#include <sys/wait.h>
#include <unistd.h>
#endif

#include "engine/point_blob.h"
#include "engine/sqlite_db.h"
#include "support/engine.h"

using namespace korvane::engine;
using korvane::testing::EngineTest;

namespace {

const char* const kString =
    "geni,M\n001FORMAT(3F12.3)\n080,A\n"
    "       1.000       2.000       3.000\n       0.000       0.000       0.000\n999\n";

class StoreTest : public EngineTest {
 protected:
  std::string storeFile() const { return project_.path(ModelStore::kFileName); }
  std::string createError() {
    std::string error;
    EXPECT_FALSE(EmbeddedEngine::create({project_.folder(), {}}, error));
    return error;
  }
};

ModelPoint pointOf(std::vector<DimValue> dims, bool gap = false) {
  ModelPoint p;
  p.dims = std::move(dims);
  p.gapAfter = gap;
  return p;
}

}  // namespace

TEST(StorePoints, RecordsKeepNumbersTextsGapsAndChainage) {
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
  EXPECT_EQ(back[1].chainage, 0.0);
  EXPECT_EQ(back[2].chainage, 5.0);
  // A record alone gives the same point.
  EXPECT_EQ(decodePoint(std::string_view(blob).substr(pointRecordSize(5)), 5).dims,
            s.points[1].dims);
  // Damage is an engine error, not a crash.
  EXPECT_THROW(decodePoints(blob.substr(1), 5, 3), EngineError);
  blob[1 + 8] = 7;  // the tag of x of point 1
  EXPECT_THROW(decodePoints(blob, 5, 3), EngineError);
}

TEST_F(StoreTest, OnePointIsReadWithoutTheString) {
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
}

TEST_F(StoreTest, IsOneFileInWalModeWithItsLockAndPersists) {
  ASSERT_EQ(run(kString), "");
  engine_ = makeEngine();  // a new engine finds the models
  EXPECT_EQ(load("M", "A").points[0].dims[2].num, 3.0);
  SqliteDb db(storeFile(), SqliteDb::OpenMode::ReadWrite);
  {
    Statement mode(db, "PRAGMA journal_mode");
    ASSERT_TRUE(mode.step());
    EXPECT_EQ(mode.text(0), "wal");
  }
  EXPECT_EQ(db.queryInt("PRAGMA user_version"), 2);
  EXPECT_TRUE(project_.exists("korvane-models.db-lock"));
  // A store of the first schema version is refused, not converted.
  engine_.reset();
  db.exec("PRAGMA user_version = 1");
  EXPECT_EQ(createError(), "the model store " + storeFile() +
                               " is not a Korvane model store: it has store schema version 1, "
                               "this engine reads version 2; it was left as it is");
}

TEST_F(StoreTest, ForeignOrDamagedFilesAreRefusedAndLeftAlone) {
  project_.write(ModelStore::kFileName, "these are my notes, not a database\n");
  const std::string refused = "the model store " + storeFile() + " is not a Korvane model store: ";
  EXPECT_EQ(createError(), refused +
                               "it is not an SQLite database or it is damaged (file is not a "
                               "database (PRAGMA synchronous = NORMAL)); it was left as it is");
  // A run through an engine made before the file appeared is refused the same way.
  EXPECT_NE(run("crea,A\n").find("not an SQLite database"), std::string::npos);
  EXPECT_EQ(project_.read(ModelStore::kFileName), "these are my notes, not a database\n");

  std::filesystem::remove(storeFile());
  {
    SqliteDb other(storeFile(), SqliteDb::OpenMode::ReadWriteCreate);
    other.exec("CREATE TABLE invoices(id INTEGER PRIMARY KEY, total REAL)");
  }
  const std::string before = project_.read(ModelStore::kFileName);
  EXPECT_EQ(createError(), refused +
                               "it is an SQLite database of another application (application id "
                               "0, 1 schema objects); it was left as it is");
  EXPECT_NE(run("crea,A\n"), "");
  EXPECT_EQ(project_.read(ModelStore::kFileName), before);
}

TEST_F(StoreTest, SecondRunIsRefusedWhileAnotherHoldsTheStore) {
  ASSERT_EQ(run(kString), "");
  ModelStore::setBusyTimeout(50);
  {
    auto holder = ModelStore::open(storeFile(), ModelStore::Access::Run);
    const std::string refused = "the model store " + storeFile() +
                                " is in use by another run on this project; runs are not "
                                "interleaved, so this run was refused (try again when the other "
                                "has ended)";
    EXPECT_EQ(run("crea,B\n"), refused);
    EXPECT_EQ(listing(), "**** run refused: " + refused + "\n");
    EXPECT_THROW(ModelStore::open(storeFile(), ModelStore::Access::Run), EngineError);
  }
  ModelStore::setBusyTimeout(1000);
  ASSERT_EQ(run("crea,B\n"), "");
  EXPECT_TRUE(engine_->modelExists("B"));
}

#ifndef _WIN32
TEST_F(StoreTest, ARunThatDiesLeavesNoHalfLoadedStringAndNoLock) {
  ASSERT_EQ(run(kString), "");
  pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    // Half a major option: a string saved inside the transaction, then death.
    auto store = ModelStore::open(storeFile(), ModelStore::Access::Run);
    store->db().exec("BEGIN IMMEDIATE");
    ModelString s;
    s.header.label = "HALF";
    s.points.resize(1000,
                    ModelPoint{{DimValue::number(1), DimValue::number(2), DimValue::number(3)}});
    store->saveString(store->findModel("M")->id, s);
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  ASSERT_TRUE(WIFEXITED(status));
  ASSERT_EQ(WEXITSTATUS(status), 0);
  ASSERT_EQ(run("crea,AFTER\n"), "");  // the lock died with its holder
  EXPECT_FALSE(engine_->stringExists("M", "HALF"));
  EXPECT_TRUE(engine_->stringExists("M", "A"));
}
#endif

TEST_F(StoreTest, IsOpenedAgainWhenRemovedBetweenRuns) {
#ifdef _WIN32
  GTEST_SKIP() << "Windows does not remove a file that is open: the store the engine holds "
                  "cannot vanish between its runs there";
#endif
  ASSERT_EQ(run("crea,OLD\n"), "");
  ASSERT_TRUE(engine_->modelExists("OLD"));
  for (const std::string& f : ModelStore::files(storeFile())) std::filesystem::remove(f);
  EXPECT_FALSE(engine_->modelExists("OLD"));  // no store any more: no model
  ASSERT_EQ(run("crea,NEW\n"), "");
  std::vector<ModelSummary> models = engine_->models();
  ASSERT_EQ(models.size(), 1u);
  EXPECT_EQ(models[0].name, "NEW");
}

TEST_F(StoreTest, ListingIsRewrittenWholeByEveryRun) {
  std::string many;
  for (int i = 0; i < 200; ++i) many += "crea,MODEL " + std::to_string(i) + "\n";
  ASSERT_EQ(run(many), "");
  ASSERT_NE(listing().find("MODEL 199"), std::string::npos);
  ASSERT_EQ(run("dele,X\n"), "");
  std::string l = listing();
  EXPECT_EQ(l.find("MODEL"), std::string::npos);  // nothing left of the longer listing
  EXPECT_EQ(l.substr(l.size() - 22), "Run ended, no errors.\n");
}

TEST_F(StoreTest, StatementCacheRefusesOverlappingUse) {
  SqliteDb db(project_.path("scratch.db"), SqliteDb::OpenMode::ReadWriteCreate);
  {
    auto first = db.cached("SELECT 1");
    ASSERT_TRUE(first->step());
    EXPECT_THROW(db.cached("SELECT 1"), std::logic_error);
  }
  auto again = db.cached("SELECT 1");  // free once the first use has ended
  ASSERT_TRUE(again->step());
  EXPECT_EQ(again->integer(0), 1);
}

// Looking: every run, import and query of the engine sees the changes of the
// runs before it, and the store is as it was, byte for byte, once the engine
// has ended; meanwhile no other run comes between.
TEST_F(StoreTest, ALookingEngineUndoesEveryChangeWhenItEnds) {
  ASSERT_EQ(run(kString), "");
  engine_.reset();
  const std::string before = project_.read(ModelStore::kFileName);
  std::string error;
  auto looking = EmbeddedEngine::create({project_.folder(), {}, nullptr, true}, error);
  ASSERT_TRUE(looking) << error;
  MxConfiguration& mx = looking->configuration();
  EXPECT_TRUE(looking->runLines({"dele,M", "geni,G", "999"}, "in").ok());
  EXPECT_FALSE(mx.modelExists("M"));
  EXPECT_TRUE(mx.modelExists("G"));  // made by its GENIO block
  project_.write("a.txt", std::string(kString).substr(7));
  EXPECT_TRUE(looking->importGenio(project_.path("a.txt"), "I").ok());
  EXPECT_TRUE(mx.stringExists("I", "A"));
  EXPECT_FALSE(looking->runLines({"crea,KEPT", "nonsense"}, "bad").ok());
  EXPECT_TRUE(mx.modelExists("KEPT"));  // the major options before an error stay, in the look

  ModelStore::setBusyTimeout(50);
  EXPECT_THROW(ModelStore::open(storeFile(), ModelStore::Access::Run), EngineError);
  ModelStore::setBusyTimeout(1000);
  looking.reset();
  EXPECT_TRUE(project_.read(ModelStore::kFileName) == before);
  engine_ = makeEngine();
  EXPECT_TRUE(engine_->modelExists("M"));
  EXPECT_FALSE(engine_->modelExists("G"));
}

// Interrupted (Ctrl-C), a run stops before its next line and keeps nothing.
TEST_F(StoreTest, AnInterruptedRunKeepsNothing) {
  const std::atomic<bool> interrupted{true};
  std::string error;
  auto e = EmbeddedEngine::create({project_.folder(), {}, &interrupted}, error);
  ASSERT_TRUE(e) << error;
  const MxRunResult r = e->runLines({"crea,A"}, "in");
  EXPECT_TRUE(r.interrupted);
  EXPECT_EQ(r.errorLine, 1);
  EXPECT_EQ(r.error,
            "in, line 1: the run was interrupted and rolled back; the models are as they were "
            "before it");
  EXPECT_FALSE(engine_->modelExists("A"));
}
