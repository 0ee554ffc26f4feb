#include "shell/longsection_draw.h"

#include "base/fs.h"
#include "base/texts/longsection_texts.h"
#include "base/texts/runtime_texts.h"
#include "compiler/extension/compile_failure.h"
#include "longsection/svg_writer.h"
#include "shell/driver.h"

namespace korvane {

bool drawLongsectionWithoutCad(const RunEnvironment& env, const std::string& input,
                               DrawnLongsection& out, std::string& error) {
  const fs::NameParts parts = fs::splitName(input);
  out.script = fs::join(parts.folder, parts.base + ".scr");
  out.svg.clear();
  fs::removeFile(out.script);

  RunContext ctx;
  static_cast<RunEnvironment&>(ctx) = env;
  // Every flush of the script channel adds what it holds to the kept script.
  const std::string kept = out.script;
  ctx.players.script = [kept](RunContext&, const std::string& file) {
    auto data = fs::readFile(file);
    if (!data || !fs::appendFile(kept, *data))
      throw RuntimeFailure(texts::runtime::kCannotWrite, kept);
  };
  if (const std::optional<Stopped> stopped = ApplyOneFile(ctx, input)) {
    error = stopped->shown();
    return false;
  }
  if (!fs::fileExists(out.script)) {
    error = env.messages.format(texts::longsection::kNoScript, input);
    return false;
  }
  out.svg = longsection::writeSvgBesideScript(out.script);
  if (out.svg.empty()) {
    error = env.messages.format(texts::longsection::kNoPicture, out.script);
    return false;
  }
  return true;
}

}  // namespace korvane
