#include "engine/embedded_engine.h"

#include <filesystem>

#include "base/codepage.h"
#include "base/fs.h"
#include "base/text.h"
#include "engine/engine_limits.h"
#include "engine/engine_run.h"
#include "engine/input_file.h"
#include "engine/label_rules.h"
#include "engine/listing.h"
#include "engine/point_record.h"

namespace korvane::engine {
namespace {

namespace fs = std::filesystem;

// The engine's own files, named as the file system spells them. Everything the
// engine is given and gives back (folders, input files, the listing's name)
// is the users' code page; it is converted here, once, on the way in.
std::string inFolder(const std::string& folder, const char* name) {
  return korvane::fs::nativeText(korvane::fs::join(folder, name));
}

std::string nativeName(const std::string& name) { return korvane::fs::nativeText(name); }

}  // namespace

EmbeddedEngine::EmbeddedEngine(std::string folder, std::map<std::string, std::string> settings)
    : folder_(std::move(folder)),
      settings_(std::move(settings)),
      access_(inFolder(folder_, ModelStore::kFileName)),
      library_(access_) {}

std::unique_ptr<EmbeddedEngine> EmbeddedEngine::create(const EngineOptions& options,
                                                       std::string& error) {
  if (options.projectFolder.empty() || !korvane::fs::folderExists(options.projectFolder)) {
    error = "the project folder \"" + options.projectFolder + "\" does not exist";
    return nullptr;
  }
  std::unique_ptr<EmbeddedEngine> e(new EmbeddedEngine(options.projectFolder, options.settings));
  e->access_.get(error);  // a foreign or damaged store is refused here
  if (!error.empty()) return nullptr;
  return e;
}

std::string EmbeddedEngine::listingPath() const {
  return korvane::fs::join(folder_, Listing::kFileName);
}

// --- configuration -----------------------------------------------------------

std::string EmbeddedEngine::setting(std::string_view name) {
  for (const auto& [key, value] : settings_)
    if (cp::equalsIgnoreCase(key, name)) return value;
  return {};
}

MxRunResult EmbeddedEngine::run(std::string_view verb, const std::string& fullName) {
  MxRunResult r;
  r.listing = listingPath();
  if (!cp::equalsIgnoreCase(verb, "input")) {
    r.error = "the engine runs input files only (verb \"input\"), not \"" + excerpt(verb) + "\"";
    return r;
  }
  std::vector<std::string> lines;
  if (!readInputLines(nativeName(fullName), lines, r.error)) return r;
  return execute(std::move(lines), fullName, std::nullopt);
}

MxRunResult EmbeddedEngine::runLines(const std::vector<std::string>& lines, const std::string& name,
                                     std::optional<std::string> importModel) {
  return execute(lines, name, importModel);
}

MxRunResult EmbeddedEngine::importGenio(const std::string& file, const std::string& model) {
  MxRunResult r;
  r.listing = listingPath();
  std::vector<std::string> lines;
  if (!readInputLines(nativeName(file), lines, r.error)) return r;
  return execute(std::move(lines), file, model);
}

MxRunResult EmbeddedEngine::makeSections(const std::string& model, const std::string& master,
                                         const std::string& target, const SectionRequest& request) {
  MxRunResult r;  // no listing until the sections run
  if (cp::equalsIgnoreCase(text::trim(model), text::trim(target))) {
    r.error = "sections go into another model than \"" + excerpt(model) + "\"";
    return r;
  }
  std::vector<StringRow> rows;
  if (!strings(model, rows, r.error)) return r;
  std::vector<ModelString> all(rows.size());
  const ModelString* axis = nullptr;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (!loadString(model, rows[i].header.label, all[i], r.error)) return r;
    if (all[i].header.label == normalLabel(master)) axis = &all[i];
  }
  if (!axis) {
    r.error = "model \"" + excerpt(model) + "\" has no string " + excerpt(normalLabel(master));
    return r;
  }
  std::vector<ModelString> sections;
  if (!crossSections(*axis, all, request, sections, r.error)) return r;
  std::vector<std::string> lines;
  GenioWriter writer([&lines](const std::string& l) { lines.push_back(l); }, std::nullopt,
                     std::nullopt);
  writer.banner("Cross sections of " + model + " along " + axis->header.label);
  for (const ModelString& s : sections)
    if (!writer.write(s, r.error)) return r;
  writer.end();
  return execute(std::move(lines), "sections along " + axis->header.label, target);
}

