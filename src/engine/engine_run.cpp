#include "engine/engine_run.h"

#include <filesystem>
#include <fstream>
#include <memory>

#include "base/codepage.h"
#include "base/fs.h"
#include "base/text.h"
#include "engine/edit_options.h"
#include "engine/engine_limits.h"
#include "engine/genio_reader.h"
#include "engine/genio_records.h"
#include "engine/genio_writer.h"
#include "engine/input_file.h"
#include "engine/linemode_lexer.h"
#include "engine/selection_masks.h"

namespace korvane::engine {
namespace {

namespace fs = std::filesystem;

// Raised by a record that cannot be executed; caught by the run loop.
struct RecordError : EngineError {
  explicit RecordError(const std::string& reason) : EngineError(reason) {}
};

[[noreturn]] void refuse(const std::string& reason) { throw RecordError(reason); }

// Runs one step of the run; a failure of the store stops the run like a bad record.
template <class Step>
void storeStep(Step&& step) {
  try {
    step();
  } catch (const SqliteError& e) {
    refuse(std::string("model store failure: ") + e.what());
  }
}

// A record that ends a point list early: "999", "NNN," or "001FORMAT".
bool looksLikeRecord(std::string_view line) {
  if (text::trim(line) == "999") return true;
  int n = minorNumber(line);
  return n >= 0 && (line.size() == 3 || line[3] == ',' || n == 1);
}

class EngineRun {
 public:
  EngineRun(ModelStore& store, Listing& listing, const RunRequest& request)
      : store_(store), listing_(listing), request_(request) {}

  RunOutcome execute();

 private:
  enum class Block { None, Genio, Edit };

  void line(int lineNo, const std::string& text);
  void pointLine(int lineNo, const std::string& text, bool& handled);
  void topLevel(const std::string& record);
  void genioRecord(const std::string& record);
  void editRecord(const std::string& record);
  void finishString();
  void atEnd();

  void createModel(const std::string& name);
  void deleteModel(const std::string& name);
  void openGenio(const std::string& name);
  void openEdit(const std::string& name);
  void redirect(const std::string& argument);
  void closeBlock();
  void writeStrings(const Fields& f);
  void addMask(const Fields& f);
  void beginString(const Fields& f);

  Fields fields(const std::string& record);
  const std::string& requireName(const MajorRecord& m);
  void emit(const std::string& text);

  ModelStore& store_;
  Listing& listing_;
  const RunRequest& request_;
  RunOutcome outcome_;
  bool finished_ = false;
  int lineNo_ = 0;

  Block block_ = Block::None;
  int blockLine_ = 0;
  std::string blockWord_;
  std::unique_ptr<Transaction> tx_;
  ModelRow model_;

  std::optional<FortranFormat> format_;
  std::optional<GenioOrder> order_;
  SelectionMasks masks_;
  std::unique_ptr<PointListReader> reader_;
  int pointsFrom_ = 0;

