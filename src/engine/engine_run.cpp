#include "engine/engine_run.h"

#include "base/text.h"
#include "engine/engine_limits.h"
#include "engine/input_file.h"
#include "engine/linemode_lexer.h"
#include "engine/run_state.h"

namespace korvane::engine {
namespace {

// A record that ends a point list early: "999", "NNN,", "001FORMAT" or a card
// in fixed columns ("080MAST").
bool looksLikeRecord(std::string_view line) {
  if (text::trim(line) == "999" || !cardKey(line).empty()) return true;
  int n = minorNumber(line);
  return n >= 0 && (line.size() == 3 || line[3] == ',' || n == 1);
}

// Keys of major options are letters, of minor options digits.
bool isMajorKey(std::string_view key) { return !key.empty() && (key[0] < '0' || key[0] > '9'); }

class RunLoop {
 public:
  RunLoop(ModelStore& store, Listing& listing, const RunRequest& request, std::string& currentModel)
      : run_{store, listing, request, currentModel} {}

  RunEnd execute();

 private:
  bool interrupted() const {
    return run_.request.interrupted && run_.request.interrupted->load(std::memory_order_relaxed);
  }
  RunEnd interrupt(const std::string& modelBefore);
  void line(const std::string& text);
  // True when the line was a data record of the string being read.
  bool pointLine(const std::string& text);
  void finishString();
  void atEnd();
  void dispatch(std::string_view text);
  void call(const RecordRow& row, std::string_view text);
  [[noreturn]] void stop(const std::string& reason);

