// Subcommands of the korvane program. Each adds itself to the application and
// records its exit status for main() to return.
#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace korvane::cli {

void addCheckCommand(CLI::App& app);
void addCompileCommand(CLI::App& app);
void addModelsCommand(CLI::App& app);
void addRunCommand(CLI::App& app);
void addSectionsCommand(CLI::App& app);
void addDepsCommand(CLI::App& app);

struct SessionOptions;
struct WarningOptions;

// The options every command that compiles takes: --project, --home, --engine,
// --answer and -D NAME=VALUE.
void addSessionOptions(CLI::App* cmd, SessionOptions& session);

// --warnings: the check command's warnings, printed as the compile goes;
// --strict: the first warning stops the run; -w: no warnings.
void addWarningsOption(CLI::App* cmd, WarningOptions& warnings);

// Batch mode: the words after the program name, joined by blanks, are one run entry.
int runBatch(const std::vector<std::string>& words);

// The exit status of a run stopped by Ctrl-C, as shells expect (128 + SIGINT).
inline constexpr int kInterruptedStatus = 130;

void setExitCode(int code);
int exitCode();

}  // namespace korvane::cli
