#include "hosts/embedded/store_access.h"

namespace korvane::hosts::embedded {

ModelStore* StoreAccess::get(std::string& error) {
  error.clear();
  if (!store_) store_ = ModelStore::open(path_, ModelStore::Access::Query, error);
  return store_.get();
}

}  // namespace korvane::hosts::embedded
