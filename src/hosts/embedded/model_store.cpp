#include "hosts/embedded/model_store.h"

#include <sqlite3.h>

#include <filesystem>

#include "shell/codepage.h"

namespace korvane::hosts::embedded {
namespace {

constexpr std::int64_t kApplicationId = 0x4B6F7276;  // "Korv"
constexpr std::int64_t kSchemaVersion = 1;
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
  string_id INTEGER NOT NULL REFERENCES strings(id) ON DELETE CASCADE,
  n INTEGER NOT NULL,
  gap INTEGER NOT NULL,
  chainage REAL NOT NULL,
  d1, d2, d3, d4, d5, d6, d7, d8, d9, d10, d11, d12,
  PRIMARY KEY(string_id, n)) WITHOUT ROWID;
)sql";

std::string modelKey(std::string_view name) { return cp::upper(name); }

// Checks that the file is our store, or creates the schema in an empty file.
// Returns false with a reason when the file belongs to something else.
bool checkSchema(SqliteDb& db, bool create, bool& empty, std::string& why) {
  std::int64_t app = db.queryInt("PRAGMA application_id");
  std::int64_t version = db.queryInt("PRAGMA user_version");
  std::int64_t objects = db.queryInt("SELECT count(*) FROM sqlite_master");
  empty = false;
  if (app == kApplicationId) {
    if (version == kSchemaVersion) return true;
    why = "it has store schema version " + std::to_string(version) +
          ", this engine reads version " + std::to_string(kSchemaVersion);
    return false;
  }
  if (app == 0 && objects == 0) {
    empty = true;
    if (!create) return true;
    db.exec(kSchema);
    db.exec("PRAGMA application_id = " + std::to_string(kApplicationId));
    db.exec("PRAGMA user_version = " + std::to_string(kSchemaVersion));
    empty = false;
    return true;
  }
  why = "it is an SQLite database of another application (application id " + std::to_string(app) +
        ", " + std::to_string(objects) + " schema objects)";
  return false;
}

constexpr const char* kPointColumns =
    "gap, chainage, d1, d2, d3, d4, d5, d6, d7, d8, d9, d10, d11, d12";

ModelPoint readPoint(const Statement& st, int first) {
  ModelPoint p;
  p.gapAfter = st.integer(first) != 0;
  p.chainage = st.real(first + 1);
  for (int d = 0; d < kMaxDimension; ++d) {
    int col = first + 2 + d;
    if (st.isNull(col)) break;
    p.dims.push_back(st.isText(col) ? DimValue::text(st.text(col))
                                    : DimValue::number(st.real(col)));
  }
  return p;
}

}  // namespace

void ModelStore::setBusyTimeout(int ms) { g_busyTimeoutMs = ms; }

std::vector<std::string> ModelStore::files(const std::string& path) {
  return {path, path + "-journal", path + "-wal", path + "-shm"};
}

std::unique_ptr<ModelStore> ModelStore::open(const std::string& path, Access access,
                                             std::string& error) {
  error.clear();
  std::error_code ec;
  if (access == Access::Query && !std::filesystem::exists(path, ec)) return nullptr;
  const std::string refused = "the model store " + path + " is not a Korvane model store: ";
  try {
    auto db =
        std::make_unique<SqliteDb>(path, access == Access::Run ? SqliteDb::OpenMode::ReadWriteCreate
                                                               : SqliteDb::OpenMode::ReadWrite);
    sqlite3_busy_timeout(db->handle(), g_busyTimeoutMs);
    db->exec("PRAGMA foreign_keys = ON");
    bool empty = false;
    std::string why;
    if (access == Access::Run) {
      // The exclusive lock taken here is kept until the connection closes.
      // NORMAL syncs at the moments that keep each commit whole; it spares the
      // extra syncs of FULL, which would dominate a run of a few records.
      db->exec("PRAGMA locking_mode = EXCLUSIVE");
      db->exec("PRAGMA journal_mode = TRUNCATE");
      db->exec("PRAGMA synchronous = NORMAL");
      try {
        Transaction lock(*db, true);
        if (!checkSchema(*db, true, empty, why)) {
          error = refused + why + "; it was left as it is";
          return nullptr;
        }
        lock.commit();
      } catch (const SqliteError& e) {
        if (!e.busy()) throw;
        error = "the model store " + path +
                " is in use by another run on this project; runs are not interleaved, so this "
                "run was refused (try again when the other has ended)";
        return nullptr;
      }
    } else if (!checkSchema(*db, false, empty, why)) {
      error = refused + why + "; it was left as it is";
      return nullptr;
    } else if (empty) {
      return nullptr;
    }
    return std::unique_ptr<ModelStore>(new ModelStore(std::move(db), path));
  } catch (const SqliteError& e) {
    if (e.notADatabase())
      error = refused + "it is not an SQLite database or it is damaged (" + e.what() +
              "); it was left as it is";
    else if (e.busy())
      error = "the model store " + path + " is in use by another run on this project";
    else
      error = "the model store " + path + " cannot be opened: " + e.what();
    return nullptr;
  }
}

