// The embedded MX engine: MX's configuration, project, data-access and model
// library services on a machine without MX. Models live in an SQLite store in
// the project folder; runs execute the Linemode subset of engine_run.h and
// write their listing beside it. No engine error leaves these services:
// queries answer by status words, runs by MxRunResult. Other exceptions (out
// of memory, a broken invariant) are not answers about the models and pass.
#pragma once

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
};

// Status words of the data-access queries.
enum Status : std::int32_t {
  kFound = 0,
  kNoModel = -1,
  kNoString = -2,
  kNoPoint = -3,
  kBadArgument = -4,
  kNoFreeLabel = -5,
  kStoreFailure = -9,
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
  // Runs a file's GENIO records into a model (created when missing).
  MxRunResult importGenio(const std::string& file, const std::string& model);
  // Every string of a model as re-loadable GENIO text.
  bool exportGenio(const std::string& model, const LineSink& sink, std::string& error);
  bool models(std::vector<ModelSummary>& out, std::string& error);
  bool strings(const std::string& model, std::vector<StringRow>& out, std::string& error);
  bool loadString(const std::string& model, const std::string& label, ModelString& out,
                  std::string& error);
  // Cross sections of `model` along its string `master` (cross_sections.h),
  // loaded into `target`, which must be another model, as one GENIO run.
  MxRunResult makeSections(const std::string& model, const std::string& master,
                           const std::string& target, const SectionRequest& request);

  std::string storePath() const { return access_.path(); }
  std::string listingPath() const;

 private:
  EmbeddedEngine(std::string folder, std::map<std::string, std::string> settings);
  MxRunResult execute(std::vector<std::string> lines, const std::string& name,
                      const std::optional<std::string>& importModel);
  // The model's id, or a status word when it cannot be had.
  std::int32_t findModel(std::string_view model, ModelRow& row);
  std::optional<StringRow> findString(std::string_view model, std::string_view label, ModelRow& row,
                                      std::int32_t& status);

  std::string folder_;
  std::map<std::string, std::string> settings_;
  StoreAccess access_;
  EmbeddedLibrary library_;
  std::string currentModel_;
};

}  // namespace korvane::engine
