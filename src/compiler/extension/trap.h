// The error trap of the input language, for the functions and commands that
// run under one: a run-time failure inside gives no value instead of ending
// the run.
#pragma once

#include <optional>

#include "compiler/extension/compile_failure.h"

namespace korvane {

// What `body` returns (a std::optional), or nothing when it fails with a
// run-time failure; an error of the layers below counts as the run-time
// failure it stands for (foreignFailure). A message that ends the run, and
// whatever is no failure of the input, goes on.
template <typename F>
auto trapped(F&& body) -> decltype(body()) {
  try {
    try {
      return body();
    } catch (...) {
      throw foreignFailure();  // rethrows a CompileFailure, and what is no error of ours
    }
  } catch (const RuntimeFailure&) {
    return std::nullopt;
  }
}

}  // namespace korvane
