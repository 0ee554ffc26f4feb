// The Linemode records the engine executes, as one table: each record with
// the block it is read in, what an import does with it, and its handler. The
// rows stand at the end of the files that hold their handlers:
//   major_options.cpp  the major options (and 999 between blocks)
//   genio_options.cpp  GENIO's minor options
//   edit_options.cpp   EDIT's minor options
// The run loop (engine_run.cpp) looks each record up here; adding a record is
// one row and its handler.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace korvane::engine {

struct RunState;

// Where a record is read: between blocks (the major options) or in a block.
enum class Block { None, Genio, Edit };

// What an import, whose lines are GENIO records for one model, does with a record.
enum class InImport {
  Refused,    // "an import reads GENIO records only"
  Taken,      // read as in any run
  EndsBlock,  // taken, and also ends the import's GENIO block when met inside it
};

struct Record {
  std::string_view text;  // as written
  std::string_view word;  // a major option's word as written ("crea", "GENIO")
  std::string argument;   // a major option's rest after "," or blanks, trimmed
};

using RecordHandler = void (*)(RunState& run, const Record& record);

struct RecordRow {
  std::string_view
      key;  // a major option's first four letters ("crea"), a minor option's number ("080")
  Block block;
  InImport import;
  RecordHandler handler;
};

extern const std::span<const RecordRow> kMajorOptions;
extern const std::span<const RecordRow> kGenioOptions;
extern const std::span<const RecordRow> kEditOptions;

// The row for a record's key (linemode_lexer.h) in a block; null when the
// block takes no such record.
const RecordRow* findRecord(Block block, std::string_view key);

// The 999 that ends a GENIO or EDIT block.
void endBlock(RunState& run, const Record& record);

}  // namespace korvane::engine
