// The embedded engine's own failures: the store cannot be read or written
// (SqliteError), a record cannot be executed. The engine's services turn these
// into status words and run results. They catch nothing else: running out of
// memory or a broken invariant is not an answer about the models and goes on
// to the caller.
#pragma once

#include <stdexcept>
#include <string>

namespace korvane::engine {

class EngineError : public std::runtime_error {
 public:
  explicit EngineError(const std::string& what) : std::runtime_error(what) {}
};

}  // namespace korvane::engine