  std::optional<Transaction> whole_;  // the run; before run_, so that run_.tx ends first
  RunState run_;
};

RunEnd RunLoop::execute() {
  Listing& listing = run_.listing;
  const RunRequest& request = run_.request;
  listing.text("Korvane embedded MX engine: run of " + request.inputName);
  listing.text("Model store: " + run_.store.path());
  listing.text("");
  const std::string modelBefore = run_.currentModel;
  whole_.emplace(run_.store.db());
  try {
    // The input of an import is the body of a GENIO block.
    if (request.importModel) {
      checkModelName(*request.importModel);
      run_.openGenio(*request.importModel);
    }
    for (const std::string& text : request.lines) {
      ++run_.lineNo;
      if (interrupted()) return interrupt(modelBefore);
      line(text);
      if (run_.finished) break;
    }
    if (!run_.finished) {
      run_.lineNo = static_cast<int>(request.lines.size()) + 1;
      atEnd();
    }
  } catch (const SqliteError& e) {
    stop(std::string("model store failure: ") + e.what());
  } catch (const EngineError& e) {
    stop(e.what());
  }
  whole_->commit();
  listing.text("");
  listing.text(run_.finished ? "Run ended at FINISH, no errors." : "Run ended, no errors.");
  return {};
}

RunEnd RunLoop::interrupt(const std::string& modelBefore) {
  run_.tx.reset();
  whole_.reset();  // rolls back everything the run did
  run_.currentModel = modelBefore;
  run_.listing.text("**** run interrupted before line " + std::to_string(run_.lineNo) +
                    " and rolled back; the models are as they were before the run");
  return {true, run_.lineNo};
}

void RunLoop::stop(const std::string& reason) {
  Listing& listing = run_.listing;
  const int lineNo = run_.lineNo;
  if (lineNo == 0) {  // before the first line: the import's model
    listing.text("**** error: " + reason);
    throw EngineError(reason, 0, {});
  }
  const auto& lines = run_.request.lines;
  std::string record = lineNo <= static_cast<int>(lines.size())
                           ? excerpt(lines[static_cast<std::size_t>(lineNo - 1)])
                           : std::string("(end of input)");
  listing.error(lineNo, reason);
  if (run_.reader)
    listing.text("**** the data records from line " + std::to_string(run_.pointsFrom) +
                 " are read with " + run_.readingWith);
  if (run_.tx) {
    run_.tx.reset();  // rolls back
    listing.text("**** " + run_.blockWord + " at line " + std::to_string(run_.blockLine) +
                 " rolled back; the models are as the major options before it left them");
  }
  // Unless the failure ended the store's transaction itself.
  if (run_.store.db().inTransaction()) whole_->commit();
  listing.text("**** run stopped at line " + std::to_string(lineNo));
  throw EngineError(reason, lineNo, std::move(record));
}

void RunLoop::line(const std::string& text) {
  Listing& listing = run_.listing;
  if (text.size() > kMaxLineLength) {
    listing.record(run_.lineNo, excerpt(text));
    throw EngineError("the line is longer than " + std::to_string(kMaxLineLength) +
                      " characters (it has " + std::to_string(text.size()) + ")");
  }
  std::string fault = encodingFault(text, run_.lineNo);
  if (!fault.empty()) {
    listing.record(run_.lineNo, "(record not shown: not text)");
    throw EngineError(fault);
  }
  if (run_.reader && pointLine(text)) return;
  LineKind kind = classifyLine(text);
  if (kind == LineKind::Blank) return;
  listing.record(run_.lineNo, text);  // comments too: a compiler may leave messages in them
  if (kind == LineKind::Comment) return;
  dispatch(text);
}

bool RunLoop::pointLine(const std::string& text) {
  if (looksLikeRecord(text)) {
    try {
      run_.reader->endEarly();
    } catch (const EngineError&) {
      run_.listing.record(run_.lineNo, text);
      throw;
    }
    finishString();
    return false;  // the record itself is handled as usual
  }
  DataRecords::Step step;
  try {
    step = run_.reader->feed(text);
  } catch (const EngineError&) {
    run_.listing.record(run_.lineNo, text);
    throw;
  }
  if (step == DataRecords::Step::Done) finishString();
  return true;
}

void RunLoop::finishString() {
  const int records = run_.reader->recordsRead();
  const std::string stored = run_.reader->store(run_.store, run_.model.id);
  run_.reader.reset();
  run_.listing.note(stored + " (" + std::to_string(records) + " data records from line " +
                    std::to_string(run_.pointsFrom) + ")");
}

void RunLoop::atEnd() {
  if (run_.reader) {
    run_.reader->endEarly();
    finishString();
  }
  if (run_.block == Block::None) return;
  if (run_.request.isImport() && run_.block == Block::Genio) {
    run_.closeBlock();
    return;
  }
  throw EngineError(run_.blockWord + " begun at line " + std::to_string(run_.blockLine) +
                    " is not closed by 999 before the end of the input");
}

// A record looked up in the table for the block open. Between blocks an
// import refuses what it does not take; inside one, a major option is an
// error unless it ends an import's GENIO block.
void RunLoop::dispatch(std::string_view text) {
  std::string key = recordKey(text);
  if (key.empty() && run_.block == Block::Genio) key = cardKey(text);
  const bool import = run_.request.isImport();
  const std::string& block = run_.blockWord;
  if (const RecordRow* row = findRecord(run_.block, key)) {
    if (import && row->import == InImport::Refused)
      throw EngineError("an import reads GENIO records only; " + std::string(majorWord(text)) +
                        " is not one");
    return call(*row, text);
  }
  if (run_.block == Block::None) {
    if (!key.empty() && !isMajorKey(key))
      throw EngineError("minor option " + key + " outside a major option");
    if (startsWithLetter(text))
      throw EngineError("unknown major option '" +
                        excerpt(text.substr(0, text.find_first_of(", "))) + "'");
    throw EngineError("unrecognised record");
  }
  if (!key.empty() && !isMajorKey(key))
    throw EngineError("unknown minor option " + key + " in " + block);
  const RecordRow* major = isMajorKey(key) ? findRecord(Block::None, key) : nullptr;
  // An import takes the header lines writers print (MOSS) where they stand.
  if (major && import && major->import != InImport::Refused) return call(*major, text);
  if (major)
    throw EngineError(block + " begun at line " + std::to_string(run_.blockLine) +
                      " is not closed by 999 before this major option");
  throw EngineError("unrecognised record in " + block);
}

void RunLoop::call(const RecordRow& row, std::string_view text) {
  Record record{text, majorWord(text), {}};
  if (!record.word.empty()) {
    std::string_view rest = text.substr(record.word.size());
    if (!rest.empty() && rest[0] == ',') rest.remove_prefix(1);
    record.argument = text::trim(rest);
  }
  row.handler(run_, record);
}

}  // namespace

const RecordRow* findRecord(Block block, std::string_view key) {
  for (std::span<const RecordRow> table : {kMajorOptions, kGenioOptions, kEditOptions})
    for (const RecordRow& row : table)
      if (row.block == block && row.key == key) return &row;
  return nullptr;
}

void RunState::openGenio(const std::string& name) {
  blockWord = "GENIO";
  blockLine = lineNo;
  tx = std::make_unique<Transaction>(store.db());
  std::optional<ModelRow> m = store.findModel(name);
  if (!m) {
    m = store.createModel(name);
    listing.note("model \"" + name + "\" created");
  }
  model = *m;
  block = Block::Genio;
  format.reset();
  order.reset();
  masks.clear();
  currentModel = m->name;
}

void RunState::closeBlock() {
  if (tx) tx->commit();
  tx.reset();
  block = Block::None;
}

void endBlock(RunState& run, const Record&) { run.closeBlock(); }

void RunState::emit(const std::string& line) {
  if (over.is_open())
    over << line << "\r\n";
  else
    listing.text(line);
}

void checkModelName(const std::string& name) {
  if (name.size() > kMaxModelName)
    throw EngineError("model names have at most " + std::to_string(kMaxModelName) +
                      " characters; \"" + excerpt(name) + "\" has " + std::to_string(name.size()));
}

RunEnd executeRun(ModelStore& store, Listing& listing, const RunRequest& request,
                  std::string& currentModel) {
  return RunLoop(store, listing, request, currentModel).execute();
}

}  // namespace korvane::engine
