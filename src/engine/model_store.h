// The embedded engine's model store: one SQLite file in the project folder
// holding models, their strings in model order, and each string's points as
// one BLOB (point_blob.h). The file is in WAL mode: a commit reaches the
// operating system at once and the disk at the next checkpoint, so a killed
// program loses nothing committed and a power failure at most the last runs,
// never part of one (a run is one transaction, engine_run.h). Runs are kept apart by the run lock beside the
// store (run_lock.h): a run holds it from its start to its end, reads take it
// shared.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/model_string.h"
#include "engine/run_lock.h"
#include "engine/sqlite_db.h"

namespace korvane::engine {

struct ModelRow {
  std::int64_t id = 0;
  std::string name;
};

struct StringRow {
  std::int64_t id = 0;
  StringHeader header;
  std::int32_t pointCount = 0;
};

// Records a model keeps as they were written (kept_records.h): the FORMAT
// they were read with, their header record and their data records.
struct KeptBlock {
  enum class Kind { Triangles, TextString };
  Kind kind = Kind::Triangles;
  long items = 0;  // triangles, or points of the text string
  std::vector<std::string> lines;
};

struct ModelSummary {
  std::string name;
  std::int64_t strings = 0;
  std::int64_t points = 0;
};

// A model's strings in model order, each with a digest of all it holds, to
// tell what a run changed.
struct ModelDigest {
  struct String {
    std::string label;
    std::int32_t points = 0;
    std::uint64_t digest = 0;
  };
  std::string name;
  std::vector<String> strings;
};

class ModelStore {
 public:
  static constexpr const char* kFileName = "korvane-models.db";
  enum class Access { Query, Run, Scratch };

  // Opens the store file at `path`. Run access creates the file when it is
  // missing and takes the run lock (see beginRun); Query access opens an
  // existing store only and returns null when there is none yet. A file that
  // is not a Korvane store of this schema version is refused (EngineError)
  // and left untouched. Scratch access gives an empty store in memory that
  // stands for a store not made yet and is gone when closed: nothing is
  // written beside `path`, and it has no run lock.
  static std::unique_ptr<ModelStore> open(const std::string& path, Access access);
  // Milliseconds to wait for another connection's lock before giving up.
  static void setBusyTimeout(int ms);
  // The store file and the files SQLite and the run lock keep beside it.
  static std::vector<std::string> files(const std::string& path);

  ~ModelStore();

  // Takes the run lock; EngineError when another run holds it.
  void beginRun();
  void endRun();
  // False when the file at path() is no longer the one this store opened
  // (removed or replaced since).
  bool stillAt() const;

  SqliteDb& db() { return *db_; }
  const std::string& path() const { return path_; }

  // Models are named case-insensitively; the name keeps its first spelling.
  std::optional<ModelRow> findModel(std::string_view name);
  ModelRow createModel(std::string_view name);
  bool deleteModel(std::string_view name);
  std::vector<ModelSummary> summaries();
  // Every model by name (in upper case).
  std::vector<ModelDigest> digests();

  std::vector<StringRow> strings(std::int64_t modelId);
  std::optional<StringRow> findString(std::int64_t modelId, std::string_view label);
  // Point n (1-based) of a string, read without its other points.
  std::optional<ModelPoint> point(const StringRow& row, std::int32_t n);
  ModelString load(const StringRow& row);

  // Stores a string; a string of the same label is replaced in its place in
  // the model order, a new one goes to the end.
  void saveString(std::int64_t modelId, const ModelString& s);
  void deleteString(std::int64_t stringId);

  // Kept records, in the order kept.
  void keep(std::int64_t modelId, const KeptBlock& block);
  std::vector<KeptBlock> kept(std::int64_t modelId);

 private:
  // Removes an empty "-journal" file beside a store in WAL mode.
  void removeStaleJournal();
  ModelStore(std::unique_ptr<SqliteDb> db, std::string path);
  class Reading;

  std::unique_ptr<SqliteDb> db_;
  std::unique_ptr<RunLock> lock_;
  std::string path_;
  std::string identity_;  // of the file opened, see stillAt()
};

}  // namespace korvane::engine
