// The embedded engine's model store: one SQLite file in the project folder
// holding models, their strings in model order and every point with all its
// dimensions. A run opens the store with an exclusive lock that it keeps until
// it closes, so two runs on one project never interleave; queries open it
// shared and only between runs.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/embedded/model_string.h"
#include "hosts/embedded/sqlite_db.h"

namespace korvane::hosts::embedded {

struct ModelRow {
  std::int64_t id = 0;
  std::string name;
};

struct StringRow {
  std::int64_t id = 0;
  StringHeader header;
  std::int32_t pointCount = 0;
};

struct ModelSummary {
  std::string name;
  std::int64_t strings = 0;
  std::int64_t points = 0;
};

class ModelStore {
 public:
  static constexpr const char* kFileName = "korvane-models.db";
  enum class Access { Query, Run };

  // Opens the store file at `path`. Run access creates the file when it is
  // missing and takes the exclusive lock; Query access opens an existing store
  // only and returns null with an empty error when there is none yet. A file
  // that is not a Korvane store is refused with a reason and left untouched.
  static std::unique_ptr<ModelStore> open(const std::string& path, Access access,
                                          std::string& error);
  // Milliseconds to wait for another connection's lock before giving up.
  static void setBusyTimeout(int ms);
  // The store file and the files SQLite keeps beside it.
  static std::vector<std::string> files(const std::string& path);

  SqliteDb& db() { return *db_; }
  const std::string& path() const { return path_; }

  // Models are named case-insensitively; the name keeps its first spelling.
  std::optional<ModelRow> findModel(std::string_view name);
  ModelRow createModel(std::string_view name);
  bool deleteModel(std::string_view name);
  std::vector<ModelSummary> summaries();

  std::vector<StringRow> strings(std::int64_t modelId);
  std::optional<StringRow> findString(std::int64_t modelId, std::string_view label);
  std::vector<ModelPoint> points(std::int64_t stringId);
  std::optional<ModelPoint> point(std::int64_t stringId, std::int32_t n);
  ModelString load(const StringRow& row);

  // Stores a string; a string of the same label is replaced in its place in
  // the model order, a new one goes to the end.
  void saveString(std::int64_t modelId, const ModelString& s);
  void deleteString(std::int64_t stringId);

 private:
  ModelStore(std::unique_ptr<SqliteDb> db, std::string path)
      : db_(std::move(db)), path_(std::move(path)) {}
  void insertPoints(std::int64_t stringId, const ModelString& s);

  std::unique_ptr<SqliteDb> db_;
  std::string path_;
};

}  // namespace korvane::hosts::embedded
