// A run killed at any moment: a child process runs an input and dies at its
// N-th file operation on the store (a write, truncation, sync, deletion or
// shared-memory lock, counted by a VFS wrapped around SQLite's own). After
// each death the store must pass SQLite's integrity check, hold exactly the
// major options that had committed, and take the next run as usual.
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

// --- a VFS that counts the operations that change files ------------------------

sqlite3_vfs* g_real = nullptr;

struct CountedFile {
  sqlite3_file base;
  sqlite3_file* real;  // follows this struct in the same allocation
};

void operation() {
  if (++g_log->operations == g_log->dieAt) _exit(77);
}

sqlite3_file* real(sqlite3_file* f) { return reinterpret_cast<CountedFile*>(f)->real; }

int xClose(sqlite3_file* f) { return real(f)->pMethods->xClose(real(f)); }
int xRead(sqlite3_file* f, void* p, int n, sqlite3_int64 o) {
  return real(f)->pMethods->xRead(real(f), p, n, o);
}
int xWrite(sqlite3_file* f, const void* p, int n, sqlite3_int64 o) {
  operation();
  return real(f)->pMethods->xWrite(real(f), p, n, o);
}
int xTruncate(sqlite3_file* f, sqlite3_int64 n) {
  operation();
  return real(f)->pMethods->xTruncate(real(f), n);
}
int xSync(sqlite3_file* f, int flags) {
  operation();
  return real(f)->pMethods->xSync(real(f), flags);
}
int xFileSize(sqlite3_file* f, sqlite3_int64* n) {
  return real(f)->pMethods->xFileSize(real(f), n);
}
int xLock(sqlite3_file* f, int l) { return real(f)->pMethods->xLock(real(f), l); }
int xUnlock(sqlite3_file* f, int l) { return real(f)->pMethods->xUnlock(real(f), l); }
int xCheckReservedLock(sqlite3_file* f, int* r) {
  return real(f)->pMethods->xCheckReservedLock(real(f), r);
}
int xFileControl(sqlite3_file* f, int op, void* a) {
  return real(f)->pMethods->xFileControl(real(f), op, a);
}
int xSectorSize(sqlite3_file* f) { return real(f)->pMethods->xSectorSize(real(f)); }
int xDeviceCharacteristics(sqlite3_file* f) {
  return real(f)->pMethods->xDeviceCharacteristics(real(f));
}
int xShmMap(sqlite3_file* f, int i, int sz, int ext, void volatile** pp) {
  return real(f)->pMethods->xShmMap(real(f), i, sz, ext, pp);
}
int xShmLock(sqlite3_file* f, int off, int n, int flags) {
  operation();
  return real(f)->pMethods->xShmLock(real(f), off, n, flags);
}
void xShmBarrier(sqlite3_file* f) { real(f)->pMethods->xShmBarrier(real(f)); }
int xShmUnmap(sqlite3_file* f, int del) { return real(f)->pMethods->xShmUnmap(real(f), del); }
int xFetch(sqlite3_file* f, sqlite3_int64 o, int n, void** pp) {
  return real(f)->pMethods->xFetch(real(f), o, n, pp);
}
int xUnfetch(sqlite3_file* f, sqlite3_int64 o, void* p) {
  return real(f)->pMethods->xUnfetch(real(f), o, p);
}

sqlite3_io_methods g_methods[4];  // by the real file's version

int xOpen(sqlite3_vfs*, const char* name, sqlite3_file* f, int flags, int* out) {
  auto* c = reinterpret_cast<CountedFile*>(f);
  c->real = reinterpret_cast<sqlite3_file*>(c + 1);
  int rc = g_real->xOpen(g_real, name, c->real, flags, out);
  c->base.pMethods =
      c->real->pMethods
          ? &g_methods[c->real->pMethods->iVersion > 3 ? 3 : c->real->pMethods->iVersion]
          : nullptr;
  return rc;
}