MxRunResult EmbeddedEngine::execute(std::vector<std::string> lines, const std::string& name,
                                    const std::optional<std::string>& importModel) {
  MxRunResult r;
  r.listing = listingPath();
  try {
    Listing listing;
    if (!listing.open(nativeName(r.listing), r.error)) return r;
    ModelStore* store = access_.beginRun(r.error);
    if (!store) {
      listing.text("**** run refused: " + r.error);
      return r;
    }
    RunScope scope(access_);
    RunRequest request{name, std::move(lines), folder_, importModel};
    RunOutcome outcome = executeRun(*store, listing, request);
    if (!outcome.lastModel.empty()) currentModel_ = outcome.lastModel;
    r.error = outcome.error;
    r.errorLine = outcome.errorLine;
  } catch (const EngineError& e) {
    r.error = name + ": engine failure: " + e.what();
  }
  return r;
}

bool EmbeddedEngine::modelExists(std::string_view model) {
  ModelRow row;
  return findModel(model, row) == kFound;
}

bool EmbeddedEngine::stringExists(std::string_view model, std::string_view label) {
  ModelRow row;
  std::int32_t status = kFound;
  return findString(model, label, row, status).has_value();
}

std::string EmbeddedEngine::projectFileName() {
  std::error_code ec;
  std::string first;
  for (fs::directory_iterator it(korvane::fs::native(folder_), ec), end; !ec && it != end;
       it.increment(ec)) {
    std::string name = korvane::fs::fromNative(it->path().filename());
    if (name.size() < 5 || !cp::equalsIgnoreCase(name.substr(name.size() - 4), ".mmd") ||
        !it->is_regular_file(ec))
      continue;
    if (first.empty() || name < first) first = std::move(name);
  }
  return first;
}

// --- data access -----------------------------------------------------------------

std::int32_t EmbeddedEngine::findModel(std::string_view model, ModelRow& row) {
  std::size_t first = model.find_first_not_of(' ');
  if (first != std::string_view::npos && model.find_last_not_of(' ') - first >= kMaxModelName)
    return kNoModel;  // longer than any model's name
  try {
    std::string error;
    ModelStore* store = access_.get(error);
    if (!store) return error.empty() ? kNoModel : kStoreFailure;
    auto m = store->findModel(text::trim(model));
    if (!m) return kNoModel;
    row = *m;
    return kFound;
  } catch (const EngineError&) {
    return kStoreFailure;
  }
}

std::optional<StringRow> EmbeddedEngine::findString(std::string_view model, std::string_view label,
                                                    ModelRow& row, std::int32_t& status) {
  status = findModel(model, row);
  if (status != kFound) return std::nullopt;
  try {
    ModelStore* store = access_.get();
    auto s = store ? store->findString(row.id, label) : std::nullopt;
    status = s ? kFound : kNoString;
    return s;
  } catch (const EngineError&) {
    status = kStoreFailure;
    return std::nullopt;
  }
}

std::int32_t EmbeddedEngine::stringInfo(std::string_view model, std::string_view label,
                                        std::int32_t& pointCount) {
  pointCount = 0;
  ModelRow m;
  std::int32_t status = kFound;
  auto s = findString(model, label, m, status);
  if (!s) return status;
  currentModel_ = m.name;
  pointCount = s->pointCount;
  return kFound;
}

std::int32_t EmbeddedEngine::point(std::string_view model, std::string_view label, std::int32_t n,
                                   PointRecord& out) {
  ModelRow m;
  std::int32_t status = kFound;
  auto s = findString(model, label, m, status);
  if (!s) return status;
  currentModel_ = m.name;
  try {
    ModelStore* store = access_.get();
    auto p = store ? store->point(*s, n) : std::nullopt;
    if (!p) return kNoPoint;
    fillPointRecord(m.name, *s, *p, n, out);
    return kFound;
  } catch (const EngineError&) {
    return kStoreFailure;
  }
}

std::int32_t EmbeddedEngine::record(std::int32_t n, PointRecord& out) {
  ModelRow m;
  if (currentModel_.empty()) return kNoModel;
  std::int32_t status = findModel(currentModel_, m);
  if (status != kFound) return status;
  if (n < 1) return kNoPoint;
  try {
    ModelStore* store = access_.get();
    if (!store) return kNoModel;
    std::int64_t left = n;
    for (const StringRow& row : store->strings(m.id)) {
      if (left > row.pointCount) {
        left -= row.pointCount;
        continue;
      }
      auto p = store->point(row, static_cast<std::int32_t>(left));
      if (!p) return kNoPoint;
      fillPointRecord(m.name, row, *p, static_cast<int>(left), out);
      return kFound;
    }
    return kNoPoint;
  } catch (const EngineError&) {
    return kStoreFailure;
  }
}

