// One run of Linemode input against the model store: the records of the
// record table (linemode_records.h), line by line. The run is one
// transaction and each major option one inside it. The first error stops the
// run at its line: the failing major option is rolled back, every earlier one
// stays as it left the models. An interrupted run is rolled back whole.
#pragma once

#include <atomic>
#include <optional>
#include <string>
#include <vector>

#include "engine/listing.h"
#include "engine/model_store.h"

namespace korvane::engine {

struct RunRequest {
  std::string inputName;  // named in messages
  std::vector<std::string> lines;
  std::string projectFolder;  // where relative "over" files go
  // Import: the lines are GENIO records for this model; a GENIO major option
  // in them is taken as naming it, and the end of the input closes the block.
  std::optional<std::string> importModel;
  // Import into the models the GENIO records name, each its own: the lines
  // are read as by an import, but no block is open before the first GENIO.
  bool importEach = false;
  // Set from outside (Ctrl-C) to stop the run before its next line.
  const std::atomic<bool>* interrupted = nullptr;

  bool isImport() const { return importModel || importEach; }
};

// How a run ended without an error; `line` is the line it stopped before.
struct RunEnd {
  bool interrupted = false;
  int line = 0;
};

// The models the GENIO major options of the lines name, each once (case
// ignored) in the order first named; a GENIO without a name names none.
std::vector<std::string> genioModels(const std::vector<std::string>& lines);

// Runs the lines. The first record that cannot be executed stops the run:
// it is listed, the major option in progress is rolled back, and an
// EngineError leaves with the line and the record. `currentModel` follows the
// GENIO and EDIT blocks opened.
RunEnd executeRun(ModelStore& store, Listing& listing, const RunRequest& request,
                  std::string& currentModel);

}  // namespace korvane::engine
