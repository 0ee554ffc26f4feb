// The engine's shared connection to its model store for queries between runs,
// opened on first use (a store that does not exist yet answers "no model").
#pragma once

#include <memory>
#include <string>

#include "hosts/embedded/model_store.h"

namespace korvane::hosts::embedded {

class StoreAccess {
 public:
  explicit StoreAccess(std::string path) : path_(std::move(path)) {}
  const std::string& path() const { return path_; }
  // The store, or null with a reason in `error` (empty when there is no store yet).
  ModelStore* get(std::string& error);
  ModelStore* get() {
    std::string ignored;
    return get(ignored);
  }

 private:
  std::string path_;
  std::unique_ptr<ModelStore> store_;
};

}  // namespace korvane::hosts::embedded
