// The major options, read between blocks: each is one transaction inside the
// run's, GENIO and EDIT open a block that their 999 closes.
#include <algorithm>
#include <filesystem>

#include "base/codepage.h"
#include "base/fs.h"
#include "base/text.h"
#include "engine/engine_limits.h"
#include "engine/run_state.h"

namespace korvane::engine {
namespace {

namespace fs = std::filesystem;

// The model a major option names: its argument without one trailing "," and
// without surrounding double quotes.
std::string modelName(const Record& r) {
  std::string name = r.argument;
  if (!name.empty() && name.back() == ',') name = text::trim(name.substr(0, name.size() - 1));
  if (name.size() >= 2 && name.front() == '"' && name.back() == '"')
    name = text::trim(name.substr(1, name.size() - 2));
  if (name.empty()) throw EngineError(std::string(r.word) + " needs a model name");
  checkModelName(name);
  return name;
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

void resetErrors(RunState& run, const Record&) { run.listing.note("error indicators reset"); }

void createModel(RunState& run, const Record& r) {
  const std::string name = modelName(r);
  Transaction tx(run.store.db());
  if (run.store.findModel(name)) {
    run.listing.note("model \"" + name + "\" exists already; left as it is");
    return;
  }
  run.store.createModel(name);
  tx.commit();
  run.listing.note("model \"" + name + "\" created");
}

void deleteModel(RunState& run, const Record& r) {
  const std::string name = modelName(r);
  Transaction tx(run.store.db());
  bool deleted = run.store.deleteModel(name);
  tx.commit();
  run.listing.note(deleted ? "model \"" + name + "\" deleted"
                           : "no model \"" + name + "\": nothing to delete");
}

// An import into one model takes every GENIO header as naming it, ending the
// block before it. An import into the models named takes a GENIO without a
// name as a header line that the block open goes on through.
void beginGenio(RunState& run, const Record& r) {
  if (run.request.importEach && r.argument.empty() && run.block == Block::Genio)
    return run.listing.note("header line: the block goes on");
  if (!run.request.importModel) {
    const std::string name = modelName(r);
    run.closeBlock();
    return run.openGenio(name);
  }
  run.closeBlock();
  run.openGenio(*run.request.importModel);
}

void beginEdit(RunState& run, const Record& r) {
  const std::string name = modelName(r);
  auto tx = std::make_unique<Transaction>(run.store.db());
  std::optional<ModelRow> m = run.store.findModel(name);
  if (!m) throw EngineError("EDIT: there is no model \"" + name + "\"");
  run.tx = std::move(tx);
  run.blockWord = "EDIT";
  run.blockLine = run.lineNo;
  run.model = *m;
  run.block = Block::Edit;
  run.currentModel = m->name;
}

// over,FILE,genio sends GENIO output to FILE; over,,genio to the listing again.
void redirect(RunState& run, const Record& r) {
  const std::string& argument = r.argument;
  std::size_t comma = argument.rfind(',');
  if (comma == std::string::npos)
    throw EngineError("OVER needs a file and a channel: over,FILE,genio");
  std::string file = text::trim(argument.substr(0, comma));
  std::string channel = text::trim(argument.substr(comma + 1));
  if (!cp::equalsIgnoreCase(channel, "genio"))
    throw EngineError("OVER: unknown channel '" + excerpt(channel) +
                      "' (only genio is redirected)");
  if (run.over.is_open()) run.over.close();
  if (file.empty()) {
    run.listing.note("GENIO output goes to the listing again");
    return;
  }
  // The file is named in the users' code page, relative to the project folder.
  const fs::path p = korvane::fs::pathOfNativeText(korvane::fs::nativeText(
      korvane::fs::isAbsolute(file) ? file : korvane::fs::join(run.request.projectFolder, file)));
  if (isEngineFile(p, run.store.path(), run.listing.path()))
    throw EngineError(
        "OVER: GENIO output cannot go to the model store, its journal files or the listing ('" +
        excerpt(file) + "')");
  run.over.open(p, std::ios::binary | std::ios::trunc);
  if (!run.over) throw EngineError("OVER: cannot write " + excerpt(file));
  run.overPath = korvane::fs::fromNative(p);
  run.listing.note("GENIO output goes to " + run.overPath);
}

// FINISH ends the input; inside an import's GENIO block it ends the block too.
void finishInput(RunState& run, const Record&) {
  if (run.block == Block::None)
    run.listing.note("end of input");
  else
    run.closeBlock();
  run.finished = true;
}

void nothingToEnd(RunState& run, const Record&) {
  run.listing.note("999 outside a major option: nothing to end");
}

// A major option is known by the first four letters of its word, in any case.
constexpr RecordRow kMajorOptionsRows[] = {
    {"moss", Block::None, InImport::Taken, resetErrors},
    {"crea", Block::None, InImport::Refused, createModel},
    {"dele", Block::None, InImport::Refused, deleteModel},
    {"geni", Block::None, InImport::EndsBlock, beginGenio},
    {"edit", Block::None, InImport::Refused, beginEdit},
    {"over", Block::None, InImport::Refused, redirect},
    {"fini", Block::None, InImport::EndsBlock, finishInput},
    {"999", Block::None, InImport::Taken, nothingToEnd},
};

}  // namespace

const std::span<const RecordRow> kMajorOptions = kMajorOptionsRows;

std::vector<std::string> genioModels(const std::vector<std::string>& lines) {
  std::vector<std::string> names;
  for (const std::string& line : lines) {
    if (classifyLine(line) != LineKind::Record || recordKey(line) != "geni") continue;
    std::string_view rest = std::string_view(line).substr(majorWord(line).size());
    if (!rest.empty() && rest[0] == ',') rest.remove_prefix(1);
    Record r{line, majorWord(line), text::trim(rest)};
    if (r.argument.empty() || r.argument == ",") continue;
    const std::string name = modelName(r);
    if (std::none_of(names.begin(), names.end(),
                     [&](const std::string& n) { return cp::equalsIgnoreCase(n, name); }))
      names.push_back(name);
  }
  return names;
}

}  // namespace korvane::engine
