// One run of Linemode input against the model store: major options MOSS,
// CREATE, DELETE, GENIO, EDIT, OVER and FINISH with the minor options that
// GENIO and EDIT take. Each major option is one transaction. The first error
// stops the run at its line: the failing major option is rolled back, every
// earlier one stays as it left the models.
#pragma once

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
};

struct RunOutcome {
  std::string error;      // empty on success: "<input>, line N: <reason>: <record>"
  int errorLine = 0;      // 0 when the run did not fail at a line
  std::string lastModel;  // the model named by the last GENIO or EDIT
};

RunOutcome executeRun(ModelStore& store, Listing& listing, const RunRequest& request);

}  // namespace korvane::engine
