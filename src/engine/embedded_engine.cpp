#include "engine/embedded_engine.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

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

EmbeddedEngine::EmbeddedEngine(const EngineOptions& options)
    : folder_(options.projectFolder),
      settings_(options.settings),
      interrupted_(options.interrupted),
      access_(inFolder(folder_, ModelStore::kFileName)),
      library_(access_) {}

std::unique_ptr<EmbeddedEngine> EmbeddedEngine::create(const EngineOptions& options,
                                                       std::string& error) {
  if (options.projectFolder.empty() || !korvane::fs::folderExists(options.projectFolder)) {
    error = "the project folder \"" + options.projectFolder + "\" does not exist";
    return nullptr;
  }
  std::unique_ptr<EmbeddedEngine> e(new EmbeddedEngine(options));
  try {
    if (options.looking)
      e->access_.beginLooking();
    else
      e->access_.get();  // a foreign or damaged store is refused here
  } catch (const EngineError& refused) {
    error = refused.what();
    return nullptr;
  }
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
  if (!cp::equalsIgnoreCase(verb, "input")) {
    MxRunResult r;
    r.listing = listingPath();
    r.error = "the engine runs input files only (verb \"input\"), not \"" + excerpt(verb) + "\"";
    return r;
  }
  return execute(fullName, std::nullopt, [&] { return readInputLines(nativeName(fullName)); });
}

MxRunResult EmbeddedEngine::runLines(const std::vector<std::string>& lines, const std::string& name,
                                     std::optional<std::string> importModel) {
  return execute(name, importModel, [&] { return lines; });
}

MxRunResult EmbeddedEngine::importGenio(const std::string& file,
                                        const std::optional<std::string>& model) {
  return execute(
      file, model, [&] { return readInputLines(nativeName(file)); }, !model);
}

std::optional<std::vector<std::string>> EmbeddedEngine::genioModelsOf(const std::string& file) {
  if (!std::ifstream(nativeName(file), std::ios::binary)) return std::nullopt;
  return genioModels(readInputLines(nativeName(file)));
}

namespace {

// The section strings of `model` along its string `master` as GENIO lines.
std::vector<std::string> sectionInput(EmbeddedEngine& engine, const std::string& model,
                                      const std::string& master, const SectionRequest& request) {
  std::vector<ModelString> all;
  for (const StringRow& row : engine.strings(model))
    all.push_back(engine.loadString(model, row.header.label));
  const std::string axis = normalLabel(master);
  auto at = std::find_if(all.begin(), all.end(),
                         [&](const ModelString& s) { return s.header.label == axis; });
  if (at == all.end())
    throw EngineError("model \"" + excerpt(model) + "\" has no string " + excerpt(axis));
  std::vector<std::string> lines;
  GenioWriter writer([&lines](const std::string& l) { lines.push_back(l); }, std::nullopt,
                     std::nullopt);
  writer.banner("Cross sections of " + model + " along " + axis);
  for (const ModelString& s : crossSections(*at, all, request)) writer.write(s);
  writer.end();
  return lines;
}

}  // namespace

MxRunResult EmbeddedEngine::makeSections(const std::string& model, const std::string& master,
                                         const std::string& target, const SectionRequest& request) {
  MxRunResult r;  // no listing until the sections run
  if (cp::equalsIgnoreCase(text::trim(model), text::trim(target))) {
    r.error = "sections go into another model than \"" + excerpt(model) + "\"";
    return r;
  }
  std::vector<std::string> lines;
  try {
    lines = sectionInput(*this, model, master, request);
  } catch (const EngineError& e) {
    r.error = e.what();
    return r;
  }
  return execute("sections along " + normalLabel(master), target, [&] { return std::move(lines); });
}

