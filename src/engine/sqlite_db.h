// A small RAII layer over the SQLite C API: one connection, prepared
// statements, and an engine error that carries SQLite's result code. Used
// only inside the embedded engine.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "base/text.h"
#include "engine/engine_error.h"

struct sqlite3;
struct sqlite3_stmt;

namespace korvane::engine {

class SqliteError : public EngineError {
 public:
  SqliteError(int code, const std::string& what) : EngineError(what), code_(code) {}
  int code() const { return code_; }
  bool busy() const;          // another connection holds the lock
  bool notADatabase() const;  // the file is not an SQLite database, or is damaged

 private:
  int code_;
};

class SqliteDb;

// A prepared statement. Bind parameters are 1-based, columns 0-based.
class Statement {
 public:
  Statement(SqliteDb& db, std::string_view sql);
  ~Statement();
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  Statement& bind(int i, std::int64_t v);
  Statement& bind(int i, double v);
  Statement& bind(int i, std::string_view text);
  // A BLOB; the bytes must stay where they are until the statement is reset.
  Statement& bindBlob(int i, std::string_view bytes);
  Statement& bindNull(int i);
  // Steps once: true while a row is available.
  bool step();
  // Steps to the end (for statements that return no rows).
  void run();
  // Back to the start with the bindings cleared.
  void reset();

  bool isNull(int col) const;
  bool isText(int col) const;
  std::int64_t integer(int col) const;
  double real(int col) const;
  std::string text(int col) const;
  // The bytes of a BLOB column, valid until the next step or reset.
  std::string_view blob(int col) const;

 private:
  friend class SqliteDb;
  friend class CachedStatement;
  SqliteDb& db_;
  sqlite3_stmt* stmt_ = nullptr;
  bool inUse_ = false;  // handed out by SqliteDb::cached()
};

// A cached statement in use; reset (bindings cleared) when it goes out of scope.
class CachedStatement {
 public:
  explicit CachedStatement(Statement& st) : st_(&st) {}
  ~CachedStatement();
  CachedStatement(const CachedStatement&) = delete;
  CachedStatement& operator=(const CachedStatement&) = delete;
  Statement* operator->() { return st_; }
  Statement& operator*() { return *st_; }

 private:
  Statement* st_;
};

class SqliteDb {
 public:
  enum class OpenMode { ReadWrite, ReadWriteCreate };
  // Throws SqliteError when the file cannot be opened.
  SqliteDb(const std::string& path, OpenMode mode);
  ~SqliteDb();
  SqliteDb(const SqliteDb&) = delete;
  SqliteDb& operator=(const SqliteDb&) = delete;

  // Runs one or more statements that return nothing.
  void exec(std::string_view sql);
  // The first column of the first row of a query, as an integer.
  std::int64_t queryInt(std::string_view sql);
  std::int64_t lastInsertId() const;
  // True while a transaction is open on the connection.
  bool inTransaction();
  // Rows changed by the last INSERT, UPDATE or DELETE.
  int changes() const;
  // A statement prepared on first use and kept for the connection's life.
  // One use at a time: asking for it again before the first use has ended
  // is a programming error (std::logic_error).
  CachedStatement cached(std::string_view sql);
  // Reads `size` bytes at `offset` of a BLOB without reading the rest of it.
  // False when the row does not exist.
  bool readBlob(const char* table, const char* column, std::int64_t rowid, int offset, int size,
                void* out);

  sqlite3* handle() { return db_; }
  [[noreturn]] void fail(int code, std::string_view during);

 private:
  sqlite3* db_ = nullptr;
  std::unordered_map<std::string, std::unique_ptr<Statement>, text::Hash, std::equal_to<>> cache_;
};

// Rolls back on destruction unless committed. Inside a transaction already
// open it is a savepoint of it: its commit keeps its changes in the
// enclosing transaction, which decides whether they stay.
class Transaction {
 public:
  explicit Transaction(SqliteDb& db, bool exclusive = false);
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  void commit();

 private:
  SqliteDb& db_;
  bool nested_;
  bool open_ = true;
};

}  // namespace korvane::engine
