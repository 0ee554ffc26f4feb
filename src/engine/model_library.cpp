#include "engine/model_library.h"

namespace korvane::engine {
namespace {

// Loads a string now; null when the model or string is gone.
std::optional<ModelString> loadString(StoreAccess& access, const std::string& model,
                                      const std::string& label) {
  try {
    ModelStore* store = access.get();
    if (!store) return std::nullopt;
    auto m = store->findModel(model);
    if (!m) return std::nullopt;
    auto row = store->findString(m->id, label);
    if (!row) return std::nullopt;
    return store->load(*row);
  } catch (const EngineError&) {
    return std::nullopt;
  }
}

class EmbeddedString final : public MxString {
 public:
  EmbeddedString(StoreAccess& store, std::string model, std::string label)
      : store_(store), model_(std::move(model)), label_(std::move(label)) {}

  std::string name() override { return label_; }

  std::vector<MxPoint> points() override {
    std::vector<MxPoint> out;
    auto s = loadString(store_, model_, label_);
    if (!s) return out;
    out.reserve(s->points.size());
    for (const ModelPoint& p : s->points)
      out.push_back({dimNumber(s->header, p, 1), dimNumber(s->header, p, 2),
                     dimNumber(s->header, p, 3), p.gapAfter ? 1 : 0});
    return out;
  }

  std::vector<double> GetPointData() override {
    std::vector<double> out;
    for (const MxPoint& p : points()) out.insert(out.end(), {p.X, p.Y, p.z});
    return out;
  }

 private:
  StoreAccess& store_;
  std::string model_, label_;
};

class EmbeddedModel final : public MxModel {
 public:
  EmbeddedModel(StoreAccess& store, std::string name) : store_(store), name_(std::move(name)) {}

  std::vector<std::string> stringLabels() override {
    std::vector<std::string> out;
    try {
      ModelStore* store = store_.get();
      auto m = store ? store->findModel(name_) : std::nullopt;
      if (!m) return out;
      for (const StringRow& row : store->strings(m->id)) out.push_back(row.header.label);
    } catch (const EngineError&) {
      out.clear();
    }
    return out;
  }

  std::unique_ptr<MxString> string(std::string_view label) override {
    try {
      ModelStore* store = store_.get();
      auto m = store ? store->findModel(name_) : std::nullopt;
      if (!m) return nullptr;
      auto row = store->findString(m->id, label);
      if (!row) return nullptr;
      return std::make_unique<EmbeddedString>(store_, name_, row->header.label);
    } catch (const EngineError&) {
      return nullptr;
    }
  }

 private:
  StoreAccess& store_;
  std::string name_;
};

}  // namespace

std::unique_ptr<MxModel> EmbeddedLibrary::model(std::string_view name) {
  try {
    ModelStore* store = store_.get();
    auto m = store ? store->findModel(name) : std::nullopt;
    if (!m) return nullptr;
    return std::make_unique<EmbeddedModel>(store_, m->name);
  } catch (const EngineError&) {
    return nullptr;
  }
}

}  // namespace korvane::engine
