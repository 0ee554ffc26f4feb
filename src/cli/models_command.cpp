// korvane models: load, inspect and export the embedded engine's models.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <sstream>

#include "base/codepage.h"
#include "base/fs.h"
#include "base/messages.h"
#include "base/texts/cli_texts.h"
#include "base/texts/runtime_texts.h"
#include "cli/cli_texts.h"
#include "cli/commands.h"
#include "cli/session.h"
#include "engine/embedded_engine.h"
#include "engine/genio_records.h"
#include "shell/model_changes.h"
#include "shell/home.h"
#include "shell/startup.h"

namespace korvane::cli {
namespace {

namespace stdfs = std::filesystem;
using engine::EmbeddedEngine;

struct ModelsArgs {
  std::string home;
  std::string project;
  std::string model;
  std::string label;
  std::string file;
  std::string output;
  bool merge = false;
  std::string exponent = "D";
  std::string sixD = "split";
  std::string master;
  std::string target;
  engine::SectionRequest sections;
};

ModelsArgs& args() {
  static ModelsArgs a;
  return a;
}

constexpr int kOk = 0, kEngineError = 1, kUsageError = 2;

std::string terminal(std::string_view cp1250) { return toTerminal(std::string(cp1250)); }

// The language file's texts, once the home folder is known.
Messages& messages() {
  static Messages m;
  return m;
}

// The engine of the --project folder (the current directory by default).
std::unique_ptr<EmbeddedEngine> openEngine() {
  std::error_code ec;
  const std::string named = fromTerminal(args().project);
  stdfs::path folder = named.empty() ? stdfs::current_path(ec) : korvane::fs::native(named);
  const std::string shown = korvane::fs::fromNative(stdfs::absolute(folder, ec));
  if (named.empty() && !isProjectFolder(shown)) {
    std::cerr << "korvane models: " << terminal(messages().format(texts::cli::kNotProject, shown))
              << "\n"
              << terminal(messages().text(texts::cli::kChooseProject)) << "\n";
    setExitCode(kUsageError);
    return nullptr;
  }
  if (!stdfs::is_directory(folder, ec)) {
    std::cerr << "korvane models: " << terminal(messages().format(texts::cli::kNoProject, shown))
              << "\n";
    setExitCode(kUsageError);
    return nullptr;
  }
  engine::EngineOptions options;
  // The engine takes the folder in the users' code page, as every path of the core.
  options.projectFolder = korvane::fs::fromNative(stdfs::absolute(folder, ec).lexically_normal());
  while (options.projectFolder.size() > 1 && options.projectFolder.back() == '/')
    options.projectFolder.pop_back();
  std::string error;
  auto engine = EmbeddedEngine::create(options, error);
  if (!engine) {
    std::cerr << "korvane models: " << terminal(error) << "\n";
    setExitCode(kEngineError);
  }
  return engine;
}

// A line of column headings, tab-separated like the rows.
void heading(std::initializer_list<MessageKey> keys) {
  std::string line;
  for (MessageKey k : keys) line += (line.empty() ? "" : "\t") + messages().text(k);
  std::cout << terminal(line) << '\n';
}

int fail(const std::string& message) {
  std::cerr << "korvane models: " << terminal(message) << "\n";
  return kEngineError;
}

int usage(const std::string& message) {
  fail(message);
  return kUsageError;
}

// Rows under a heading line, in columns as wide as their widest cell: names
// left-aligned, counts right-aligned. Widths are counted in the core's
// one-byte code page, where a byte is a character.
void printColumns(const std::vector<std::vector<std::string>>& rows) {
  std::vector<std::size_t> width;
  for (const auto& row : rows)
    for (std::size_t i = 0; i < row.size(); ++i) {
      if (width.size() <= i) width.push_back(0);
      width[i] = std::max(width[i], row[i].size());
    }
  for (const auto& row : rows) {
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i) {
      const std::string pad(width[i] - row[i].size(), ' ');
      if (i == 0)
        line += row[i] + (row.size() > 1 ? pad : "");
      else
        line += "  " + pad + row[i];
    }
    std::cout << terminal(line) << '\n';
  }
}

int list(EmbeddedEngine& e) {
  const std::vector<engine::ModelSummary> models = e.models();
  std::vector<std::vector<std::string>> rows{{messages().text(texts::cli::kColumnModel),
                                              messages().text(texts::cli::kColumnStrings),
                                              messages().text(texts::cli::kColumnPoints)}};
  for (const auto& m : models)
    rows.push_back({m.name, std::to_string(m.strings), std::to_string(m.points)});
  printColumns(rows);
  return kOk;
}

int show(EmbeddedEngine& e) {
  const std::string model = cp::fromUtf8(args().model);
  if (args().label.empty()) {
    const std::vector<engine::StringRow> rows = e.strings(model);
    heading({texts::cli::kColumnLabel, texts::cli::kColumnDimension, texts::cli::kColumnPoints});
    for (const auto& r : rows)
      std::cout << terminal(r.header.label) << '\t' << r.header.dimension << '\t' << r.pointCount
                << '\n';
    long triangles = 0, texts = 0;
    for (const engine::KeptBlock& k : e.kept(model))
      (k.kind == engine::KeptBlock::Kind::Triangles ? triangles : texts) +=
          k.kind == engine::KeptBlock::Kind::Triangles ? k.items : 1;
    if (triangles + texts > 0)
      std::cout << terminal(messages().format(texts::cli::kKeptRecords, std::to_string(triangles),
                                              std::to_string(texts)))
                << '\n';
    return kOk;
  }
  const engine::ModelString s = e.loadString(model, cp::fromUtf8(args().label));
  std::size_t dims = 3;
  for (const auto& p : s.points) dims = std::max(dims, p.dims.size());
  std::string head = messages().text(texts::cli::kColumnPoint);
  for (std::size_t d = 1; d <= dims; ++d)
    head += "\t" + messages().format(texts::cli::kColumnDim, std::to_string(d));
  std::cout << terminal(head) << '\n';
  for (std::size_t i = 0; i < s.points.size(); ++i) {
    const auto& p = s.points[i];
    std::cout << i + 1;
    for (int d = 1; d <= std::max<int>(3, static_cast<int>(p.dims.size())); ++d) {
      std::string text = engine::dimText(p, d);
      std::cout << '\t'
                << (text.empty() && !(d <= static_cast<int>(p.dims.size()) &&
                                      p.dims[static_cast<std::size_t>(d - 1)].isText)
                        ? engine::shortNumber(engine::dimNumber(s.header, p, d))
                        : "'" + terminal(text) + "'");
    }
    if (p.gapAfter) std::cout << "\tbreak";
    std::cout << '\n';
  }
  return kOk;
}

int report(const hosts::MxRunResult& r) {
  if (r.ok()) return kOk;
  std::cerr << "korvane models: " << terminal(r.error) << "\n";
  if (!r.listing.empty())
    std::cerr << "  " << terminal(messages().format(texts::cli::kListing, r.listing)) << "\n";
  return kEngineError;
}

// "N strings, M points" of a model.
std::string counts(EmbeddedEngine& e, const std::string& model) {
  const std::vector<engine::StringRow> rows = e.strings(model);
  long points = 0;
  for (const auto& r : rows) points += r.pointCount;
  return modelCounts(messages(), static_cast<long>(rows.size()), points);
}

// What a model holds after a command loaded strings into it.
int printCounts(EmbeddedEngine& e, const std::string& model) {
  std::cout << terminal(model + ": " + counts(e, model)) << "\n";
  return kOk;
}

// Without a model the file's GENIO records name the models; with one, a file
// that names several goes into it only with --merge.
int import(EmbeddedEngine& e) {
  // A file that cannot be read names no model here; its import says why.
  const std::optional<std::vector<std::string>> scanned = e.genioModelsOf(args().file);
  const std::vector<std::string> named = scanned.value_or(std::vector<std::string>{});
  std::string list;
  for (const std::string& n : named) list += (list.empty() ? "" : ", ") + n;
  const std::string model = cp::fromUtf8(args().model);
  if (model.empty() && scanned && named.empty())
    return usage(messages().format(texts::cli::kImportNamesNoModel, args().file));
  if (!model.empty() && named.size() > 1 && !args().merge)
    return usage(messages().format(texts::cli::kImportNamesModels, args().file, list));
  const std::vector<std::string> models = model.empty() ? named : std::vector{model};
  std::vector<std::string> existed;
  for (const std::string& m : models)
    if (e.modelExists(m)) existed.push_back(m);
  int rc = report(
      e.importGenio(args().file, model.empty() ? std::nullopt : std::optional<std::string>(model)));
  for (const std::string& m : models) {
    const bool wasThere = std::find(existed.begin(), existed.end(), m) != existed.end();
    // A model the failed import began is not left behind empty.
    if (rc != kOk && !wasThere && e.modelExists(m))
      e.runLines({"dele," + m}, "korvane models import");
    if (rc == kOk) printCounts(e, m);
  }
  return rc;
}

int sections(EmbeddedEngine& e) {
  const std::string target = cp::fromUtf8(args().target);
  engine::SectionRequest request = args().sections;
  request.prefix = cp::upper(cp::fromUtf8(request.prefix));
  int rc = report(
      e.makeSections(cp::fromUtf8(args().model), cp::fromUtf8(args().master), target, request));
  return rc != kOk ? rc : printCounts(e, target);
}

int exportModel(EmbeddedEngine& e) {
  const std::string model = cp::fromUtf8(args().model);
  engine::WriteLayout layout;
  const std::string exponent = cp::upper(args().exponent);
  if (exponent != "D" && exponent != "E")
    return usage(messages().format(texts::cli::kBadExponent, args().exponent));
  layout.exponent = exponent[0];
  if (args().sixD != "split" && args().sixD != "reverting")
    return usage(messages().format(texts::cli::kBadSixD, args().sixD));
  layout.revertingSixD = args().sixD == "reverting";
  if (args().output.empty()) {
    e.exportGenio(
        model, [](const std::string& line) { std::cout << terminal(line) << '\n'; }, layout);
    return kOk;
  }
  std::ostringstream text;
  e.exportGenio(
      model, [&text](const std::string& line) { text << line << "\r\n"; }, layout);
  std::ofstream out(args().output, std::ios::binary | std::ios::trunc);
  out << text.str();
  if (!out) return fail(messages().format(texts::runtime::kCannotWrite, args().output));
  return kOk;
}

int remove(EmbeddedEngine& e) {
  const std::string model = cp::fromUtf8(args().model);
  if (!e.modelExists(model)) return fail(messages().format(texts::cli::kNoModel, model));
  const std::string text = counts(e, model);
  const int rc = report(e.runLines({"dele," + model}, "korvane models delete"));
  if (rc == kOk)
    std::cout << terminal(messages().format(texts::cli::kDeleted, model, text)) << "\n";
  return rc;
}

int exec(EmbeddedEngine& e) {
  const std::string file = korvane::fs::absolute(fromTerminal(args().file));
  hosts::MxRunResult r = e.configuration().run("input", file);
  std::ifstream listing(r.listing, std::ios::binary);
  std::string line;
  while (std::getline(listing, line)) std::cout << terminal(line) << '\n';
  return report(r);
}

CLI::App* subcommand(CLI::App* models, const char* name, const std::string& help,
                     int (*action)(EmbeddedEngine&)) {
  CLI::App* sub = models->add_subcommand(name, help);
  sub->add_option("--project", args().project, cliText(texts::cli::kHelpModelsProject));
  sub->add_option("--home", args().home, cliText(texts::cli::kHelpHome));
  sub->callback([action] {
    HomePaths home;
    std::string error;
    if (!resolveHome(fromTerminal(args().home), home, error, fromTerminal(cliLanguage()))) {
      std::cerr << terminal(error) << "\n";
      setExitCode(kUsageError);
      return;
    }
    messages() = Messages(home.language);
    auto engine = openEngine();
    if (!engine) return;
    try {
      setExitCode(action(*engine));
    } catch (const engine::EngineError& e) {  // a model or string not there, a store not read
      setExitCode(fail(e.what()));
    } catch (const hosts::MxError& e) {
      setExitCode(fail(e.what()));
    }
  });
  return sub;
}

}  // namespace

