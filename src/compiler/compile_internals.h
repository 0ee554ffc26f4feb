// The compile pass's and the evaluator's own state, held by the run context
// where nothing outside the compiler reaches it: the fields of the line and
// the arguments of the call being handled, the temporaries' counter, what
// each depth of the compile pass keeps from call to call, the expression
// cache, where the compile stands, the source map and cache, the MX runs of
// the entry, the selection list and the model queries' answer. Functions and commands reach what
// they may of it through CallContext.
#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "compiler/expression_tree.h"
#include "compiler/extension/model_queries.h"
#include "compiler/line_reader.h"
#include "compiler/run_context.h"
#include "compiler/source_cache.h"
#include "compiler/source_map.h"

namespace korvane {

struct CompileInternals {
  std::array<std::string, 15> fields;
  std::size_t fieldsUsed = 0;        // fields beyond this many are empty
  std::array<std::string, 15> args;  // the arguments of the function call being dispatched
  int argCount = 0;
  std::vector<std::string> selection;  // string labels that `repeat=each...` iterates
  QueryState query;
  std::int32_t tempCounter = 0;
  int depth = 0;  // nesting of the compile pass
  // What each depth of the compile pass keeps from one call to the next (a
  // deque: growing keeps the storage of the calls under way where it is), so
  // that a part read pass after pass allocates nothing for its names and lines.
  struct CallStorage {
    LineReader reader;
    std::string folder, name, assignText, lastInsertAssign;
    std::string read, raw, work;
    // The file the last call at this depth read, and where its first line to
    // compile began: a part read pass after pass is found and searched once
    // while the source cache holds its text.
    struct Reentry {
      std::string fileSpec, baseFolder, currentFile;
      int mode = -1;
      std::uint64_t generation = 0;
      const FoundFile* found = nullptr;
      std::shared_ptr<const SourceCache::HeldFile> held;
      LineReader::Mark start;
    } again;
  };
  std::deque<CallStorage> callStorage;
  int expressionDepth = 0;  // nesting of the expression evaluator
  ExpressionCache expressions;
  // Where the compile stands: the file and line read last, for messages about
  // MX runs that a flush started there.
  std::string whereFile;
  long whereLine = 0;
  const void* whereOwner = nullptr;
  SourceMap sourceMap;  // where each compiled line came from
  SourceCache sources;  // input files read in this run, until something may change them
  int engineRuns = 0;   // MX runs of the current entry, for progress
  int barDepth = 0;     // inside |...| of a line
  int rowDepth = 0;     // in the values of a data row, which are text, not names
  // A name with no value was read in the argument being evaluated; and the
  // arguments of the call being dispatched that read one (bit k-1 for k).
  bool unsetRead = false;
  std::uint32_t unsetArgs = 0;
};

inline CompileInternals& internals(RunContext& ctx) { return *ctx.internals_; }
inline const CompileInternals& internals(const RunContext& ctx) { return *ctx.internals_; }

}  // namespace korvane
