// The model store file: refused when foreign or damaged, locked against a
// second run, and never left with half the work of a major option.
#include <sqlite3.h>

#ifndef _WIN32
#include <sys/wait.h>
#include <unistd.h>
#endif

#include "engine/sqlite_db.h"
#include "support/engine.h"

using namespace korvane::engine;

namespace {

class StoreTest : public korvane::testing::EngineTest {
 protected:
  std::string storeFile() const { return path(ModelStore::kFileName); }
  std::string createError() {
    korvane::engine::EngineOptions o;
    o.projectFolder = folder_.string();
    std::string error;
    EXPECT_FALSE(EmbeddedEngine::create(o, error));
    return error;
  }
};

const char* const kString =
    "geni,M\n001FORMAT(3F12.3)\n080,A\n"
    "       1.000       2.000       3.000\n       0.000       0.000       0.000\n999\n";

}  // namespace

TEST_F(StoreTest, ForeignOrDamagedFilesAreRefusedAndLeftAlone) {
  write(ModelStore::kFileName, "these are my notes, not a database\n");
  std::string error = createError();
  EXPECT_NE(error.find("is not a Korvane model store"), std::string::npos) << error;
  EXPECT_NE(error.find("left as it is"), std::string::npos) << error;
  // A run through an engine made before the file appeared is refused the same way.
  std::string runError = run("crea,A\n");
  EXPECT_NE(runError.find("not an SQLite database"), std::string::npos) << runError;
  EXPECT_EQ(read(ModelStore::kFileName), "these are my notes, not a database\n");

  std::filesystem::remove(storeFile());
  {
    SqliteDb other(storeFile(), SqliteDb::OpenMode::ReadWriteCreate);
    other.exec("CREATE TABLE invoices(id INTEGER PRIMARY KEY, total REAL)");
  }
  std::string before = read(ModelStore::kFileName);
  error = createError();
  EXPECT_NE(error.find("another application"), std::string::npos) << error;
  EXPECT_NE(run("crea,A\n"), "");
  EXPECT_EQ(read(ModelStore::kFileName), before);
}

TEST_F(StoreTest, ModelsPersistForTheNextEngine) {
  ASSERT_EQ(run(kString), "");
  engine_ = makeEngine();
  ASSERT_TRUE(engine_->stringExists("M", "A"));
  EXPECT_EQ(load("M", "A").points[0].dims[2].num, 3.0);
}

TEST_F(StoreTest, SecondRunIsRefusedWhileAnotherHoldsTheStore) {
  ASSERT_EQ(run(kString), "");
  ModelStore::setBusyTimeout(50);
  {
    auto holder = ModelStore::open(storeFile(), ModelStore::Access::Run);
    ASSERT_TRUE(holder);
    std::string refused = run("crea,B\n");
    EXPECT_NE(refused.find("in use by another run"), std::string::npos) << refused;
    EXPECT_NE(listing().find("run refused"), std::string::npos);
    std::int32_t count = 0;
    EXPECT_EQ(engine_->dataAccess().stringInfo("M", "A", count), MxStatus::kStoreFailure);
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
    if (!store) _exit(2);
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
