#include "engine/model_store.h"

#include <sqlite3.h>

#include <filesystem>

#include "base/codepage.h"
#include "base/fs.h"
#ifndef _WIN32
#include <sys/stat.h>
#endif

#include "engine/point_blob.h"

namespace korvane::engine {
namespace {

constexpr std::int64_t kApplicationId = 0x4B6F7276;  // "Korv"
// 2: points as one BLOB a string, WAL mode. Stores of version 1 are refused.
constexpr std::int64_t kSchemaVersion = 2;
int g_busyTimeoutMs = 1000;

constexpr const char* kSchema = R"sql(
CREATE TABLE models(
  id INTEGER PRIMARY KEY,
  name TEXT NOT NULL,
  name_key TEXT NOT NULL UNIQUE);
CREATE TABLE strings(
  id INTEGER PRIMARY KEY,
  model_id INTEGER NOT NULL REFERENCES models(id) ON DELETE CASCADE,
  seq INTEGER NOT NULL,
  label TEXT NOT NULL,
  subref TEXT NOT NULL,
  dimension INTEGER NOT NULL,
  level REAL,
  point_count INTEGER NOT NULL,
  UNIQUE(model_id, label));
CREATE INDEX strings_in_order ON strings(model_id, seq);
CREATE TABLE points(
  string_id INTEGER PRIMARY KEY REFERENCES strings(id) ON DELETE CASCADE,
  data BLOB NOT NULL);
)sql";

// Records kept as written (triangles, text strings): added to stores of this
// schema version when a run opens them, which older engines ignore.
constexpr const char* kKeptSchema = R"sql(
CREATE TABLE IF NOT EXISTS kept(
  id INTEGER PRIMARY KEY,
  model_id INTEGER NOT NULL REFERENCES models(id) ON DELETE CASCADE,
  kind INTEGER NOT NULL,
  items INTEGER NOT NULL,
  lines TEXT NOT NULL);
)sql";

std::string modelKey(std::string_view name) { return cp::upper(name); }

// Which file a path names now: device and inode where the system has them.
std::string identity(const std::string& path) {
#ifndef _WIN32
  struct stat st {};
  if (::stat(path.c_str(), &st) != 0) return {};
  return std::to_string(st.st_dev) + ":" + std::to_string(st.st_ino);
#else
  std::error_code ec;  // an open file cannot be removed or replaced here
  return std::filesystem::exists(korvane::fs::pathOfNativeText(path), ec) ? "present"
                                                                          : std::string();
#endif
}

// Checks that the file is our store, or creates the schema in an empty file.
// Returns false when the file is empty and not to be created; the reason why
// a file belongs to something else (EngineError, the start of the message
// given by `refused`).
bool checkSchema(SqliteDb& db, bool create, const std::string& refused) {
  std::int64_t app = db.queryInt("PRAGMA application_id");
  std::int64_t version = db.queryInt("PRAGMA user_version");
  std::int64_t objects = db.queryInt("SELECT count(*) FROM sqlite_master");
  std::string why;
  if (app == kApplicationId) {
    if (version == kSchemaVersion) return true;
    why = "it has store schema version " + std::to_string(version) +
          ", this engine reads version " + std::to_string(kSchemaVersion);
  } else if (app == 0 && objects == 0) {
    if (!create) return false;
    db.exec(kSchema);
    db.exec("PRAGMA application_id = " + std::to_string(kApplicationId));
    db.exec("PRAGMA user_version = " + std::to_string(kSchemaVersion));
    return true;
  } else {
    why = "it is an SQLite database of another application (application id " + std::to_string(app) +
          ", " + std::to_string(objects) + " schema objects)";
  }
  throw EngineError(refused + why + "; it was left as it is");
}

std::string inUse(const std::string& path) {
  return "the model store " + path +
         " is in use by another run on this project; runs are not interleaved, so this run was "
         "refused (try again when the other has ended)";
}

// From the columns id, label, subref, dimension, level, point_count.
StringRow readStringRow(Statement& st) {
  StringRow r;
  r.id = st.integer(0);
  r.header.label = st.text(1);
  r.header.subref = st.text(2);
  r.header.dimension = static_cast<int>(st.integer(3));
  if (!st.isNull(4)) r.header.level = st.real(4);
  r.pointCount = static_cast<std::int32_t>(st.integer(5));
  return r;
}

}  // namespace

