// GENIO files in the layouts other programs write (tests/genio/NAME.genio),
// each imported into a fresh project as `korvane models import NAME.genio`
// does: into the models its GENIO records name, or into model M when it
// names none. What the models then hold, every point with every dimension,
// must equal NAME.expected. KORVANE_WRITE_GOLDEN=1 writes the .expected of
// every file from what the engine gives now: read each one before keeping it.
#include "engine/genio_records.h"
#include "engine/model_string.h"
#include "support/engine.h"
#include "support/vectors.h"

namespace {

using namespace korvane::engine;

std::string describe(EmbeddedEngine& engine, const std::string& model) {
  std::string out = "model " + model + "\n";
  for (const StringRow& row : engine.strings(model)) {
    const ModelString s = engine.loadString(model, row.header.label);
    const StringHeader& h = s.header;
    out += "string " + h.label + " '" + h.subref + "' dimension " + std::to_string(h.dimension) +
           (h.level ? " level " + shortNumber(*h.level) : "") + "\n";
    for (const ModelPoint& p : s.points) {
      for (const DimValue& d : p.dims)
        out += " " + (d.isText ? "'" + d.txt + "'" : shortNumber(d.num));
      out += p.gapAfter ? " break\n" : "\n";
    }
  }
  for (const KeptBlock& k : engine.kept(model))
    out += std::string(k.kind == KeptBlock::Kind::Triangles ? "triangles " : "text string ") +
           std::to_string(k.items) + ", " + std::to_string(k.lines.size()) + " lines kept\n";
  return out;
}

class GenioCorpus : public korvane::testing::EngineTest,
                    public ::testing::WithParamInterface<std::string> {};

TEST_P(GenioCorpus, ImportsToItsExpectedModels) {
  const std::string base = korvane::test::sourceDir() + "/tests/genio/" + GetParam();
  std::vector<std::string> models = engine_->genioModelsOf(base + ".genio").value();
  const bool named = !models.empty();
  if (!named) models = {"M"};
  const auto r =
      engine_->importGenio(base + ".genio", named ? std::nullopt : std::optional<std::string>("M"));
  ASSERT_EQ(r.error, "");
  std::string got;
  for (const std::string& m : models) got += describe(*engine_, m);
  korvane::test::expectFileHolds(base + ".expected", got);
}

INSTANTIATE_TEST_SUITE_P(Files, GenioCorpus,
                         ::testing::ValuesIn(korvane::test::caseNames("genio", ".genio")),
                         [](const auto& info) { return korvane::test::testName(info.param); });

}  // namespace