int xDelete(sqlite3_vfs*, const char* name, int sync) {
  operation();
  return g_real->xDelete(g_real, name, sync);
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

void installCountingVfs() {
  static sqlite3_vfs vfs;
  g_real = sqlite3_vfs_find(nullptr);
  vfs = *g_real;
  vfs.zName = "counting";
  vfs.szOsFile = static_cast<int>(sizeof(CountedFile)) + g_real->szOsFile;
  vfs.xOpen = xOpen;
  vfs.xDelete = xDelete;
  for (int v = 1; v <= 3; ++v) {
    sqlite3_io_methods& m = g_methods[v];
    m = {v,
         xClose,
         xRead,
         xWrite,
         xTruncate,
         xSync,
         xFileSize,
         xLock,
         xUnlock,
         xCheckReservedLock,
         xFileControl,
         xSectorSize,
         xDeviceCharacteristics,
         nullptr,
         nullptr,
         nullptr,
         nullptr,
         nullptr,
         nullptr};
    if (v >= 2) {
      m.xShmMap = xShmMap;
      m.xShmLock = xShmLock;
      m.xShmBarrier = xShmBarrier;
      m.xShmUnmap = xShmUnmap;
    }
    if (v >= 3) {
      m.xFetch = xFetch;
      m.xUnfetch = xUnfetch;
    }
  }
  sqlite3_vfs_register(&vfs, 1);
  sqlite3_auto_extension(reinterpret_cast<void (*)()>(hookConnection));
}

// --- the test --------------------------------------------------------------------

// Seven major options, each leaving the models in a state of its own.
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
  std::vector<ModelSummary> summary() { return engine_->models(); }
  static bool same(const std::vector<ModelSummary>& a, const std::vector<ModelSummary>& b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i)
      if (a[i].name != b[i].name || a[i].strings != b[i].strings || a[i].points != b[i].points)
        return false;
    return true;
  }
  // A store holding only the model KEEP: the state before the run.
  void freshStore() {
    engine_.reset();
    for (const std::string& f : ModelStore::files(path(ModelStore::kFileName)))
      std::filesystem::remove(f);
    engine_ = makeEngine();
    ASSERT_EQ(run("crea,KEEP\n"), "");
    engine_.reset();
  }
  // Runs the whole input in a child that dies at operation `dieAt` (0: never).
  CrashLog runChild(long dieAt) {
    *g_log = CrashLog{};
    g_log->dieAt = dieAt;
    pid_t child = fork();
    if (child == 0) {
      installCountingVfs();
      auto engine = makeEngine();
      auto r = engine->configuration().run("input", path("crash.txt"));
      _exit(r.ok() ? 0 : 1);
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

TEST_F(EngineCrash, KilledRunLeavesWholeMajorOptionsAndAUsableStore) {
  g_log = static_cast<CrashLog*>(
      mmap(nullptr, sizeof(CrashLog), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
  ASSERT_NE(g_log, MAP_FAILED);

  // The state after each major option, run one at a time.
  freshStore();
  engine_ = makeEngine();
  std::vector<std::vector<ModelSummary>> states = {summary()};
  std::string input;
  for (const std::string& major : kMajors) {
    ASSERT_EQ(run(major), "");
    states.push_back(summary());
    input += major;
  }
  write("crash.txt", input);

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
      SqliteDb db(path(ModelStore::kFileName), SqliteDb::OpenMode::ReadWrite);
      Statement check(db, "PRAGMA integrity_check");
      ASSERT_TRUE(check.step());
      EXPECT_EQ(check.text(0), "ok");
    }
    engine_ = makeEngine();
    ASSERT_TRUE(engine_);
    // Exactly the commits that had ended; one that had begun may have ended too.
    std::vector<ModelSummary> now = summary();
    int done = log.commits - (log.committing ? 1 : 0);
    bool atDone = same(now, states[static_cast<std::size_t>(done)]);
    bool atBegun = log.committing && same(now, states[static_cast<std::size_t>(log.commits)]);
    EXPECT_TRUE(atDone || atBegun) << now.size() << " models";
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