MxRunResult EmbeddedEngine::execute(const std::string& name,
                                    const std::optional<std::string>& importModel,
                                    const std::function<std::vector<std::string>()>& input,
                                    bool importEach) {
  MxRunResult r;
  r.listing = listingPath();
  try {
    const RunRequest request{name, input(), folder_, importModel, importEach, interrupted_};
    Listing listing(nativeName(r.listing));
    ModelStore* store = nullptr;
    try {
      store = &access_.beginRun();
    } catch (const EngineError& e) {
      listing.text(std::string("**** run refused: ") + e.what());
      throw;
    }
    RunScope scope(access_);
    const RunEnd end = executeRun(*store, listing, request, currentModel_);
    if (end.interrupted) {
      r.error = name + ", line " + std::to_string(end.line) +
                ": the run was interrupted and rolled back; the models are as they were before it";
      r.errorLine = end.line;
      r.interrupted = true;
    }
  } catch (const SqliteError& e) {  // the store failed outside any record
    r.error = name + ": engine failure: " + e.what();
  } catch (const EngineError& e) {
    r.error = e.message(name);
    r.errorLine = e.line();
  }
  return r;
}

bool EmbeddedEngine::modelExists(std::string_view model) {
  return readForMx([&] {
    Found found;
    return findModel(model, found) == MxStatus::kFound;
  });
}

bool EmbeddedEngine::stringExists(std::string_view model, std::string_view label) {
  return readForMx([&] {
    Found found;
    return findString(model, label, found) == MxStatus::kFound;
  });
}

std::vector<std::string> EmbeddedEngine::modelNames() {
  return readForMx([&] {
    std::vector<std::string> names;
    for (const ModelSummary& m : models()) names.push_back(m.name);
    return names;
  });
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

namespace {

// The guard of the data-access queries: the store that cannot be read
// answers kStoreFailure.
template <class Query>
std::int32_t answer(Query&& query) {
  try {
    return query();
  } catch (const EngineError&) {
    return MxStatus::kStoreFailure;
  }
}

}  // namespace

std::int32_t EmbeddedEngine::findModel(std::string_view model, Found& found) {
  std::size_t first = model.find_first_not_of(' ');
  if (first != std::string_view::npos && model.find_last_not_of(' ') - first >= kMaxModelName)
    return MxStatus::kNoModel;  // longer than any model's name
  found.store = access_.get();
  auto m = found.store ? found.store->findModel(text::trim(model)) : std::nullopt;
  if (!m) return MxStatus::kNoModel;
  found.model = *m;
  return MxStatus::kFound;
}

std::int32_t EmbeddedEngine::findString(std::string_view model, std::string_view label,
                                        Found& found) {
  std::int32_t status = findModel(model, found);
  if (status != MxStatus::kFound) return status;
  auto s = found.store->findString(found.model.id, label);
  if (!s) return MxStatus::kNoString;
  found.string = *s;
  return MxStatus::kFound;
}

std::vector<std::string> EmbeddedEngine::labels(const Found& found) {
  std::vector<std::string> out;
  for (const StringRow& r : found.store->strings(found.model.id)) out.push_back(r.header.label);
  return out;
}

std::int32_t EmbeddedEngine::stringInfo(std::string_view model, std::string_view label,
                                        std::int32_t& pointCount) {
  pointCount = 0;
  return answer([&] {
    Found found;
    std::int32_t status = findString(model, label, found);
    if (status != MxStatus::kFound) return status;
    currentModel_ = found.model.name;
    pointCount = found.string.pointCount;
    return MxStatus::kFound;
  });
}

std::int32_t EmbeddedEngine::point(std::string_view model, std::string_view label, std::int32_t n,
                                   PointRecord& out) {
  return answer([&] {
    Found found;
    std::int32_t status = findString(model, label, found);
    if (status != MxStatus::kFound) return status;
    currentModel_ = found.model.name;
    auto p = found.store->point(found.string, n);
    if (!p) return MxStatus::kNoPoint;
    fillPointRecord(found.model.name, found.string, *p, n, out);
    return MxStatus::kFound;
  });
}

std::int32_t EmbeddedEngine::record(std::int32_t n, PointRecord& out) {
  return answer([&] {
    Found found;
    if (currentModel_.empty()) return MxStatus::kNoModel;
    std::int32_t status = findModel(currentModel_, found);
    if (status != MxStatus::kFound) return status;
    if (n < 1) return MxStatus::kNoPoint;
    std::int64_t left = n;
    for (const StringRow& row : found.store->strings(found.model.id)) {
      if (left > row.pointCount) {
        left -= row.pointCount;
        continue;
      }
      auto p = found.store->point(row, static_cast<std::int32_t>(left));
      if (!p) return MxStatus::kNoPoint;
      fillPointRecord(found.model.name, row, *p, static_cast<int>(left), out);
      return MxStatus::kFound;
    }
    return MxStatus::kNoPoint;
  });
}

std::int32_t EmbeddedEngine::nextLabel(std::string_view model, std::string_view prefix,
                                       std::string& label) {
  label.clear();
  return answer([&] {
    Found found;
    std::int32_t status = findModel(model, found);
    if (status != MxStatus::kFound) return status;
    if (!validLabelPrefix(prefix)) return MxStatus::kBadArgument;
    auto next = engine::nextLabel(labels(found), prefix);
    if (!next) return MxStatus::kNoFreeLabel;
    label = *next;
    return MxStatus::kFound;
  });
}

std::int32_t EmbeddedEngine::labelCount(std::string_view model, std::string_view prefix,
                                        std::int32_t& count) {
  count = 0;
  return answer([&] {
    Found found;
    std::int32_t status = findModel(model, found);
    if (status != MxStatus::kFound) return status;
    count = countWithPrefix(labels(found), prefix);
    return MxStatus::kFound;
  });
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
      return MxStatus::kNoParameter;
    return MxStatus::kFound;
  }
  if (group == 2) {
    for (const auto& [k, v] : settings_)
      if (cp::equalsIgnoreCase(k, key)) {
        value = v;
        return MxStatus::kFound;
      }
  }
  return MxStatus::kNoParameter;
}

