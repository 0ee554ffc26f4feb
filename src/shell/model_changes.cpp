#include "shell/model_changes.h"

#include <map>

#include "base/codepage.h"
#include "base/texts/cli_texts.h"
#include "engine/embedded_engine.h"

namespace korvane {
namespace {

using engine::ModelDigest;
namespace cli = texts::cli;

const std::string kModelIndent = "  ";
const std::string kStringIndent = "    ";

std::string quoted(const std::string& name) { return "\"" + name + "\""; }

std::string pointCount(const Messages& messages, long points) {
  return countText(messages, points, cli::kPointsOne, cli::kPoints);
}

std::string counts(const Messages& messages, const ModelDigest& m) {
  long points = 0;
  for (const auto& s : m.strings) points += s.points;
  return modelCounts(messages, static_cast<long>(m.strings.size()), points);
}

// The lines of the strings a model changed: those of `after` in its order,
// then those it no longer has.
std::vector<std::string> stringChanges(const Messages& messages, const ModelDigest& before,
                                       const ModelDigest& after) {
  std::map<std::string, const ModelDigest::String*> old;
  for (const auto& s : before.strings) old[s.label] = &s;
  std::vector<std::string> lines;
  for (const auto& s : after.strings) {
    auto it = old.find(s.label);
    if (it == old.end()) {
      lines.push_back(kStringIndent + messages.format(cli::kDryRunStringCreated, s.label,
                                                      pointCount(messages, s.points)));
      continue;
    }
    if (it->second->digest != s.digest || it->second->points != s.points)
      lines.push_back(kStringIndent +
                      messages.format(cli::kDryRunStringChanged, s.label,
                                      messages.format(cli::kDryRunPointCounts,
                                                      std::to_string(it->second->points),
                                                      std::to_string(s.points))));
    old.erase(it);
  }
  for (const auto& s : before.strings)
    if (old.count(s.label))
      lines.push_back(kStringIndent + messages.format(cli::kDryRunStringDeleted, s.label,
                                                      pointCount(messages, s.points)));
  return lines;
}

}  // namespace

std::string modelCounts(const Messages& messages, long strings, long points) {
  return messages.format(cli::kModelCounts,
                         countText(messages, strings, cli::kStringsOne, cli::kStrings),
                         pointCount(messages, points));
}

std::optional<ModelsState> modelsState(hosts::MxEngine* engine) {
  auto* embedded = dynamic_cast<engine::EmbeddedEngine*>(engine);
  if (!embedded) return ModelsState{};
  try {
    return embedded->modelDigests();
  } catch (const engine::EngineError&) {
    return std::nullopt;
  }
}

std::vector<std::string> describeChanges(const Messages& messages, const ModelsState& before,
                                         const ModelsState& after) {
  // Models by name without regard to case, as the store names them.
  std::map<std::string, std::pair<const ModelDigest*, const ModelDigest*>> models;
  for (const auto& m : before) models[cp::upper(m.name)].first = &m;
  for (const auto& m : after) models[cp::upper(m.name)].second = &m;
  std::vector<std::string> lines;
  for (const auto& [key, pair] : models) {
    const auto [was, is] = pair;
    if (!was) {
      lines.push_back(kModelIndent + messages.format(cli::kDryRunModelCreated, quoted(is->name),
                                                     counts(messages, *is)));
    } else if (!is) {
      lines.push_back(kModelIndent + messages.format(cli::kDryRunModelDeleted, quoted(was->name),
                                                     counts(messages, *was)));
    } else {
      std::vector<std::string> strings = stringChanges(messages, *was, *is);
      if (strings.empty()) continue;
      lines.push_back(kModelIndent + messages.format(cli::kDryRunModelChanged, quoted(is->name)));
      lines.insert(lines.end(), strings.begin(), strings.end());
    }
  }
  return lines;
}

}  // namespace korvane