std::int32_t EmbeddedEngine::nextLabel(std::string_view model, std::string_view prefix,
                                       std::string& label) {
  label.clear();
  std::vector<StringRow> rows;
  std::string error;
  ModelRow m;
  std::int32_t status = findModel(model, m);
  if (status != kFound) return status;
  if (!validLabelPrefix(prefix)) return kBadArgument;
  if (!strings(m.name, rows, error)) return kStoreFailure;
  std::vector<std::string> labels;
  for (const StringRow& r : rows) labels.push_back(r.header.label);
  auto next = engine::nextLabel(labels, prefix);
  if (!next) return kNoFreeLabel;
  label = *next;
  return kFound;
}

std::int32_t EmbeddedEngine::labelCount(std::string_view model, std::string_view prefix,
                                        std::int32_t& count) {
  count = 0;
  std::vector<StringRow> rows;
  std::string error;
  ModelRow m;
  std::int32_t status = findModel(model, m);
  if (status != kFound) return status;
  if (!strings(m.name, rows, error)) return kStoreFailure;
  std::vector<std::string> labels;
  for (const StringRow& r : rows) labels.push_back(r.header.label);
  count = countWithPrefix(labels, prefix);
  return kFound;
}

std::int32_t EmbeddedEngine::parameter(std::string_view name, int group, std::string& value) {
  value.clear();
  const std::string key = cp::lower(text::trim(name));
  if (group == 1) {
    if (key == "engine")
      value = "embedded";
    else if (key == "projectfolder")
      value = folder_;
    else if (key == "modelstore")
      value = korvane::fs::fromNative(access_.path());
    else if (key == "listing")
      value = listingPath();
    else if (key == "currentmodel")
      value = currentModel_;
    else
      return 0;
    return 1;
  }
  if (group == 2) {
    for (const auto& [k, v] : settings_)
      if (cp::equalsIgnoreCase(k, key)) {
        value = v;
        return 1;
      }
  }
  return 0;
}

// --- for korvane models --------------------------------------------------------

bool EmbeddedEngine::models(std::vector<ModelSummary>& out, std::string& error) {
  out.clear();
  try {
    ModelStore* store = access_.get(error);
    if (store) out = store->summaries();
    return error.empty();
  } catch (const EngineError& e) {
    error = e.what();
    return false;
  }
}

bool EmbeddedEngine::strings(const std::string& model, std::vector<StringRow>& out,
                             std::string& error) {
  out.clear();
  ModelRow m;
  std::int32_t status = findModel(model, m);
  if (status != kFound) {
    error = status == kNoModel ? "there is no model \"" + excerpt(model) + "\""
                               : "the model store cannot be read";
    return false;
  }
  try {
    if (ModelStore* store = access_.get()) out = store->strings(m.id);
    return true;
  } catch (const EngineError& e) {
    error = e.what();
    return false;
  }
}

bool EmbeddedEngine::loadString(const std::string& model, const std::string& label,
                                ModelString& out, std::string& error) {
  ModelRow m;
  std::int32_t status = kFound;
  auto row = findString(model, label, m, status);
  if (!row) {
    error = status == kNoModel ? "there is no model \"" + excerpt(model) + "\""
            : status == kNoString
                ? "model \"" + excerpt(model) + "\" has no string " + excerpt(normalLabel(label))
                : "the model store cannot be read";
    return false;
  }
  try {
    ModelStore* store = access_.get();
    if (!store) {
      error = "the model store cannot be read";
      return false;
    }
    out = store->load(*row);
    return true;
  } catch (const EngineError& e) {
    error = e.what();
    return false;
  }
}

bool EmbeddedEngine::exportGenio(const std::string& model, const LineSink& sink,
                                 std::string& error) {
  std::vector<StringRow> rows;
  if (!strings(model, rows, error)) return false;
  try {
    GenioWriter w(sink, std::nullopt, std::nullopt);
    w.banner("GENIO output of model " + model + " (Korvane embedded engine)");
    ModelStore* store = access_.get();
    if (!store) {
      error = "the model store cannot be read";
      return false;
    }
    for (const StringRow& row : rows)
      if (!w.write(store->load(row), error)) return false;
    w.end();
    return true;
  } catch (const EngineError& e) {
    error = e.what();
    return false;
  }
}

}  // namespace korvane::engine
