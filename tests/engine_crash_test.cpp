// A run killed at any moment: a child process runs inputs one after another
// and dies at its N-th operation that changes a file of the store (a write,
// truncation or deletion, counted through the system calls of SQLite's unix
// VFS). After each death the store must pass SQLite's integrity check, hold
// exactly the runs that had committed (a run is one transaction), and take
// the next run as usual.
#ifndef _WIN32
#include <sqlite3.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstring>
#include <map>
#include <random>

#include "engine/sqlite_db.h"
#include "support/engine.h"

using namespace korvane::engine;

namespace {

// What the dying child leaves for the parent (shared memory).
struct CrashLog {
  long operations = 0;      // file operations so far
  long dieAt = 0;           // die at this operation; 0: never
  int commits = 0;          // commits that changed rows, counted when they begin
  bool committing = false;  // a commit has begun and no row changed since
};
CrashLog* g_log = nullptr;

// --- the operations that change files, counted through SQLite's system calls

void operation() {
  if (++g_log->operations == g_log->dieAt) _exit(77);
}

// The unix VFS's own calls, kept when the counting ones take their place.
sqlite3_syscall_ptr g_write, g_pwrite, g_truncate, g_unlink;

ssize_t countedWrite(int fd, const void* p, size_t n) {
  operation();
  return reinterpret_cast<ssize_t (*)(int, const void*, size_t)>(g_write)(fd, p, n);
}
ssize_t countedPwrite(int fd, const void* p, size_t n, off64_t at) {
  operation();
  return reinterpret_cast<ssize_t (*)(int, const void*, size_t, off64_t)>(g_pwrite)(fd, p, n, at);
}
int countedTruncate(int fd, off_t n) {
  operation();
  return reinterpret_cast<int (*)(int, off_t)>(g_truncate)(fd, n);
}
int countedUnlink(const char* name) {
  operation();
  return reinterpret_cast<int (*)(const char*)>(g_unlink)(name);
}

// Commits that change rows, seen from inside the dying child.
int onCommit(void* db) {
  static std::map<void*, int> seen;  // changes counted per connection
  int total = sqlite3_total_changes(static_cast<sqlite3*>(db));
  if (total != seen[db]) {
    ++g_log->commits;
    g_log->committing = true;
  }
  seen[db] = total;
  return 0;
}
void onUpdate(void*, int, const char*, const char*, sqlite3_int64) { g_log->committing = false; }
int hookConnection(sqlite3* db, char**, const sqlite3_api_routines*) {
  sqlite3_commit_hook(db, onCommit, db);
  sqlite3_update_hook(db, onUpdate, nullptr);
  return SQLITE_OK;
}

void installCounting() {
  sqlite3_vfs* unix = sqlite3_vfs_find(nullptr);
  auto swap = [unix](const char* call, sqlite3_syscall_ptr& real, auto counted) {
    real = unix->xGetSystemCall(unix, call);
    unix->xSetSystemCall(unix, call, reinterpret_cast<sqlite3_syscall_ptr>(counted));
  };
  swap("write", g_write, countedWrite);
  swap("pwrite64", g_pwrite, countedPwrite);
  swap("ftruncate", g_truncate, countedTruncate);
  swap("unlink", g_unlink, countedUnlink);
  sqlite3_auto_extension(reinterpret_cast<void (*)()>(hookConnection));
}

// --- the test --------------------------------------------------------------------

// Seven major options, each run on its own and leaving the models in a state
// of its own.
std::string points(const std::string& label, int n, double y) {
  std::string s = "080," + label + "\n";
  char line[64];
  for (int i = 1; i <= n; ++i) {
    std::snprintf(line, sizeof line, "%12.3f%12.3f%12.3f\n", 1000.0 + i, y, 100.0 + i / 10.0);
    s += line;
  }
  return s + "       0.000       0.000       0.000\n";
}

const std::vector<std::string> kMajors = {
    "crea,A\n",
    "geni,M\n001FORMAT(3F12.3)\n" + points("S1", 300, 1) + points("S2", 200, 2) +
        points("S3", 100, 3) + "999\n",
    "crea,B\n",
    "edit,M\n005,3=S1,6=50\n031,3=S3\n999\n",
    "dele,A\n",
    "geni,N\n001FORMAT(3F12.3)\n" + points("T1", 250, 4) + points("T2", 5, 5) + "999\n",
    "dele,B\n",
};

class EngineCrash : public korvane::testing::EngineTest {
 protected:
  std::string inputOf(std::size_t i) { return project_.path("crash" + std::to_string(i) + ".txt"); }
  // The models as "name strings points" lines.
  std::string state() {
    std::string out;
    for (const ModelSummary& m : engine_->models())
      out += m.name + " " + std::to_string(m.strings) + " " + std::to_string(m.points) + "\n";
    return out;
  }
  // A store holding only the model KEEP: the state before the run.
  void freshStore() {
    engine_.reset();
    for (const std::string& f : ModelStore::files(project_.path(ModelStore::kFileName)))
      std::filesystem::remove(f);
    engine_ = makeEngine();
    ASSERT_EQ(run("crea,KEEP\n"), "");
    engine_.reset();
  }
  // Runs every input in a child that dies at operation `dieAt` (0: never).
  CrashLog runChild(long dieAt) {
    *g_log = CrashLog{};
    g_log->dieAt = dieAt;
    pid_t child = fork();
    if (child == 0) {
      installCounting();
      auto engine = makeEngine();
      for (std::size_t i = 0; i < kMajors.size(); ++i)
        if (!engine->configuration().run("input", inputOf(i)).ok()) _exit(1);
      _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status));
    int code = WEXITSTATUS(status);
    EXPECT_TRUE(code == 0 || code == 77) << "child exit " << code;
    return *g_log;
  }
};

}  // namespace

