#include "engine/store_access.h"

namespace korvane::engine {

ModelStore* StoreAccess::get(std::string& error) {
  error.clear();
  if (store_ && !store_->stillAt()) store_.reset();
  if (!store_) store_ = ModelStore::open(path_, ModelStore::Access::Query, error);
  return store_.get();
}

ModelStore* StoreAccess::beginRun(std::string& error) {
  error.clear();
  if (store_ && !store_->stillAt()) store_.reset();
  if (!store_) {
    store_ = ModelStore::open(path_, ModelStore::Access::Run, error);
    return store_.get();  // opened with the run lock taken
  }
  return store_->beginRun(error) ? store_.get() : nullptr;
}

void StoreAccess::endRun() {
  if (store_) store_->endRun();
}

}  // namespace korvane::engine
