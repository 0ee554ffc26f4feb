#include "engine/model_library.h"

namespace korvane::engine {
namespace {

// A string as the store holds it now; nullopt when the model or the string
// is gone (deleted since). Each read that fails leaves as MxError.
std::optional<ModelString> loadString(StoreAccess& access, const std::string& model,
                                      const std::string& label) {
  return readForMx([&]() -> std::optional<ModelString> {
    ModelStore* store = access.get();
    auto m = store ? store->findModel(model) : std::nullopt;
    auto row = m ? store->findString(m->id, label) : std::nullopt;
    if (!row) return std::nullopt;
    return store->load(*row);
  });
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
    return readForMx([&] {
      std::vector<std::string> out;
      ModelStore* store = store_.get();
      auto m = store ? store->findModel(name_) : std::nullopt;
      if (m)
        for (const StringRow& row : store->strings(m->id)) out.push_back(row.header.label);
      return out;
    });
  }

  std::unique_ptr<MxString> string(std::string_view label) override {
    return readForMx([&]() -> std::unique_ptr<MxString> {
      ModelStore* store = store_.get();
      auto m = store ? store->findModel(name_) : std::nullopt;
      auto row = m ? store->findString(m->id, label) : std::nullopt;
      if (!row) return nullptr;
      return std::make_unique<EmbeddedString>(store_, name_, row->header.label);
    });
  }

 private:
  StoreAccess& store_;
  std::string name_;
};

}  // namespace

std::unique_ptr<MxModel> EmbeddedLibrary::model(std::string_view name) {
  return readForMx([&]() -> std::unique_ptr<MxModel> {
    ModelStore* store = store_.get();
    auto m = store ? store->findModel(name) : std::nullopt;
    if (!m) return nullptr;
    return std::make_unique<EmbeddedModel>(store_, m->name);
  });
}

}  // namespace korvane::engine