TEST_F(EngineCrash, KilledRunLeavesWholeRunsAndAUsableStore) {
  g_log = static_cast<CrashLog*>(
      mmap(nullptr, sizeof(CrashLog), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
  ASSERT_NE(g_log, MAP_FAILED);

  // The state after each major option, run one at a time.
  freshStore();
  engine_ = makeEngine();
  std::vector<std::string> states = {state()};
  for (std::size_t i = 0; i < kMajors.size(); ++i) {
    ASSERT_EQ(run(kMajors[i]), "");
    states.push_back(state());
    project_.write("crash" + std::to_string(i) + ".txt", kMajors[i]);
  }

  // How many operations a whole run makes.
  freshStore();
  CrashLog whole = runChild(0);
  ASSERT_EQ(whole.commits, static_cast<int>(kMajors.size()));
  ASSERT_GT(whole.operations, 20);

  std::mt19937 rng(4711);
  const int kills = 24;
  int partial = 0;
  for (int k = 0; k < kills; ++k) {
    long dieAt = 1 + (whole.operations * k) / kills +
                 static_cast<long>(rng() % static_cast<unsigned>(whole.operations / kills + 1));
    freshStore();
    CrashLog log = runChild(dieAt);
    SCOPED_TRACE("died at operation " + std::to_string(dieAt) + " of " +
                 std::to_string(whole.operations) + " after " + std::to_string(log.commits) +
                 " commits began");
    {
      SqliteDb db(project_.path(ModelStore::kFileName), SqliteDb::OpenMode::ReadWrite);
      Statement check(db, "PRAGMA integrity_check");
      ASSERT_TRUE(check.step());
      EXPECT_EQ(check.text(0), "ok");
    }
    engine_ = makeEngine();
    ASSERT_TRUE(engine_);
    // Exactly the commits that had ended; one that had begun may have ended too.
    const std::string now = state();
    int done = log.commits - (log.committing ? 1 : 0);
    bool atDone = now == states[static_cast<std::size_t>(done)];
    bool atBegun = log.committing && now == states[static_cast<std::size_t>(log.commits)];
    EXPECT_TRUE(atDone || atBegun) << now;
    if (done > 0 && done < static_cast<int>(kMajors.size())) ++partial;
    // The next run works.
    ASSERT_EQ(run("crea,AFTER\n"), "");
    EXPECT_TRUE(engine_->modelExists("AFTER"));
    EXPECT_TRUE(engine_->modelExists("KEEP"));
  }
  EXPECT_GT(partial, kills / 2);  // most deaths fell between the first and last commit
  munmap(g_log, sizeof(CrashLog));
}
#endif
