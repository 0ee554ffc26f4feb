// Shared set-up of the embedded engine tests: a throw-away project (the
// TempProject of support/project.h) with an engine on it, and helpers to run
// Linemode text and see what it left.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "engine/embedded_engine.h"
#include "engine/input_file.h"
#include "support/project.h"

namespace korvane::testing {

class EngineTest : public ::testing::Test {
 protected:
  void SetUp() override {
    engine_ = makeEngine();
    ASSERT_TRUE(engine_);
  }
  void TearDown() override { engine_.reset(); }

  std::unique_ptr<engine::EmbeddedEngine> makeEngine() {
    std::string error;
    auto e = engine::EmbeddedEngine::create(
        {project_.folder(),
         {{"PrivateMacros", "/macros/private"}, {"PublicMacros", "/macros/public"}}},
        error);
    EXPECT_TRUE(e) << error;
    return e;
  }

  std::vector<std::string> readLines(const std::string& name) const {
    std::vector<std::string> lines;
    engine::splitLines(project_.read(name), lines);
    return lines;
  }

  // Runs Linemode text as the input file "input.txt"; returns the error (empty on success).
  std::string run(const std::string& text) {
    return engine_->configuration().run("input", project_.write("input.txt", text)).error;
  }

  std::string listing() const { return project_.read("korvane-engine.lst"); }

  engine::ModelString load(const std::string& model, const std::string& label) {
    return engine_->loadString(model, label);
  }

  std::vector<std::string> labels(const std::string& model) {
    auto m = engine_->library().model(model);
    return m ? m->stringLabels() : std::vector<std::string>{};
  }

  test::TempProject project_;  // removed after the engine has let go of it
  std::unique_ptr<engine::EmbeddedEngine> engine_;
};

}  // namespace korvane::testing
