// What the benchmarks share: a fresh project folder under the temporary
// folder, Korvane's home (the first argument, else the build's bin folder),
// and a run context on it with the standard language in English.
#pragma once

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "base/fs.h"
#include "engine/embedded_engine.h"
#include "shell/driver.h"
#include "shell/standard_language.h"

namespace korvane::bench {

namespace stdfs = std::filesystem;

class BenchProject {
 public:
  BenchProject(const char* name, int argc, char** argv)
      : dir_(stdfs::temp_directory_path() / name),
        home_(argc > 1 ? argv[1]
                       : fs::fromNative(stdfs::path(argv[0]).parent_path() / ".." / "bin")) {
    stdfs::remove_all(dir_);
    stdfs::create_directories(dir_);
  }
  ~BenchProject() {
    engine_.reset();
    stdfs::remove_all(dir_);
  }

  std::string folder() const { return fs::fromNative(dir_); }
  std::string path(const char* file) const { return fs::fromNative(dir_ / file); }
  void write(const char* file, const std::string& text) const {
    std::ofstream(dir_ / file, std::ios::binary) << text;
  }

  // The embedded engine on this folder; null (after saying why) when it cannot start.
  engine::EmbeddedEngine* startEngine() {
    engine::EngineOptions options;
    options.projectFolder = folder();
    std::string error;
    engine_ = engine::EmbeddedEngine::create(options, error);
    if (!engine_) std::fprintf(stderr, "engine: %s\n", error.c_str());
    return engine_.get();
  }

  // A run context as the command line sets one up, on `engine`.
  void prepare(RunContext& ctx, hosts::MxEngine* engine) const {
    ctx.projectFolder = fs::withTrailingSeparator(folder());
    ctx.settingsPath = home_ + "/Korvane.ini";
    ctx.messages = Messages(home_ + "/English.lng");
    ctx.language = &standardLanguage();
    ctx.engine = engine;
  }

 private:
  stdfs::path dir_;
  std::string home_;
  std::unique_ptr<engine::EmbeddedEngine> engine_;
};

}  // namespace korvane::bench
