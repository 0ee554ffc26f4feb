#include "shell/cad_players.h"

#include <cstdio>
#include <memory>

#include "base/fs.h"
#include "base/texts/runtime_texts.h"
#include "compiler/extension/compile_failure.h"
#include "shell/autocad_lookup.h"

namespace korvane {
namespace {

// Runs one step of an automation conversation whose errors are ignored.
template <typename F>
void ignoringErrors(F step) {
  try {
    step();
  } catch (const hosts::AutomationError&) {
  }
}

// Copies a channel file to the project folder under the next number.
void keepCopy(RunContext& ctx, const std::string& file, int& counter, const char* stem,
              const char* ext) {
  char name[32];
  std::snprintf(name, sizeof name, "%s%03d.%s", stem, ++counter, ext);
  if (!fs::copyFile(file, ctx.projectFolder + name))
    throw RuntimeFailure(texts::runtime::kCannotWrite, ctx.projectFolder + name);
}

}  // namespace

void playAutoCadScript(hosts::AutomationObject& acad, const std::string& scriptFile) {
  hosts::AutoObject doc;
  ignoringErrors([&] {
    hosts::AutoObject docs = acad.get("Documents").object();
    if (docs && docs->get("Count").number() == 0) docs->call("Add", {"acad"});
  });
  ignoringErrors([&] { doc = acad.get("ActiveDocument").object(); });
  ignoringErrors([&] { acad.set("Visible", true); });
  hosts::AutoValue filedia;
  ignoringErrors([&] {
    if (!doc) return;
    filedia = doc->call("GetVariable", {"FILEDIA"});
    doc->call("SetVariable", {"FILEDIA", 0});
  });
  ignoringErrors([&] {
    if (doc) doc->call("SendCommand", {"_script\r" + scriptFile + "\r"});
  });
  // Wait until AutoCAD has played the script (a busy wait, deliberately).
  ignoringErrors([&] {
    for (;;) {
      hosts::AutoObject state = acad.call("GetAcadState").object();
      if (!state || state->get("IsQuiescent").truth()) break;
    }
  });
  ignoringErrors([&] {
    hosts::AutoObject active = acad.get("ActiveDocument").object();
    if (active && !filedia.isEmpty()) active->call("SetVariable", {"FILEDIA", filedia});
  });
}

void playMicroStationKeyins(hosts::AutomationObject& ustation, const std::string& keyinFile) {
  hosts::AutoObject queue = ustation.get("CadInputQueue").object();
  if (!queue) throw hosts::AutomationError("CadInputQueue");
  queue->call("SendCommand", {"@" + keyinFile});
}

ChannelPlayers makeCadPlayers(hosts::AutomationSystem& system, CadOptions options) {
  auto counter = std::make_shared<int>(0);
  ChannelPlayers p;
  p.script = [&system, options, counter](RunContext& ctx, const std::string& file) {
    if (options.keepScripts) keepCopy(ctx, file, *counter, "script", "scr");
    hosts::AutoObject acad;
    try {
      acad = lookUpAutoCad(ctx, system);
    } catch (const StopMessage&) {
      if (options.keepScripts) return;  // kept, not played: go on
      throw;
    }
    if (acad) playAutoCadScript(*acad, file);
  };
  p.keyin = [&system, options, counter](RunContext& ctx, const std::string& file) {
    if (options.keepScripts) keepCopy(ctx, file, *counter, "keyin", "key");
    hosts::AutoObject ustation;
    try {
      ustation = system.runningObject("MicroStationDGN.Application");
      playMicroStationKeyins(*ustation, file);
    } catch (const hosts::AutomationError&) {
      if (!options.keepScripts) throw RuntimeFailure(texts::runtime::kNoMicroStation);
    }
  };
  return p;
}

}  // namespace korvane
