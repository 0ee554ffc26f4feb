#include "engine/store_access.h"

namespace korvane::engine {

ModelStore* StoreAccess::get() {
  if (store_ && !store_->stillAt()) store_.reset();
  if (!store_) store_ = ModelStore::open(path_, ModelStore::Access::Query);
  return store_.get();
}

ModelStore& StoreAccess::beginRun() {
  if (store_ && !store_->stillAt()) store_.reset();
  if (!store_) {
    store_ = ModelStore::open(path_, ModelStore::Access::Run);  // with the run lock taken
    return *store_;
  }
  store_->beginRun();
  return *store_;
}

void StoreAccess::endRun() {
  if (store_) store_->endRun();
}

}  // namespace korvane::engine
