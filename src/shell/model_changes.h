// What a run changed in the embedded engine's models, model by model and
// string by string, as a dry run reports it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/messages.h"
#include "engine/model_store.h"
#include "hosts/mx.h"

namespace korvane {

using ModelsState = std::vector<engine::ModelDigest>;

// The embedded engine's models as they are now, none for other engines;
// nothing when the store cannot be read.
std::optional<ModelsState> modelsState(hosts::MxEngine* engine);

// "2 strings, 1 point", in the users' language.
std::string modelCounts(const Messages& messages, long strings, long points);

// One line a model created, deleted or changed, each changed model followed
// by its strings created, deleted or changed (by their point counts), in the
// users' code page; empty when nothing changed. Models by name, strings in
// the order the models hold them.
std::vector<std::string> describeChanges(const Messages& messages, const ModelsState& before,
                                         const ModelsState& after);

}  // namespace korvane
