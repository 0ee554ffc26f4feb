#include "engine/sqlite_db.h"

#include <sqlite3.h>

#include <stdexcept>

#include "base/fs.h"

namespace korvane::engine {

bool SqliteError::busy() const {
  int primary = code_ & 0xFF;
  return primary == SQLITE_BUSY || primary == SQLITE_LOCKED;
}

bool SqliteError::notADatabase() const {
  int primary = code_ & 0xFF;
  return primary == SQLITE_NOTADB || primary == SQLITE_CORRUPT;
}

// --- SqliteDb ----------------------------------------------------------------

SqliteDb::SqliteDb(const std::string& path, OpenMode mode) {
  int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX;
  if (mode == OpenMode::ReadWriteCreate) flags |= SQLITE_OPEN_CREATE;
  // SQLite takes file names in UTF-8 on every system; ours are in the file
  // system's narrow encoding, which on Windows is the ANSI code page.
  const std::u8string name = korvane::fs::pathOfNativeText(path).u8string();
  int rc = sqlite3_open_v2(reinterpret_cast<const char*>(name.c_str()), &db_, flags, nullptr);
  if (rc != SQLITE_OK) {
    std::string msg = db_ ? sqlite3_errmsg(db_) : sqlite3_errstr(rc);
    sqlite3_close(db_);
    db_ = nullptr;
    throw SqliteError(rc, msg);
  }
  sqlite3_extended_result_codes(db_, 1);
}

SqliteDb::~SqliteDb() {
  cache_.clear();  // statements are finalized before the connection closes
  sqlite3_close(db_);
}

void SqliteDb::fail(int code, std::string_view during) {
  std::string msg = sqlite3_errmsg(db_);
  if (!during.empty()) msg += " (" + std::string(during) + ")";
  throw SqliteError(code, msg);
}

void SqliteDb::exec(std::string_view sql) {
  std::string text(sql);
  int rc = sqlite3_exec(db_, text.c_str(), nullptr, nullptr, nullptr);
  if (rc != SQLITE_OK) fail(rc, text.substr(0, 40));
}

std::int64_t SqliteDb::queryInt(std::string_view sql) {
  Statement st(*this, sql);
  return st.step() ? st.integer(0) : 0;
}

std::int64_t SqliteDb::lastInsertId() const { return sqlite3_last_insert_rowid(db_); }

int SqliteDb::changes() const { return sqlite3_changes(db_); }

bool SqliteDb::inTransaction() { return sqlite3_get_autocommit(db_) == 0; }

CachedStatement SqliteDb::cached(std::string_view sql) {
  auto it = cache_.find(sql);
  if (it == cache_.end())
    it = cache_.emplace(std::string(sql), std::make_unique<Statement>(*this, sql)).first;
  Statement& st = *it->second;
  if (st.inUse_) throw std::logic_error("statement used twice at once: " + std::string(sql));
  st.inUse_ = true;
  return CachedStatement(st);
}

bool SqliteDb::readBlob(const char* table, const char* column, std::int64_t rowid, int offset,
                        int size, void* out) {
  sqlite3_blob* blob = nullptr;
  int rc = sqlite3_blob_open(db_, "main", table, column, rowid, 0, &blob);
  if (rc == SQLITE_ERROR) {  // no such row
    sqlite3_blob_close(blob);
    return false;
  }
  if (rc != SQLITE_OK) {
    sqlite3_blob_close(blob);
    fail(rc, "blob");
  }
  rc = sqlite3_blob_read(blob, out, size, offset);
  sqlite3_blob_close(blob);
  if (rc != SQLITE_OK) fail(rc, "blob read");
  return true;
}

CachedStatement::~CachedStatement() {
  st_->reset();
  st_->inUse_ = false;
}

// --- Statement ---------------------------------------------------------------

Statement::Statement(SqliteDb& db, std::string_view sql) : db_(db) {
  int rc =
      sqlite3_prepare_v2(db.handle(), sql.data(), static_cast<int>(sql.size()), &stmt_, nullptr);
  if (rc != SQLITE_OK) db.fail(rc, sql.substr(0, 40));
}

Statement::~Statement() { sqlite3_finalize(stmt_); }

Statement& Statement::bind(int i, std::int64_t v) {
  int rc = sqlite3_bind_int64(stmt_, i, v);
  if (rc != SQLITE_OK) db_.fail(rc, "bind");
  return *this;
}

Statement& Statement::bind(int i, double v) {
  int rc = sqlite3_bind_double(stmt_, i, v);
  if (rc != SQLITE_OK) db_.fail(rc, "bind");
  return *this;
}

Statement& Statement::bind(int i, std::string_view text) {
  int rc =
      sqlite3_bind_text(stmt_, i, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
  if (rc != SQLITE_OK) db_.fail(rc, "bind");
  return *this;
}

Statement& Statement::bindBlob(int i, std::string_view bytes) {
  int rc = sqlite3_bind_blob(stmt_, i, bytes.data(), static_cast<int>(bytes.size()), SQLITE_STATIC);
  if (rc != SQLITE_OK) db_.fail(rc, "bind");
  return *this;
}

Statement& Statement::bindNull(int i) {
  int rc = sqlite3_bind_null(stmt_, i);
  if (rc != SQLITE_OK) db_.fail(rc, "bind");
  return *this;
}

bool Statement::step() {
  int rc = sqlite3_step(stmt_);
  if (rc == SQLITE_ROW) return true;
  if (rc == SQLITE_DONE) return false;
  sqlite3_reset(stmt_);
  db_.fail(rc, "");
}

void Statement::run() {
  while (step()) {
  }
  reset();
}

void Statement::reset() {
  sqlite3_reset(stmt_);
  sqlite3_clear_bindings(stmt_);
}

bool Statement::isNull(int col) const { return sqlite3_column_type(stmt_, col) == SQLITE_NULL; }
bool Statement::isText(int col) const { return sqlite3_column_type(stmt_, col) == SQLITE_TEXT; }
std::int64_t Statement::integer(int col) const { return sqlite3_column_int64(stmt_, col); }
double Statement::real(int col) const { return sqlite3_column_double(stmt_, col); }

std::string_view Statement::blob(int col) const {
  const void* p = sqlite3_column_blob(stmt_, col);
  int n = sqlite3_column_bytes(stmt_, col);
  return p ? std::string_view(static_cast<const char*>(p), static_cast<std::size_t>(n))
           : std::string_view();
}

std::string Statement::text(int col) const {
  auto* p = reinterpret_cast<const char*>(sqlite3_column_text(stmt_, col));
  int n = sqlite3_column_bytes(stmt_, col);
  return p ? std::string(p, static_cast<std::size_t>(n)) : std::string();
}

// --- Transaction -------------------------------------------------------------

Transaction::Transaction(SqliteDb& db, bool exclusive) : db_(db), nested_(db.inTransaction()) {
  db_.cached(nested_     ? "SAVEPOINT nested"
             : exclusive ? "BEGIN EXCLUSIVE"
                         : "BEGIN IMMEDIATE")
      ->run();
}

Transaction::~Transaction() {
  if (open_)
    sqlite3_exec(db_.handle(), nested_ ? "ROLLBACK TO nested; RELEASE nested" : "ROLLBACK", nullptr,
                 nullptr, nullptr);
}

void Transaction::commit() {
  db_.cached(nested_ ? "RELEASE nested" : "COMMIT")->run();
  open_ = false;
}

}  // namespace korvane::engine