// --- for korvane models --------------------------------------------------------

std::vector<ModelSummary> EmbeddedEngine::models() {
  ModelStore* store = access_.get();
  return store ? store->summaries() : std::vector<ModelSummary>{};
}

std::vector<ModelDigest> EmbeddedEngine::modelDigests() {
  ModelStore* store = access_.get();
  return store ? store->digests() : std::vector<ModelDigest>{};
}

EmbeddedEngine::Found EmbeddedEngine::requireModel(const std::string& model) {
  Found found;
  if (findModel(model, found) != MxStatus::kFound)
    throw EngineError("there is no model \"" + excerpt(model) + "\"");
  return found;
}

std::vector<StringRow> EmbeddedEngine::strings(const std::string& model) {
  const Found found = requireModel(model);
  return found.store->strings(found.model.id);
}

ModelString EmbeddedEngine::loadString(const std::string& model, const std::string& label) {
  Found found;
  const std::int32_t status = findString(model, label, found);
  if (status == MxStatus::kNoModel)
    throw EngineError("there is no model \"" + excerpt(model) + "\"");
  if (status != MxStatus::kFound)
    throw EngineError("model \"" + excerpt(model) + "\" has no string " +
                      excerpt(normalLabel(label)));
  return found.store->load(found.string);
}

std::vector<KeptBlock> EmbeddedEngine::kept(const std::string& model) {
  const Found found = requireModel(model);
  return found.store->kept(found.model.id);
}

void EmbeddedEngine::exportGenio(const std::string& model, const LineSink& sink,
                                 const WriteLayout& layout) {
  const Found found = requireModel(model);
  GenioWriter w(sink, std::nullopt, std::nullopt, layout);
  w.banner("GENIO output of model " + model + " (Korvane embedded engine)");
  for (const StringRow& row : found.store->strings(found.model.id)) w.write(found.store->load(row));
  for (const KeptBlock& kept : found.store->kept(found.model.id)) w.write(kept);
  w.end();
}

}  // namespace korvane::engine
