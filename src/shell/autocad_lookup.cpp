#include "shell/autocad_lookup.h"

#include <iterator>

#include "base/codepage.h"
#include "base/conversions.h"
#include "base/text.h"
#include "base/texts/messages_texts.h"
#include "compiler/expression.h"
#include "compiler/extension/compile_failure.h"

namespace korvane {
namespace {

const char* const kAutoCadKey = "SOFTWARE\\Autodesk\\AutoCAD";

[[noreturn]] void fail(RunContext&, const std::string& wanted) {
  throw StopMessage(texts::messages::kNoAutocad, wanted);
}

}  // namespace

std::string launcherRelease(hosts::AutomationSystem& system) {
  auto lines = system.processCommandLines("miarun.exe");
  if (lines.empty()) return "1";
  const std::string& cmd = lines.front();
  std::size_t at = cp::findIgnoreCase(cmd, "/version=");
  if (at == std::string::npos) return "1";
  std::string product = cmd.substr(at + 9);
  product = product.substr(0, product.find(' '));
  for (const auto& release : system.registrySubkeys(kAutoCadKey)) {
    std::string key = text::trim(release);
    for (const auto& sub : system.registrySubkeys(std::string(kAutoCadKey) + "\\" + key))
      if (sub == product) return key.size() > 1 ? key.substr(1, 4) : std::string();
  }
  return {};
}

hosts::AutoObject lookUpAutoCad(RunContext& ctx, hosts::AutomationSystem& system) {
  std::string wanted = variableOrName(ctx, "g_acadver");
  if (wanted == "g_acadver") wanted = "LATEST";
  std::string best = wanted == "OLDEST" ? "1000" : "0";
  int processes = 0;

  bool attachNow = false;
  if (wanted == "MIA") {
    best = launcherRelease(system);
    if (best.empty()) fail(ctx, "");
    if (best == "1")
      wanted = "LATEST";
    else
      attachNow = true;
  }
  if (!attachNow) {
    auto lines = system.processCommandLines("acad.exe");
    processes = static_cast<int>(lines.size());
    if (processes == 0) fail(ctx, "");
    for (const auto& cmd : lines) {
      std::size_t p = cp::findIgnoreCase(cmd, "acad.exe");
      if (p == std::string::npos) continue;
      // The command line starts with a quotation mark; the path runs to the end of "acad.exe".
      std::string exe = cmd.substr(1, p + 7);
      std::string version = system.fileVersion(exe);
      double v = conv::Val(version), b = conv::Val(best);
      if (wanted == "LATEST") {
        if (b < v) best = version;
      } else if (wanted == "OLDEST") {
        if (b > v) best = version;
      } else if (wanted >= "2004" && wanted <= "2012") {
        long k = static_cast<long>(conv::Val(wanted)) - 2004;
        if (k >= 0 && k < static_cast<long>(std::size(kAutoCadReleases)) &&
            conv::Val(kAutoCadReleases[k]) == v) {
          best = version;
          break;
        }
      }
    }
  }
  double b = conv::Val(best);
  if (b == 0 || b == 1000) fail(ctx, wanted + " ");
  const std::string release = conv::Format(best, "0.0");
  try {
    return system.runningObject(processes == 1 ? "AutoCAD.Application"
                                               : "AutoCAD.Application." + release);
  } catch (const hosts::AutomationError&) {
    throw StopMessage(texts::messages::kAutocadRelease, release);
  }
}

AutoCadFinder autoCadFinder(hosts::AutomationSystem& system) {
  return [&system](RunContext& ctx) { return lookUpAutoCad(ctx, system); };
}

}  // namespace korvane
