// What one run of Linemode input holds while it goes: the store and the
// listing, the block open and what GENIO has set in it. The record handlers
// (linemode_records.h) read and change it; the run loop (engine_run.cpp)
// feeds it the lines.
#pragma once

#include <fstream>
#include <memory>
#include <optional>
#include <string>

#include "engine/engine_run.h"
#include "engine/fortran_format.h"
#include "engine/genio_reader.h"
#include "engine/genio_records.h"
#include "engine/linemode_records.h"
#include "engine/selection_masks.h"

namespace korvane::engine {

struct RunState {
  RunState(ModelStore& s, Listing& l, const RunRequest& r, std::string& current)
      : store(s), listing(l), request(r), currentModel(current) {}

  ModelStore& store;
  Listing& listing;
  const RunRequest& request;
  std::string& currentModel;  // named by the last GENIO or EDIT

  int lineNo = 0;
  bool finished = false;  // FINISH read: nothing after it is read

  // The block open, the line and word that opened it, its transaction and model.
  Block block = Block::None;
  int blockLine = 0;
  std::string blockWord;
  std::unique_ptr<Transaction> tx;
  ModelRow model;

  // GENIO: FORMAT and ORDR in force, the selection masks, the string being read.
  std::optional<FortranFormat> format;
  std::optional<GenioOrder> order;
  SelectionMasks masks;
  std::unique_ptr<DataRecords> reader;  // the data of the string (or triangles) begun
  int pointsFrom = 0;                   // the line of the string's first data record
  std::string readingWith;              // the FORMAT and ORDR records it is read with

  // GENIO output: the "over" file, or the listing when none is open.
  std::ofstream over;
  std::string overPath;

  // Opens a GENIO block for the model, which is made when missing.
  void openGenio(const std::string& name);
  // Commits the block's transaction.
  void closeBlock();
  // A line of GENIO output.
  void emit(const std::string& line);
};

// Refuses a model name beyond the stated limit (quoting only its start).
void checkModelName(const std::string& name);

}  // namespace korvane::engine
