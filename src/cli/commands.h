// Subcommands of the korvane program. Each adds itself to the application and
// records its exit status for main() to return.
#pragma once

namespace CLI {
class App;
}

namespace korvane::cli {

void addCompileCommand(CLI::App& app);
void addModelsCommand(CLI::App& app);

void setExitCode(int code);
int exitCode();

}  // namespace korvane::cli