// A read of the store: holds the run lock shared, so that a run of another
// connection is never seen half done (nothing to do inside one's own run).
class ModelStore::Reading {
 public:
  explicit Reading(ModelStore& s) : lock_(s.lock_.get()) {
    if (lock_) lock_->lockRead(g_busyTimeoutMs);
  }
  ~Reading() {
    if (lock_) lock_->unlockRead();
  }
  Reading(const Reading&) = delete;
  Reading& operator=(const Reading&) = delete;

 private:
  RunLock* lock_;  // none for a scratch store
};

void ModelStore::setBusyTimeout(int ms) { g_busyTimeoutMs = ms; }

std::vector<std::string> ModelStore::files(const std::string& path) {
  return {path, path + "-journal", path + "-wal", path + "-shm", path + "-lock"};
}

ModelStore::ModelStore(std::unique_ptr<SqliteDb> db, std::string path)
    : db_(std::move(db)), path_(std::move(path)), identity_(identity(path_)) {}

ModelStore::~ModelStore() { endRun(); }

std::unique_ptr<ModelStore> ModelStore::open(const std::string& path, Access access) {
  if (access == Access::Scratch) {
    auto db = std::make_unique<SqliteDb>(":memory:", SqliteDb::OpenMode::ReadWriteCreate);
    checkSchema(*db, true, {});
    db->exec("PRAGMA foreign_keys = ON");
    return std::unique_ptr<ModelStore>(new ModelStore(std::move(db), path));
  }
  std::error_code ec;
  if (access == Access::Query && !std::filesystem::exists(korvane::fs::pathOfNativeText(path), ec))
    return nullptr;
  const std::string refused = "the model store " + path + " is not a Korvane model store: ";
  try {
    auto db =
        std::make_unique<SqliteDb>(path, access == Access::Run ? SqliteDb::OpenMode::ReadWriteCreate
                                                               : SqliteDb::OpenMode::ReadWrite);
    sqlite3_busy_timeout(db->handle(), g_busyTimeoutMs);
    db->exec("PRAGMA synchronous = NORMAL");
    if (access == Access::Run) {
      // A new store is made in WAL mode from the start (see below); a file
      // with content is not touched before it is known to be ours.
      if (db->queryInt("PRAGMA page_count") == 0) {
        // Switching a new file to WAL writes its first page under a rollback
        // journal: kept in memory, so that no "-journal" file is made at all.
        db->exec("PRAGMA journal_mode = MEMORY");
        db->exec("PRAGMA journal_mode = WAL");
      }
      try {
        Transaction check(*db, true);
        checkSchema(*db, true, refused);
        db->exec(kKeptSchema);
        check.commit();
      } catch (const SqliteError& e) {
        if (!e.busy()) throw;
        throw EngineError(inUse(path));
      }
      // Commits go to the write-ahead log without waiting for the disk; the
      // log reaches the store at checkpoints. Where WAL is not possible the
      // store keeps its rollback journal.
      db->exec("PRAGMA journal_mode = WAL");
    } else if (!checkSchema(*db, false, refused)) {
      return nullptr;  // an empty file: no store yet
    }
    db->exec("PRAGMA foreign_keys = ON");
    std::unique_ptr<ModelStore> store(new ModelStore(std::move(db), path));
    store->lock_ = std::make_unique<RunLock>(path + "-lock");
    if (access == Access::Run) store->beginRun();
    return store;
  } catch (const SqliteError& e) {
    if (e.notADatabase())
      throw EngineError(refused + "it is not an SQLite database or it is damaged (" + e.what() +
                        "); it was left as it is");
    if (e.busy())
      throw EngineError("the model store " + path + " is in use by another run on this project");
    throw EngineError("the model store " + path + " cannot be opened: " + e.what());
  }
}

void ModelStore::beginRun() {
  if (!lock_) return;  // a scratch store: no one else sees it
  if (!lock_->lockRun(g_busyTimeoutMs)) throw EngineError(inUse(path_));
  removeStaleJournal();
}

