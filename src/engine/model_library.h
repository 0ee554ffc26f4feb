// MX's model library over the embedded store: models by name, their strings in
// model order, and each string's points. The objects read the store when
// asked, so they see the models as the last run left them; they must not
// outlive the engine that made them. A store they cannot read is MxError.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "engine/engine_error.h"
#include "engine/mx_types.h"
#include "engine/store_access.h"

namespace korvane::engine {

class EmbeddedLibrary final : public MxModelLibrary {
 public:
  explicit EmbeddedLibrary(StoreAccess& store) : store_(store) {}
  std::unique_ptr<MxModel> model(std::string_view name) override;

 private:
  StoreAccess& store_;
};

}  // namespace korvane::engine
