#include "longsection/validation.h"

#include <algorithm>

#include "base/conversions.h"
#include "base/text.h"
#include "base/texts/longsection_texts.h"
#include "base/texts/runtime_texts.h"
#include "longsection/model_strings.h"

namespace korvane::longsection {

namespace {

namespace ls = texts::longsection;

// A name goes into the generated input between double quotes, in lines that
// are split at commas and substituted between bars.
bool plainName(const std::string& s) { return s.find_first_of("\"|,") == std::string::npos; }

struct Checker {
  const Messages& texts;
  std::vector<std::string> problems;

  void add(MessageKey key, const std::string& a1 = {}, const std::string& a2 = {}) {
    problems.push_back(texts.format(key, a1, a2));
  }

  // A number given as text: empty is allowed (the default applies).
  bool number(const std::string& text, MessageKey key) {
    if (text::trim(text).empty() || conv::IsNumeric(text::trim(text))) return true;
    add(key, text);
    return false;
  }
};

std::vector<std::string> problems(const Parameters& p, hosts::MxEngine* engine,
                                  const Messages& texts, Extent* extent) {
  Checker c{texts, {}};
  const struct {
    MessageKey role;
    const std::string& label;
  } strings[] = {{ls::kMasterRole, p.masterString},
                 {ls::kGroundRole, p.groundString},
                 {ls::kDesignRole, p.designString}};

  bool modelOk = false;
  if (text::trim(p.referenceModel).empty()) {
    c.add(ls::kNoModel);
  } else if (!plainName(p.referenceModel)) {
    c.add(ls::kBadName, p.referenceModel);
  } else if (engine && !engine->configuration().modelExists(p.referenceModel)) {
    c.add(ls::kModelMissing, p.referenceModel);
  } else {
    modelOk = true;
  }

  std::vector<std::pair<std::string, std::string>> labels;  // label, role text
  for (const auto& s : strings) labels.push_back({s.label, texts.text(s.role)});
  for (const ExtraString& e : p.extras) {
    labels.push_back({e.label, texts.text(ls::kExtraRole)});
    if (!plainName(e.lineType) || !plainName(e.layer))
      c.add(ls::kBadName, e.lineType + " " + e.layer);
  }
  int points = 0;
  std::vector<SectionPoint> design;
  for (std::size_t i = 0; i < labels.size(); ++i) {
    const auto& [label, role] = labels[i];
    if (text::trim(label).empty()) {
      c.add(ls::kNoString, role);
      continue;
    }
    if (!plainName(label)) {
      c.add(ls::kBadName, label);
      continue;
    }
    if (!engine || !modelOk) continue;
    std::vector<SectionPoint> pts;
    if (!readSectionString(*engine, p.referenceModel, label, pts)) {
      c.add(ls::kStringMissing, label, p.referenceModel);
      continue;
    }
    if (i == 0) continue;  // the master string is a plan string: not drawn here
    if (pts.size() < 2) c.add(ls::kShortString, label);
    points += static_cast<int>(pts.size());
    if (i == 2) design = pts;
  }
  if (points > kMaxDrawnPoints)
    c.add(ls::kTooManyPoints, std::to_string(points), std::to_string(kMaxDrawnPoints));
  if (!plainName(p.groundLineType) || !plainName(p.designLineType))
    c.add(ls::kBadName, p.groundLineType + " " + p.designLineType);

  if (p.horizontalScale <= 0 || p.verticalScale <= 0) c.add(ls::kBadScale);
  if (p.chainageInterval <= 0) c.add(ls::kBadInterval);
  if (p.textHeight <= 0 || p.bandHeight <= 0) c.add(ls::kBadTextHeight);
  const bool chainagesOk =
      c.number(p.startChainage, ls::kBadChainage) & c.number(p.endChainage, ls::kBadChainage);
  c.number(p.datumLevel, ls::kBadDatum);

  const double bands = 5 * p.bandHeight;
  if (graphWidth(p) < kMinGraphWidth ||
      p.sheetHeight - p.marginTop - p.marginBottom - bands < kMinGraphHeight)
    c.add(ls::kSheetTooSmall, conv::CStr(p.sheetWidth), conv::CStr(p.sheetHeight));

  // The range: the chainages given, else the design string's ends.
  double start = 0, end = 0;
  bool haveStart = false, haveEnd = false;
  if (chainagesOk) {
    if (!text::trim(p.startChainage).empty()) {
      start = conv::Val(p.startChainage), haveStart = true;
    } else if (design.size() >= 2) {
      start = design.front().chainage, haveStart = true;
    }
    if (!text::trim(p.endChainage).empty()) {
      end = conv::Val(p.endChainage), haveEnd = true;
    } else if (design.size() >= 2) {
      end = design.back().chainage, haveEnd = true;
    }
  }
  const bool known = haveStart && haveEnd;
  if (known && start >= end) c.add(ls::kBadRange, conv::CStr(start), conv::CStr(end));

  if (known && start < end && sheetChainageLength(p) > 0) {
    const int sheets = sheetCount(p, start, end);
    if (sheets > kMaxSheets)
      c.add(ls::kTooManySheets, std::to_string(sheets), std::to_string(kMaxSheets));
    if (extent) *extent = {start, end, sheets};
  }
  return c.problems;
}

}  // namespace

std::vector<std::string> validate(const Parameters& p, hosts::MxEngine* engine,
                                  const Messages& texts, Extent* extent) {
  try {
    return problems(p, engine, texts, extent);
  } catch (const hosts::MxError& e) {  // the models cannot be checked at all
    return {texts.format(korvane::texts::runtime::kModelStore, e.what())};
  }
}

}  // namespace korvane::longsection