// A store in WAL mode never uses a rollback journal, and SQLite neither
// reads nor removes one of no bytes. Such a file is what an older Korvane, or
// a process that ended while it made the store, left behind; with the run
// lock held no one else can be writing one.
void ModelStore::removeStaleJournal() {
  Statement mode(*db_, "PRAGMA journal_mode");
  if (!mode.step() || cp::lower(mode.text(0)) != "wal") return;
  const std::filesystem::path journal = korvane::fs::pathOfNativeText(path_ + "-journal");
  std::error_code ec;
  if (std::filesystem::is_regular_file(journal, ec) && std::filesystem::file_size(journal, ec) == 0)
    std::filesystem::remove(journal, ec);
}

void ModelStore::endRun() {
  if (lock_) lock_->unlockRun();
}

bool ModelStore::stillAt() const { return !identity_.empty() && identity(path_) == identity_; }

std::optional<ModelRow> ModelStore::findModel(std::string_view name) {
  Reading reading(*this);
  auto st = db_->cached("SELECT id, name FROM models WHERE name_key = ?");
  st->bind(1, modelKey(name));
  if (!st->step()) return std::nullopt;
  return ModelRow{st->integer(0), st->text(1)};
}

ModelRow ModelStore::createModel(std::string_view name) {
  auto st = db_->cached("INSERT INTO models(name, name_key) VALUES(?, ?)");
  st->bind(1, name).bind(2, modelKey(name)).run();
  return ModelRow{db_->lastInsertId(), std::string(name)};
}

bool ModelStore::deleteModel(std::string_view name) {
  auto st = db_->cached("DELETE FROM models WHERE name_key = ?");
  st->bind(1, modelKey(name)).run();
  return db_->changes() > 0;
}

std::vector<ModelSummary> ModelStore::summaries() {
  Reading reading(*this);
  auto st = db_->cached(
      "SELECT m.name, count(s.id), coalesce(sum(s.point_count), 0) FROM models m "
      "LEFT JOIN strings s ON s.model_id = m.id GROUP BY m.id ORDER BY m.name_key");
  std::vector<ModelSummary> out;
  while (st->step()) out.push_back({st->text(0), st->integer(1), st->integer(2)});
  return out;
}

namespace {

// FNV-1a: a run that changes a string changes its digest but by chance.
void digestBytes(std::uint64_t& h, std::string_view bytes) {
  for (unsigned char c : bytes) h = (h ^ c) * 0x100000001b3ULL;
}

}  // namespace

std::vector<ModelDigest> ModelStore::digests() {
  Reading reading(*this);
  auto st = db_->cached(
      "SELECT m.id, m.name, s.label, s.point_count, s.subref || ',' || s.dimension || ',' || "
      "coalesce(s.level, ''), p.data FROM models m LEFT JOIN strings s ON s.model_id = m.id "
      "LEFT JOIN points p ON p.string_id = s.id ORDER BY m.name_key, s.seq");
  std::vector<ModelDigest> out;
  std::int64_t model = 0;
  while (st->step()) {
    if (out.empty() || st->integer(0) != model) {
      model = st->integer(0);
      out.push_back({st->text(1), {}});
    }
    if (st->isNull(2)) continue;  // a model without strings
    std::uint64_t h = 0xcbf29ce484222325ULL;
    digestBytes(h, st->text(4));
    digestBytes(h, st->blob(5));
    out.back().strings.push_back({st->text(2), static_cast<std::int32_t>(st->integer(3)), h});
  }
  return out;
}

std::vector<StringRow> ModelStore::strings(std::int64_t modelId) {
  Reading reading(*this);
  auto st = db_->cached(
      "SELECT id, label, subref, dimension, level, point_count FROM strings "
      "WHERE model_id = ? ORDER BY seq");
  st->bind(1, modelId);
  std::vector<StringRow> out;
  while (st->step()) out.push_back(readStringRow(*st));
  return out;
}

std::optional<StringRow> ModelStore::findString(std::int64_t modelId, std::string_view label) {
  Reading reading(*this);
  auto st = db_->cached(
      "SELECT id, label, subref, dimension, level, point_count FROM strings "
      "WHERE model_id = ? AND label = ?");
  st->bind(1, modelId).bind(2, normalLabel(label));
  if (!st->step()) return std::nullopt;
  return readStringRow(*st);
}