void addModelsCommand(CLI::App& app) {
  auto* models = app.add_subcommand("models", cliText(texts::cli::kHelpModels));
  models->require_subcommand(1);
  ModelsArgs& a = args();

  subcommand(models, "list", cliText(texts::cli::kHelpModelsList), list);
  auto* showCmd = subcommand(models, "show", cliText(texts::cli::kHelpModelsShow), show);
  showCmd->add_option("MODEL", a.model, cliText(texts::cli::kHelpModel))->required();
  showCmd->add_option("LABEL", a.label, cliText(texts::cli::kHelpLabel));
  auto* importCmd = subcommand(models, "import", cliText(texts::cli::kHelpModelsImport), import);
  importCmd->add_option("FILE", a.file, cliText(texts::cli::kHelpGenio))->required();
  importCmd->add_option("MODEL", a.model, cliText(texts::cli::kHelpImportModel));
  importCmd->add_flag("--merge", a.merge, cliText(texts::cli::kHelpMerge));
  auto* exportCmd =
      subcommand(models, "export", cliText(texts::cli::kHelpModelsExport), exportModel);
  exportCmd->add_option("MODEL", a.model, cliText(texts::cli::kHelpModel))->required();
  exportCmd->add_option("-o,--output", a.output, cliText(texts::cli::kHelpModelsOutput));
  exportCmd->add_option("--exponent", a.exponent, cliText(texts::cli::kHelpExponent));
  exportCmd->add_option("--six-d", a.sixD, cliText(texts::cli::kHelpSixD));
  auto* deleteCmd = subcommand(models, "delete", cliText(texts::cli::kHelpModelsDelete), remove);
  deleteCmd->add_option("MODEL", a.model, cliText(texts::cli::kHelpModel))->required();
  auto* sectionsCmd =
      subcommand(models, "sections", cliText(texts::cli::kHelpModelsSections), sections);
  sectionsCmd->add_option("MODEL", a.model, cliText(texts::cli::kHelpModel))->required();
  sectionsCmd->add_option("MASTER", a.master, cliText(texts::cli::kHelpMaster))->required();
  sectionsCmd->add_option("TARGET", a.target, cliText(texts::cli::kHelpSectionTarget))->required();
  sectionsCmd->add_option("--interval", a.sections.interval,
                          cliText(texts::cli::kHelpSectionInterval));
  sectionsCmd->add_option("--width", a.sections.halfWidth, cliText(texts::cli::kHelpSectionWidth));
  sectionsCmd->add_option("--prefix", a.sections.prefix, cliText(texts::cli::kHelpSectionPrefix));
  auto* execCmd = subcommand(models, "exec", cliText(texts::cli::kHelpModelsExec), exec);
  execCmd->add_option("FILE", a.file, cliText(texts::cli::kHelpFile))->required();
}

}  // namespace korvane::cli