std::optional<ModelRow> ModelStore::findModel(std::string_view name) {
  Statement st(*db_, "SELECT id, name FROM models WHERE name_key = ?");
  st.bind(1, modelKey(name));
  if (!st.step()) return std::nullopt;
  return ModelRow{st.integer(0), st.text(1)};
}

ModelRow ModelStore::createModel(std::string_view name) {
  Statement st(*db_, "INSERT INTO models(name, name_key) VALUES(?, ?)");
  st.bind(1, name).bind(2, modelKey(name)).run();
  return ModelRow{db_->lastInsertId(), std::string(name)};
}

bool ModelStore::deleteModel(std::string_view name) {
  Statement st(*db_, "DELETE FROM models WHERE name_key = ?");
  st.bind(1, modelKey(name)).run();
  return sqlite3_changes(db_->handle()) > 0;
}

std::vector<ModelSummary> ModelStore::summaries() {
  Statement st(*db_,
               "SELECT m.name, count(s.id), coalesce(sum(s.point_count), 0) FROM models m "
               "LEFT JOIN strings s ON s.model_id = m.id GROUP BY m.id ORDER BY m.name_key");
  std::vector<ModelSummary> out;
  while (st.step()) out.push_back({st.text(0), st.integer(1), st.integer(2)});
  return out;
}

namespace {
constexpr const char* kStringColumns = "id, label, subref, dimension, level, point_count";

StringRow readStringRow(const Statement& st) {
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

std::vector<StringRow> ModelStore::strings(std::int64_t modelId) {
  Statement st(*db_, std::string("SELECT ") + kStringColumns +
                         " FROM strings WHERE model_id = ? ORDER BY seq");
  st.bind(1, modelId);
  std::vector<StringRow> out;
  while (st.step()) out.push_back(readStringRow(st));
  return out;
}

std::optional<StringRow> ModelStore::findString(std::int64_t modelId, std::string_view label) {
  Statement st(*db_, std::string("SELECT ") + kStringColumns +
                         " FROM strings WHERE model_id = ? AND label = ?");
  st.bind(1, modelId).bind(2, normalLabel(label));
  if (!st.step()) return std::nullopt;
  return readStringRow(st);
}

std::vector<ModelPoint> ModelStore::points(std::int64_t stringId) {
  Statement st(
      *db_, std::string("SELECT ") + kPointColumns + " FROM points WHERE string_id = ? ORDER BY n");
  st.bind(1, stringId);
  std::vector<ModelPoint> out;
  while (st.step()) out.push_back(readPoint(st, 0));
  return out;
}

std::optional<ModelPoint> ModelStore::point(std::int64_t stringId, std::int32_t n) {
  Statement st(
      *db_, std::string("SELECT ") + kPointColumns + " FROM points WHERE string_id = ? AND n = ?");
  st.bind(1, stringId).bind(2, static_cast<std::int64_t>(n));
  if (!st.step()) return std::nullopt;
  return readPoint(st, 0);
}

ModelString ModelStore::load(const StringRow& row) { return {row.header, points(row.id)}; }

void ModelStore::saveString(std::int64_t modelId, const ModelString& s) {
  std::optional<StringRow> old = findString(modelId, s.header.label);
  std::int64_t seq = 0;
  if (old) {
    seq = db_->queryInt("SELECT seq FROM strings WHERE id = " + std::to_string(old->id));
    deleteString(old->id);
  } else {
    seq = db_->queryInt("SELECT coalesce(max(seq), 0) + 1 FROM strings WHERE model_id = " +
                        std::to_string(modelId));
  }
  Statement st(*db_,
               "INSERT INTO strings(model_id, seq, label, subref, dimension, level, point_count) "
               "VALUES(?, ?, ?, ?, ?, ?, ?)");
  st.bind(1, modelId).bind(2, seq).bind(3, s.header.label).bind(4, s.header.subref);
  st.bind(5, static_cast<std::int64_t>(s.header.dimension));
  if (s.header.level) st.bind(6, *s.header.level);
  st.bind(7, static_cast<std::int64_t>(s.points.size()));
  st.run();
  insertPoints(db_->lastInsertId(), s);
}

void ModelStore::insertPoints(std::int64_t stringId, const ModelString& s) {
  Statement st(*db_,
               "INSERT INTO points(string_id, n, gap, chainage, d1, d2, d3, d4, d5, d6, d7, d8, "
               "d9, d10, d11, d12) VALUES(?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
  std::vector<double> ch = chainages(s);
  for (std::size_t i = 0; i < s.points.size(); ++i) {
    const ModelPoint& p = s.points[i];
    st.bind(1, stringId).bind(2, static_cast<std::int64_t>(i + 1));
    st.bind(3, static_cast<std::int64_t>(p.gapAfter ? 1 : 0)).bind(4, ch[i]);
    for (std::size_t d = 0; d < p.dims.size() && d < kMaxDimension; ++d) {
      int col = static_cast<int>(5 + d);
      if (p.dims[d].isText)
        st.bind(col, std::string_view(p.dims[d].txt));
      else
        st.bind(col, p.dims[d].num);
    }
    st.run();
  }
}

void ModelStore::deleteString(std::int64_t stringId) {
  Statement st(*db_, "DELETE FROM strings WHERE id = ?");
  st.bind(1, stringId).run();
}

}  // namespace korvane::hosts::embedded