std::optional<ModelPoint> ModelStore::point(const StringRow& row, std::int32_t n) {
  if (n < 1 || n > row.pointCount) return std::nullopt;
  Reading reading(*this);
  const std::size_t size = pointRecordSize(row.header.dimension);
  std::string record(size, '\0');
  if (!db_->readBlob("points", "data", row.id, static_cast<int>(size) * (n - 1),
                     static_cast<int>(size), record.data()))
    return std::nullopt;
  return decodePoint(record, row.header.dimension);
}

ModelString ModelStore::load(const StringRow& row) {
  Reading reading(*this);
  auto st = db_->cached("SELECT data FROM points WHERE string_id = ?");
  st->bind(1, row.id);
  ModelString s{row.header, {}};
  if (st->step())
    s.points =
        decodePoints(st->blob(0), row.header.dimension, static_cast<std::size_t>(row.pointCount));
  return s;
}

void ModelStore::saveString(std::int64_t modelId, const ModelString& s) {
  const std::string data = encodePoints(s);
  const StringHeader& h = s.header;
  std::optional<StringRow> old = findString(modelId, h.label);
  std::int64_t id = 0;
  if (old) {
    id = old->id;
    auto st = db_->cached(
        "UPDATE strings SET subref = ?, dimension = ?, level = ?, point_count = ? WHERE id = ?");
    st->bind(1, h.subref).bind(2, static_cast<std::int64_t>(h.dimension));
    if (h.level) st->bind(3, *h.level);
    st->bind(4, static_cast<std::int64_t>(s.points.size())).bind(5, id).run();
  } else {
    auto st = db_->cached(
        "INSERT INTO strings(model_id, seq, label, subref, dimension, level, point_count) "
        "VALUES(?1, (SELECT coalesce(max(seq), 0) + 1 FROM strings WHERE model_id = ?1), "
        "?2, ?3, ?4, ?5, ?6)");
    st->bind(1, modelId).bind(2, h.label).bind(3, h.subref);
    st->bind(4, static_cast<std::int64_t>(h.dimension));
    if (h.level) st->bind(5, *h.level);
    st->bind(6, static_cast<std::int64_t>(s.points.size())).run();
    id = db_->lastInsertId();
  }
  auto st = db_->cached("INSERT OR REPLACE INTO points(string_id, data) VALUES(?, ?)");
  st->bind(1, id).bindBlob(2, data).run();
}

void ModelStore::deleteString(std::int64_t stringId) {
  auto st = db_->cached("DELETE FROM strings WHERE id = ?");
  st->bind(1, stringId).run();
}

void ModelStore::keep(std::int64_t modelId, const KeptBlock& block) {
  std::string text;
  for (const std::string& line : block.lines) text += (text.empty() ? "" : "\n") + line;
  auto st = db_->cached("INSERT INTO kept(model_id, kind, items, lines) VALUES(?, ?, ?, ?)");
  st->bind(1, modelId)
      .bind(2, static_cast<std::int64_t>(block.kind))
      .bind(3, static_cast<std::int64_t>(block.items))
      .bind(4, text)
      .run();
}

std::vector<KeptBlock> ModelStore::kept(std::int64_t modelId) {
  Reading reading(*this);
  std::vector<KeptBlock> out;
  if (db_->queryInt("SELECT count(*) FROM sqlite_master WHERE name = 'kept'") == 0)
    return out;  // a store no run of this engine has opened yet
  auto st = db_->cached("SELECT kind, items, lines FROM kept WHERE model_id = ? ORDER BY id");
  st->bind(1, modelId);
  while (st->step()) {
    KeptBlock b;
    b.kind = static_cast<KeptBlock::Kind>(st->integer(0));
    b.items = static_cast<long>(st->integer(1));
    const std::string text = st->text(2);
    for (std::size_t at = 0;;) {
      std::size_t end = text.find('\n', at);
      b.lines.push_back(text.substr(at, end == std::string::npos ? end : end - at));
      if (end == std::string::npos) break;
      at = end + 1;
    }
    out.push_back(std::move(b));
  }
  return out;
}

}  // namespace korvane::engine
