#include "engine/run_lock.h"

#include <sqlite3.h>

#include <filesystem>

#include "base/fs.h"

namespace korvane::engine {

namespace {

// The lock file as one empty page: taking its locks then never writes to it.
// The page is written once, without a journal or a sync: what it holds does
// not matter, and a file left damaged is made again.
const std::string& prepared(const std::string& path) {
  for (int attempt = 0;; ++attempt) {
    try {
      SqliteDb db(path, SqliteDb::OpenMode::ReadWriteCreate);
      db.exec("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF");
      if (db.queryInt("PRAGMA page_count") == 0) db.exec("PRAGMA user_version = 1");
      return path;
    } catch (const SqliteError& e) {
      if (!e.notADatabase() || attempt > 0) throw;
      std::error_code ec;
      std::filesystem::remove(korvane::fs::pathOfNativeText(path), ec);
    }
  }
}

}  // namespace

RunLock::RunLock(const std::string& path)
    : db_(prepared(path), SqliteDb::OpenMode::ReadWriteCreate),
      beginRun_(db_, "BEGIN EXCLUSIVE"),
      beginRead_(db_, "BEGIN"),
      read_(db_, "SELECT 1 FROM sqlite_master LIMIT 1"),
      end_(db_, "ROLLBACK") {}

bool RunLock::lockRun(int timeoutMs) {
  sqlite3_busy_timeout(db_.handle(), timeoutMs);
  try {
    beginRun_.run();
  } catch (const SqliteError& e) {
    if (e.busy()) return false;
    throw;
  }
  running_ = true;
  return true;
}

void RunLock::unlockRun() {
  if (!running_) return;
  running_ = false;
  end_.run();
}

void RunLock::lockRead(int timeoutMs) {
  if (running_ || readers_++ > 0) return;
  sqlite3_busy_timeout(db_.handle(), timeoutMs);
  try {
    beginRead_.run();
    read_.step();  // takes the shared lock until the transaction ends
    read_.reset();
  } catch (const SqliteError&) {  // busy, or the lock file failed: not locked
    readers_ = 0;
    if (sqlite3_get_autocommit(db_.handle()) == 0) db_.exec("ROLLBACK");
    throw;
  }
}

void RunLock::unlockRead() {
  if (running_ || readers_ == 0 || --readers_ > 0) return;
  end_.run();
}

}  // namespace korvane::engine
