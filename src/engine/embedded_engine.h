// The embedded MX engine: MX's configuration, project, data-access and model
// library services on a machine without MX. Models live in an SQLite store in
// the project folder; runs execute the Linemode subset of engine_run.h and
// write their listing beside it. These services are where the engine's
// errors (engine_error.h) become answers: runs answer by MxRunResult, queries
// by status words, modelExists, stringExists and the library by MxError; the
// extras of `korvane models` throw EngineError. Other exceptions (out of
// memory, a broken invariant) are not answers about the models and pass.
#pragma once

#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "engine/cross_sections.h"
#include "engine/genio_writer.h"
#include "engine/model_library.h"
#include "engine/model_store.h"
#include "engine/mx_types.h"
#include "engine/store_access.h"

namespace korvane::engine {

// Where the engine keeps its models and what it answers for MX's settings.
struct EngineOptions {
  std::string projectFolder;                    // the MX project folder, no trailing separator
  std::map<std::string, std::string> settings;  // "PrivateMacros", "ProjectMacros", "PublicMacros"
  // Set from outside (Ctrl-C) to stop a run before its next line; the run is
  // rolled back whole and its result says it was interrupted.
  const std::atomic<bool>* interrupted = nullptr;
  // Only looking: everything the engine's runs change is undone when it ends
  // (StoreAccess::beginLooking), and the store is held against other runs.
  bool looking = false;
};

class EmbeddedEngine final : public MxEngine, MxConfiguration, MxProject, MxDataAccess {
 public:
  // Null with a reason when the project folder is missing or holds a store
  // file that is not ours.
  static std::unique_ptr<EmbeddedEngine> create(const EngineOptions& options, std::string& error);

  MxConfiguration& configuration() override { return *this; }
  MxProject& project() override { return *this; }
  MxDataAccess& dataAccess() override { return *this; }
  MxModelLibrary& library() override { return library_; }

  std::string setting(std::string_view name) override;
  MxRunResult run(std::string_view verb, const std::string& fullName) override;
  bool modelExists(std::string_view model) override;
  bool stringExists(std::string_view model, std::string_view label) override;
  std::vector<std::string> modelNames() override;

  std::string currentFolder() override { return folder_; }
  // The project folder's ".mmd" file (any case); the first by name when there
  // are several.
  std::string projectFileName() override;

  std::int32_t stringInfo(std::string_view model, std::string_view label,
                          std::int32_t& pointCount) override;
  std::int32_t point(std::string_view model, std::string_view label, std::int32_t n,
                     PointRecord& out) override;
  // Record n: point n of the current model (the one the last GENIO or EDIT,
  // or the last string query, named), counted through its strings in model order.
  std::int32_t record(std::int32_t n, PointRecord& out) override;
  std::int32_t nextLabel(std::string_view model, std::string_view prefix,
                         std::string& label) override;
  std::int32_t labelCount(std::string_view model, std::string_view prefix,
                          std::int32_t& count) override;
  // Group 1: Engine, ProjectFolder, ModelStore, Listing, CurrentModel;
  // group 2: the settings (PrivateMacros, ProjectMacros, PublicMacros, ...).
  std::int32_t parameter(std::string_view name, int group, std::string& value) override;

  // --- beyond MX's services: what `korvane models` needs ----------------------
  // Runs lines as an input file named `name`.
  MxRunResult runLines(const std::vector<std::string>& lines, const std::string& name,
                       std::optional<std::string> importModel = std::nullopt);
  // Runs a file's GENIO records into a model (created when missing); without
  // one, into the models its GENIO records name, each its own.
  MxRunResult importGenio(const std::string& file, const std::optional<std::string>& model);
  // The models a file's GENIO records name (genioModels, engine_run.h);
  // nullopt when the file cannot be read (an import of it says why).
  std::optional<std::vector<std::string>> genioModelsOf(const std::string& file);
  // Cross sections of `model` along its string `master` (cross_sections.h),
  // loaded into `target`, which must be another model, as one GENIO run.
  MxRunResult makeSections(const std::string& model, const std::string& master,
                           const std::string& target, const SectionRequest& request);
  // These throw EngineError, for a model or string that is not there too.
  std::vector<ModelSummary> models();
  std::vector<ModelDigest> modelDigests();
  std::vector<StringRow> strings(const std::string& model);
  ModelString loadString(const std::string& model, const std::string& label);
  // The records a model keeps without computing with them.
  std::vector<KeptBlock> kept(const std::string& model);
  // Every string of a model as re-loadable GENIO text, then its kept records.
  void exportGenio(const std::string& model, const LineSink& sink, const WriteLayout& layout = {});

  std::string listingPath() const;

 private:
  // Where a query found what it was asked for.
  struct Found {
    ModelStore* store = nullptr;
    ModelRow model;
    StringRow string;
  };

  explicit EmbeddedEngine(const EngineOptions& options);
  // The guard of the runs: reads the input, runs it, and turns an engine
  // error into the run's message.
  MxRunResult execute(const std::string& name, const std::optional<std::string>& importModel,
                      const std::function<std::vector<std::string>()>& input,
                      bool importEach = false);
  // A status word: kFound when the model (and the string) is there.
  std::int32_t findModel(std::string_view model, Found& found);
  std::int32_t findString(std::string_view model, std::string_view label, Found& found);
  std::vector<std::string> labels(const Found& found);
  // The model for the extras; EngineError when there is none.
  Found requireModel(const std::string& model);

  std::string folder_;
  std::map<std::string, std::string> settings_;
  const std::atomic<bool>* interrupted_;
  StoreAccess access_;
  EmbeddedLibrary library_;
  std::string currentModel_;
};

}  // namespace korvane::engine
