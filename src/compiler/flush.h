// Making what was compiled so far take effect.
#pragma once

#include "compiler/run_context.h"

namespace korvane {

// The flush-and-run step. MX input: closed with the sentinel deletion line,
// run, checked, and begun afresh with the sentinel creation line. AutoCAD
// script and MicroStation key-in files: played and begun afresh. A print
// file: left alone.
// `asker` is the function or directive that asked, for the progress.
void flushAndRun(RunContext& ctx, std::string_view asker = {});

// Runs the closed MX input through the engine and checks that MX reached its
// end (the sentinel model is gone); a StopMessage (kMxStoppedEarly) when it
// did not.
void runCompiledOutput(RunContext& ctx, std::string_view asker = {});

// Copies the closed MX input to the save files without running it (after a
// failure, so that the save files hold every line compiled before it).
void saveCompiledOutput(RunContext& ctx) noexcept;

// Opens the MX input new with the sentinel creation line.
void beginMxOutput(RunContext& ctx);

// The MX input's full name: the project folder + "tmpinput.txt".
std::string mxOutputName(const RunContext& ctx);

}  // namespace korvane
