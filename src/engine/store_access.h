// The engine's connection to its model store, kept open from one run or
// query to the next (opening the store, checking its schema and setting it up
// is most of the cost of a small run). It is opened again when the file has
// been removed or replaced meanwhile; a store that does not exist yet answers
// queries with "no model" and is created by the first run.
//
// Looking (beginLooking): from then on, until the access ends, every run and
// query works in one transaction of the store that is rolled back when the
// access ends, however that comes about. The run lock is held throughout, so
// no other run comes between; a project without a store looks at an empty
// one in memory and still has none afterwards.
#pragma once

#include <memory>
#include <string>

#include "engine/model_store.h"

namespace korvane::engine {

class StoreAccess {
 public:
  explicit StoreAccess(std::string path) : path_(std::move(path)) {}
  const std::string& path() const { return path_; }
  // The store for queries; null when there is none yet. EngineError when it
  // is refused or cannot be opened.
  ModelStore* get();
  // The store with the run lock taken, created when missing. EngineError when
  // it is refused or another run holds it.
  ModelStore& beginRun();
  void endRun();
  // EngineError when the store is refused or another run holds it.
  void beginLooking();

 private:
  // The store looked at; EngineError when its transaction has ended (SQLite
  // ends it after some failures), so that nothing is kept behind its back.
  ModelStore& looked();

  std::string path_;
  std::unique_ptr<ModelStore> store_;
  std::unique_ptr<Transaction> looking_;  // after store_: rolled back before it closes
};

// Ends the run of a StoreAccess when it goes out of scope.
class RunScope {
 public:
  explicit RunScope(StoreAccess& access) : access_(access) {}
  ~RunScope() { access_.endRun(); }
  RunScope(const RunScope&) = delete;
  RunScope& operator=(const RunScope&) = delete;

 private:
  StoreAccess& access_;
};

}  // namespace korvane::engine
