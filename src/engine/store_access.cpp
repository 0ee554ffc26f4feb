#include "engine/store_access.h"

#include <filesystem>

#include "base/fs.h"

namespace korvane::engine {

ModelStore* StoreAccess::get() {
  if (looking_) return &looked();
  if (store_ && !store_->stillAt()) store_.reset();
  if (!store_) store_ = ModelStore::open(path_, ModelStore::Access::Query);
  return store_.get();
}

ModelStore& StoreAccess::beginRun() {
  if (looking_) return looked();
  if (store_ && !store_->stillAt()) store_.reset();
  if (!store_) {
    store_ = ModelStore::open(path_, ModelStore::Access::Run);  // with the run lock taken
    return *store_;
  }
  store_->beginRun();
  return *store_;
}

void StoreAccess::endRun() {
  if (store_ && !looking_) store_->endRun();
}

void StoreAccess::beginLooking() {
  // An empty file is no store yet either: a run would make one in it.
  std::error_code ec;
  const auto size = std::filesystem::file_size(korvane::fs::pathOfNativeText(path_), ec);
  if (!ec && size > 0)
    beginRun();
  else
    store_ = ModelStore::open(path_, ModelStore::Access::Scratch);
  looking_ = std::make_unique<Transaction>(store_->db());
}

ModelStore& StoreAccess::looked() {
  if (!store_->db().inTransaction())
    throw EngineError("the model store's changes can no longer be undone, so nothing more is run");
  return *store_;
}

}  // namespace korvane::engine