  std::ofstream over_;
  std::string overPath_;
};

// Refuses a model name beyond the stated limit (quoting only its start).
void checkModelName(const std::string& name) {
  if (name.size() > kMaxModelName)
    refuse("model names have at most " + std::to_string(kMaxModelName) + " characters; \"" +
           excerpt(name) + "\" has " + std::to_string(name.size()));
}

// True when `file` is the model store, one of SQLite's files beside it, or the
// listing: GENIO output written there would destroy the models or the report.
bool isEngineFile(const fs::path& file, const std::string& store, const std::string& listing) {
  std::error_code ec;
  fs::path target = fs::weakly_canonical(file, ec);
  if (ec) target = file.lexically_normal();
  std::vector<std::string> own = ModelStore::files(store);
  own.push_back(listing);
  for (const std::string& name : own) {
    const fs::path o = korvane::fs::pathOfNativeText(name);
    fs::path p = fs::weakly_canonical(o, ec);
    if (ec) p = o.lexically_normal();
#ifdef _WIN32
    if (cp::equalsIgnoreCase(korvane::fs::fromNative(p), korvane::fs::fromNative(target)))
      return true;
#else
    if (p == target) return true;
#endif
    if (fs::equivalent(file, o, ec) && !ec) return true;  // hard links
  }
  return false;
}

RunOutcome EngineRun::execute() {
  listing_.text("Korvane embedded MX engine: run of " + request_.inputName);
  listing_.text("Model store: " + store_.path());
  listing_.text("");
  int& lineNo = lineNo_;
  try {
    // The input of an import is the body of a GENIO block.
    if (request_.importModel) {
      checkModelName(*request_.importModel);
      storeStep([&] { openGenio(*request_.importModel); });
    }
    for (const std::string& text : request_.lines) {
      ++lineNo;
      storeStep([&] { line(lineNo, text); });
      if (finished_) break;
    }
    if (!finished_) {
      lineNo = static_cast<int>(request_.lines.size()) + 1;
      storeStep([&] { atEnd(); });
    }
  } catch (const RecordError& e) {
    outcome_.errorLine = lineNo;
    if (lineNo == 0) {  // before the first line: the import's model
      outcome_.error = request_.inputName + ": " + e.what();
      listing_.text(std::string("**** error: ") + e.what());
      return outcome_;
    }
    std::string record = lineNo <= static_cast<int>(request_.lines.size())
                             ? excerpt(request_.lines[static_cast<std::size_t>(lineNo - 1)])
                             : std::string("(end of input)");
    outcome_.error = request_.inputName + ", line " + std::to_string(lineNo) + ": " + e.what() +
                     ": \"" + record + "\"";
    listing_.error(lineNo, e.what());
    if (tx_) {
      tx_.reset();  // rolls back
      listing_.text("**** " + blockWord_ + " at line " + std::to_string(blockLine_) +
                    " rolled back; the models are as the major options before it left them");
    }
    listing_.text("**** run stopped at line " + std::to_string(lineNo));
    return outcome_;
  }
  listing_.text("");
  listing_.text(finished_ ? "Run ended at FINISH, no errors." : "Run ended, no errors.");
  return outcome_;
}

void EngineRun::line(int lineNo, const std::string& text) {
  if (text.size() > kMaxLineLength) {
    listing_.record(lineNo, excerpt(text));
    refuse("the line is longer than " + std::to_string(kMaxLineLength) + " characters (it has " +
           std::to_string(text.size()) + ")");
  }
  std::string fault = encodingFault(text, lineNo);
  if (!fault.empty()) {
    listing_.record(lineNo, "(record not shown: not text)");
    refuse(fault);
  }
  if (reader_) {
    bool handled = false;
    pointLine(lineNo, text, handled);
    if (handled) return;
  }
  LineKind kind = classifyLine(text);
  if (kind == LineKind::Blank) return;
  listing_.record(lineNo, text);  // comments too: a compiler may leave messages in them
  if (kind == LineKind::Comment) return;
  switch (block_) {
    case Block::None:
      topLevel(text);
      break;
    case Block::Genio:
      genioRecord(text);
      break;
    case Block::Edit:
      editRecord(text);
      break;
  }
}

void EngineRun::pointLine(int lineNo, const std::string& text, bool& handled) {
  std::string error;
  if (looksLikeRecord(text)) {
    if (!reader_->endEarly(error)) {
      listing_.record(lineNo, text);
      refuse(error);
    }
    finishString();
    return;  // the record itself is handled as usual
  }
  handled = true;
  PointListReader::Step step = reader_->feed(text, error);
  if (step == PointListReader::Step::Error) {
    listing_.record(lineNo, text);
    refuse("string " + reader_->label() + ": " + error);
  }
  if (step == PointListReader::Step::Done) finishString();
}

void EngineRun::finishString() {
  ModelString s;
  std::string error;
  int records = reader_->recordsRead();
  if (!reader_->finish(s, error)) refuse(error);
  reader_.reset();
  store_.saveString(model_.id, s);
  listing_.note("string " + s.header.label + ": " + std::to_string(s.points.size()) +
                " points of dimension " + std::to_string(s.header.dimension) + " stored (" +
                std::to_string(records) + " data records from line " + std::to_string(pointsFrom_) +
                ")");
}

void EngineRun::atEnd() {
  if (reader_) {
    std::string error;
    if (!reader_->endEarly(error)) refuse(error);
    finishString();
  }
  if (block_ == Block::None) return;
  if (request_.importModel && block_ == Block::Genio) {
    closeBlock();
    return;
  }
  refuse(blockWord_ + " begun at line " + std::to_string(blockLine_) +
         " is not closed by 999 before the end of the input");
}

Fields EngineRun::fields(const std::string& record) {
  Fields f;
  std::string error;
  if (!Fields::split(record, f, error)) refuse(error);
  return f;
}

const std::string& EngineRun::requireName(const MajorRecord& m) {
  if (m.argument.empty()) refuse(m.word + " needs a model name");
  checkModelName(m.argument);
  return m.argument;
}

// --- major options -------------------------------------------------------------

void EngineRun::topLevel(const std::string& record) {
  std::optional<MajorRecord> m = parseMajor(record);
  if (!m) {
    int n = minorNumber(record);
    if (n == 999) {
      listing_.note("999 outside a major option: nothing to end");
      return;
    }
    if (n >= 0) refuse("minor option " + record.substr(0, 3) + " outside a major option");
    if (startsWithLetter(record)) {
      std::string word = record.substr(0, record.find_first_of(", "));
      refuse("unknown major option '" + excerpt(word) + "'");
    }
    refuse("unrecognised record");
  }
  if (request_.importModel && m->major != Major::Genio && m->major != Major::Finish &&
      m->major != Major::Moss)
    refuse("an import reads GENIO records only; " + m->word + " is not one");
  switch (m->major) {
    case Major::Moss:
      listing_.note("error indicators reset");
      break;
    case Major::Create:
      createModel(requireName(*m));
      break;
    case Major::Delete:
      deleteModel(requireName(*m));
      break;
    case Major::Genio:
      openGenio(request_.importModel ? *request_.importModel : requireName(*m));
      break;
    case Major::Edit:
      openEdit(requireName(*m));
      break;
    case Major::Over:
      redirect(m->argument);
      break;
    case Major::Finish:
      listing_.note("end of input");
      finished_ = true;
      break;
  }
}

void EngineRun::createModel(const std::string& name) {
  Transaction tx(store_.db());
  if (store_.findModel(name)) {
    listing_.note("model \"" + name + "\" exists already; left as it is");
    return;
  }
  store_.createModel(name);
  tx.commit();
  listing_.note("model \"" + name + "\" created");
}

void EngineRun::deleteModel(const std::string& name) {
  Transaction tx(store_.db());
  bool deleted = store_.deleteModel(name);
  tx.commit();
  listing_.note(deleted ? "model \"" + name + "\" deleted"
                        : "no model \"" + name + "\": nothing to delete");
}

void EngineRun::openGenio(const std::string& name) {
  blockWord_ = "GENIO";
  blockLine_ = lineNo_;
  tx_ = std::make_unique<Transaction>(store_.db());
  std::optional<ModelRow> m = store_.findModel(name);
  if (!m) {
    m = store_.createModel(name);
    listing_.note("model \"" + name + "\" created");
  }
  model_ = *m;
  block_ = Block::Genio;
  format_.reset();
  order_.reset();
  masks_.clear();
  outcome_.lastModel = m->name;
}

void EngineRun::openEdit(const std::string& name) {
  auto tx = std::make_unique<Transaction>(store_.db());
  std::optional<ModelRow> m = store_.findModel(name);
  if (!m) refuse("EDIT: there is no model \"" + name + "\"");
  tx_ = std::move(tx);
  blockWord_ = "EDIT";
  blockLine_ = lineNo_;
  model_ = *m;
  block_ = Block::Edit;
  outcome_.lastModel = m->name;
}

void EngineRun::closeBlock() {
  if (tx_) tx_->commit();
  tx_.reset();
  block_ = Block::None;
}

void EngineRun::redirect(const std::string& argument) {
  std::size_t comma = argument.rfind(',');
  if (comma == std::string::npos) refuse("OVER needs a file and a channel: over,FILE,genio");
  std::string file = text::trim(argument.substr(0, comma));
  std::string channel = text::trim(argument.substr(comma + 1));
  if (!cp::equalsIgnoreCase(channel, "genio"))
    refuse("OVER: unknown channel '" + excerpt(channel) + "' (only genio is redirected)");
  if (over_.is_open()) over_.close();
  if (file.empty()) {
    listing_.note("GENIO output goes to the listing again");
    return;
  }
  // The file is named in the users' code page, relative to the project folder.
  const fs::path p = korvane::fs::pathOfNativeText(korvane::fs::nativeText(
      korvane::fs::isAbsolute(file) ? file : korvane::fs::join(request_.projectFolder, file)));
  if (isEngineFile(p, store_.path(), listing_.path()))
    refuse("OVER: GENIO output cannot go to the model store, its journal files or the listing ('" +
           excerpt(file) + "')");
  over_.open(p, std::ios::binary | std::ios::trunc);
  if (!over_) refuse("OVER: cannot write " + excerpt(file));
  overPath_ = korvane::fs::fromNative(p);
  listing_.note("GENIO output goes to " + overPath_);
}

void EngineRun::emit(const std::string& text) {
  if (over_.is_open())
    over_ << text << "\r\n";
  else
    listing_.text(text);
}

// --- GENIO ---------------------------------------------------------------------

void EngineRun::genioRecord(const std::string& record) {
  int n = minorNumber(record);
  std::optional<MajorRecord> major = n < 0 ? parseMajor(record) : std::nullopt;
  if (request_.importModel && major && major->major == Major::Genio) {
    closeBlock();  // an import takes every GENIO header as naming its model
    openGenio(*request_.importModel);
    return;
  }
  if (request_.importModel && major && major->major == Major::Finish) {
    closeBlock();
    finished_ = true;
    return;
  }
  if (n < 0) {
    if (parseMajor(record))
      refuse("GENIO begun at line " + std::to_string(blockLine_) +
             " is not closed by 999 before this major option");
    refuse("unrecognised record in GENIO");
  }
  std::string error;
  switch (n) {
    case 999:
      closeBlock();
      return;
    case 1: {
      FortranFormat f = FortranFormat::mxDefault();
      if (!parseFormatRecord(record, f, error)) refuse(error);
      format_ = f;
      return;
    }
    case 3: {
      GenioOrder o;
      if (!parseOrderRecord(fields(record), o, error)) refuse(error);
      order_ = o;
      return;
    }
    case 17:
    case 18:
      listing_.note("unit record accepted; units are not converted");
      return;
    case 19:
      addMask(fields(record));
      return;
    case 80:
      beginString(fields(record));
      return;
    case 81:
      writeStrings(fields(record));
      return;
    default:
      refuse("unknown minor option " + record.substr(0, 3) + " in GENIO");
  }
}

void EngineRun::addMask(const Fields& f) {
  std::optional<long> mode;
  std::string error;
  if (!f.integer(4, mode, error)) refuse(error);
  if (mode && *mode != 1 && *mode != -1) refuse("019: field 4 must be 1 (include) or -1 (exclude)");
  std::string_view mask = f.raw(2);
  if (text::rtrim(mask).size() > kLabelWidth) refuse("019: a mask has at most 4 characters");
  if (masks_.size() >= kMaxMasks)
    refuse("019: at most " + std::to_string(kMaxMasks) + " masks in one GENIO");
  masks_.add(mask, mode.value_or(1) == 1);
}

void EngineRun::beginString(const Fields& f) {
  int defaultDim = order_ ? std::max(order_->highestDimension(), kMinDimension) : 3;
  if (defaultDim > kMaxDimension) defaultDim = kMaxDimension;
  HeaderRecord h;
  std::string error;
  if (!parseHeaderRecord(f, defaultDim, h, error)) refuse(error);
  GenioOrder order = order_ ? *order_ : GenioOrder::natural(h.header.dimension);
  reader_ = std::make_unique<PointListReader>();
  if (!reader_->start(format_.value_or(FortranFormat::mxDefault()), order, std::move(h), error)) {
    reader_.reset();
    refuse(error);
  }
  pointsFrom_ = lineNo_ + 1;
}

void EngineRun::writeStrings(const Fields& f) {
  GenioWriter w([this](const std::string& line) { emit(line); }, format_, order_);
  w.banner("GENIO output of model " + model_.name + " (Korvane embedded engine)");
  std::string error;
  int written = 0;
  auto write = [&](const StringRow& row) {
    if (!w.write(store_.load(row), error)) refuse(error);
    ++written;
  };
  if (f.has(2)) {
    if (normalLabel(f.raw(2)).size() > kLabelWidth) refuse("081: labels have at most 4 characters");
    std::optional<StringRow> row = store_.findString(model_.id, f.raw(2));
    if (row)
      write(*row);
    else
      listing_.note("no string " + normalLabel(f.raw(2)) + " in model \"" + model_.name + "\"");
  } else {
    for (const StringRow& row : store_.strings(model_.id))
      if (masks_.selects(row.header.label)) write(row);
  }
  w.end();
  listing_.note(std::to_string(written) + (written == 1 ? " string" : " strings") + " written" +
                (over_.is_open() ? " to " + overPath_ : std::string()));
}

// --- EDIT ----------------------------------------------------------------------

void EngineRun::editRecord(const std::string& record) {
  int n = minorNumber(record);
  if (n == 999) {
    closeBlock();
    return;
  }
  if (n != 5 && n != 6 && n != 31) {
    if (parseMajor(record))
      refuse("EDIT begun at line " + std::to_string(blockLine_) +
             " is not closed by 999 before this major option");
    if (n < 0) refuse("unrecognised record in EDIT");
    refuse("unknown minor option " + record.substr(0, 3) + " in EDIT");
  }
  Fields f = fields(record);
  std::string label = normalLabel(f.raw(3));
  if (label.empty()) refuse(record.substr(0, 3) + " needs a string label in field 3");
  if (label.size() > kLabelWidth)
    refuse(record.substr(0, 3) + ": labels have at most 4 characters");
  std::optional<StringRow> row = store_.findString(model_.id, label);
  if (!row) refuse("there is no string " + label + " in model \"" + model_.name + "\"");
  if (n == 31) {
    store_.deleteString(row->id);
    listing_.note("string " + label + " deleted");
    return;
  }
  std::string error;
  std::optional<long> six, nine;
  if (!f.integer(6, six, error) || !f.integer(9, nine, error)) refuse(error);
  ModelString s = store_.load(*row);
  std::size_t before = s.points.size();
  if (n == 5) {
    if (!keepPoints(s.points, six, nine, error)) refuse(error);
  } else {
    if (!six || !nine) refuse("006 needs the points a and b in fields 6 and 9");
    if (!cutBetween(s.points, *six, *nine, error)) refuse(error);
  }
  store_.saveString(model_.id, s);
  listing_.note("string " + label + ": " + std::to_string(s.points.size()) + " of " +
                std::to_string(before) + " points left");
}

}  // namespace

RunOutcome executeRun(ModelStore& store, Listing& listing, const RunRequest& request) {
  return EngineRun(store, listing, request).execute();
}

}  // namespace korvane::engine
