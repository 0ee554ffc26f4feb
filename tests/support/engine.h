// Shared set-up of the embedded engine tests: a throw-away project per test,
// an engine on it, and helpers to run Linemode text and read files back.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "engine/embedded_engine.h"
#include "engine/input_file.h"
#include "support/project.h"

namespace korvane::testing {

class EngineTest : public ::testing::Test {
 protected:
  void SetUp() override {
    folder_ = project_.folder();
    engine_ = makeEngine();
    ASSERT_TRUE(engine_);
  }
  void TearDown() override { engine_.reset(); }

  std::unique_ptr<engine::EmbeddedEngine> makeEngine() {
    engine::EngineOptions o;
    o.projectFolder = folder_.string();
    o.settings = {{"PrivateMacros", "/macros/private"}, {"PublicMacros", "/macros/public"}};
    std::string error;
    auto e = engine::EmbeddedEngine::create(o, error);
    EXPECT_TRUE(error.empty()) << error;
    return e;
  }

  std::string path(const std::string& name) const { return (folder_ / name).string(); }

  void write(const std::string& name, const std::string& text) {
    std::ofstream(path(name), std::ios::binary) << text;
  }

  std::string read(const std::string& name) const {
    std::ifstream in(path(name), std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
  }

  std::vector<std::string> readLines(const std::string& name) const {
    std::vector<std::string> lines;
    engine::splitLines(read(name), lines);
    return lines;
  }

  // Runs Linemode text as the input file "input.txt"; returns the error (empty on success).
  std::string run(const std::string& text) {
    write("input.txt", text);
    return engine_->configuration().run("input", path("input.txt")).error;
  }

  std::string listing() const { return read("korvane-engine.lst"); }

  engine::ModelString load(const std::string& model, const std::string& label) {
    return engine_->loadString(model, label);
  }

  std::vector<std::string> labels(const std::string& model) {
    std::vector<std::string> out;
    auto m = engine_->library().model(model);
    if (m) out = m->stringLabels();
    return out;
  }

  test::TempProject project_;  // removed after the engine has let go of it
  std::filesystem::path folder_;
  std::unique_ptr<engine::EmbeddedEngine> engine_;
};

}  // namespace korvane::testing
