// What keeps runs on one project apart: an empty SQLite database beside the
// store (korvane-models.db-lock) whose only use is its lock. A run holds it
// exclusively from its start to its end; a query holds it shared while it
// reads, so that it never sees a run of another process half done and waits
// for it at most the busy timeout. SQLite does the locking, between processes
// and between connections of one process, on every platform; a lock dies with
// its process.
#pragma once

#include <string>

#include "engine/sqlite_db.h"

namespace korvane::engine {

class RunLock {
 public:
  // Opens (and creates) the lock file; SqliteError when that fails.
  explicit RunLock(const std::string& path);

  // Waits at most `timeoutMs` for other holders; false when they remain.
  bool lockRun(int timeoutMs);
  void unlockRun();
  bool running() const { return running_; }
  // Shared, nested; SqliteError (busy) when a run of another connection
  // holds the lock beyond the timeout.
  void lockRead(int timeoutMs);
  void unlockRead();

 private:
  SqliteDb db_;
  // Prepared once: ending a lock must not allocate (it runs in destructors).
  Statement beginRun_, beginRead_, read_, end_;
  bool running_ = false;
  int readers_ = 0;
};

}  // namespace korvane::engine
