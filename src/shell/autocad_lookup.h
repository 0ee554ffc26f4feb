// Finding the running AutoCAD that scripts and AutoCAD getters talk to: the
// release chosen by the variable "g_acadver" ("LATEST", "OLDEST", "MIA" or a
// year), among the running acad.exe processes.
#pragma once

#include <string>

#include "compiler/run_context.h"
#include "hosts/automation.h"

namespace korvane {

// The AutoCAD release of year 2004 + k is entry k.
inline constexpr const char* kAutoCadReleases[] = {"16.0", "16.1", "16.2", "17.0", "17.1",
                                                   "17.2", "18.0", "18.1", "18.2"};

// The release MX's launcher (miarun.exe) was started for: "1" when it runs
// without "/version=" or does not run, empty when the version matches no
// installed release.
std::string launcherRelease(hosts::AutomationSystem& system);

// The chosen AutoCAD application; a StopMessage (kNoAutocad, kAutocadRelease)
// when there is none.
hosts::AutoObject lookUpAutoCad(RunContext& ctx, hosts::AutomationSystem& system);

// The lookup as the run environment's hook for the AutoCAD getters; `system`
// must outlive the run.
AutoCadFinder autoCadFinder(hosts::AutomationSystem& system);

}  // namespace korvane
