#include "shell/run_command.h"

#include <set>

#include "base/fs.h"
#include "base/profile.h"
#include "base/texts/status_bar_texts.h"
#include "shell/driver.h"

namespace korvane {

RunSettings readRunSettings(const std::string& settingsFile) {
  RunSettings s;
  s.saveOne = ReadProfileString("Position", "SaveSingleFile", settingsFile) == "1";
  s.saveSeparate = ReadProfileString("Position", "SaveSeparateFiles", settingsFile) == "1";
  std::string inpf = ReadProfileString("Files", "inpf", settingsFile);
  std::string comp = ReadProfileString("Files", "comp", settingsFile);
  if (!inpf.empty()) s.combinedName = inpf;
  if (!comp.empty()) s.separatePrefix = comp;
  return s;
}

RunOutcome runEntries(RunContext& ctx, const std::vector<std::string>& entries,
                      const RunSettings& settings, RunProgress* progress) {
  RunOutcome outcome;
  if (entries.empty()) return outcome;

  ctx.warnings.told.clear();  // each run tells its own
  ctx.warnings.emptyModels.clear();
  ctx.warnings.dropped = 0;
  SaveFiles& save = ctx.save;
  save = SaveFiles{};
  save.one = settings.saveOne;
  save.separate = settings.saveSeparate;
  save.combinedPath = ctx.projectFolder + settings.combinedName + ".inp";
  fs::removeFile(save.combinedPath);  // a run never leaves a stale combined file
  std::set<std::string> startedSeparate;

  for (std::size_t i = 0; i < entries.size(); ++i) {
    if (progress) progress->entryStarted(i, entries.size(), entries[i]);
    ctx.status(ctx.text(texts::status_bar::kCompiling));
    const std::string file = parseRunEntry(entries[i]).path;
    save.separatePath =
        ctx.projectFolder + settings.separatePrefix + fs::splitName(file).base + ".inp";
    if (save.separate && startedSeparate.insert(save.separatePath).second)
      fs::removeFile(save.separatePath);
    ctx.onEngineRun = [&](const EngineRunCause& run) {
      if (progress) progress->engineRun(i, run);
    };
    const std::optional<Stopped> stopped = ApplyOneFile(ctx, entries[i]);
    ctx.onEngineRun = nullptr;
    if (progress) progress->entryFinished(i, !stopped);
    if (stopped) {
      outcome.stopped = true;
      outcome.stoppedAt = i;
      outcome.interrupted = stopped->interrupted();
      outcome.message = stopped->message;
      outcome.shown = stopped->shown();
      break;
    }
    ++outcome.entriesRun;
  }
  // Back to idle.
  ctx.status(ctx.text(texts::status_bar::kReady));
  return outcome;
}

}  // namespace korvane
