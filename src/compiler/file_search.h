// Finding the file an input names: an absolute name is taken as it stands;
// otherwise the base folder, the MX project folder, its "inputs" folder and,
// for macro files (".ipm" or no extension), the project and private macro
// folders are tried in this order. The public macro folder is never searched.
#pragma once

#include <string>
#include <vector>

#include "compiler/run_context.h"
#include "compiler/source_cache.h"

namespace korvane {

// The answer is held in the run's source cache: valid until that forgets.
const FoundFile& findInputFile(RunContext& ctx, const std::string& name,
                               const std::string& baseFolder);

// The folders searched for `name`, in order (its own folder for an absolute name).
std::vector<std::string> searchPlaces(const RunContext& ctx, const std::string& name,
                                      const std::string& baseFolder);

}  // namespace korvane
