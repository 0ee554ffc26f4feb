#include "longsection/panel_file.h"

#include <algorithm>
#include <filesystem>

#include "base/codepage.h"
#include "base/conversions.h"
#include "base/fs.h"
#include "base/profile.h"
#include "base/text.h"

namespace korvane::longsection {

namespace {

constexpr const char* kModel = "Model";
constexpr const char* kSheet = "Sheet";
constexpr const char* kDrawing = "Drawing";
constexpr const char* kStrings = "Strings";

// One file's reads and writes, so that each parameter is named once below.
struct Profile {
  const std::string& path;
  bool writing;
  std::vector<ProfileEntry> written;  // saved together, once

  void text(const char* section, const char* key, std::string& value) {
    if (writing) {
      written.push_back({section, key, value});
    } else {
      std::string v = ReadProfileValue(section, key, path);
      if (!v.empty()) value = text::trim(v);
    }
  }
  void number(const char* section, const char* key, double& value) {
    std::string t = writing ? conv::CStr(value) : std::string();
    text(section, key, t);
    if (!writing && !t.empty()) value = conv::Val(t);
  }
  void flag(const char* section, const char* key, bool& value) {
    std::string t = writing ? std::string(value ? "1" : "0") : std::string();
    text(section, key, t);
    if (!writing && !t.empty()) value = t != "0";
  }
};

void exchange(Profile& f, Parameters& p) {
  f.text(kModel, "ReferenceModelName", p.referenceModel);
  f.text(kModel, "MasterString", p.masterString);
  f.text(kModel, "GroundLongsectionString", p.groundString);
  f.text(kModel, "DesignLongsectionString", p.designString);
  f.number(kDrawing, "HorizontalScale", p.horizontalScale);
  f.number(kDrawing, "VerticalScale", p.verticalScale);
  f.text(kDrawing, "StartChainage", p.startChainage);
  f.text(kDrawing, "EndChainage", p.endChainage);
  f.number(kDrawing, "ChainageInterval", p.chainageInterval);
  f.flag(kDrawing, "GradeChangeColumns", p.gradeChangeColumns);
  f.text(kDrawing, "DatumLevel", p.datumLevel);
  f.number(kDrawing, "TextHeight", p.textHeight);
  f.number(kDrawing, "BandHeight", p.bandHeight);
  f.number(kDrawing, "BandTitleWidth", p.bandTitleWidth);
  f.text(kDrawing, "GroundLineType", p.groundLineType);
  f.text(kDrawing, "DesignLineType", p.designLineType);
  f.text(kSheet, "SheetSize", p.sheetSize);
  f.flag(kSheet, "Landscape", p.landscape);
  f.number(kSheet, "SheetWidth", p.sheetWidth);
  f.number(kSheet, "SheetHeight", p.sheetHeight);
  f.number(kSheet, "MarginLeft", p.marginLeft);
  f.number(kSheet, "MarginRight", p.marginRight);
  f.number(kSheet, "MarginTop", p.marginTop);
  f.number(kSheet, "MarginBottom", p.marginBottom);
}

// A further string as one value: label, line type and layer.
std::string extraText(const ExtraString& e) { return e.label + "," + e.lineType + "," + e.layer; }

ExtraString extraFrom(const std::string& text) {
  ExtraString e;
  std::vector<std::string> parts;
  std::size_t from = 0;
  for (;;) {
    std::size_t comma = text.find(',', from);
    parts.push_back(text::trim(text.substr(from, comma - from)));
    if (comma == std::string::npos) break;
    from = comma + 1;
  }
  e.label = parts[0];
  if (parts.size() > 1 && !parts[1].empty()) e.lineType = parts[1];
  if (parts.size() > 2 && !parts[2].empty()) e.layer = parts[2];
  return e;
}

}  // namespace

Parameters readPanelFile(const std::string& path) {
  Parameters p;
  Profile f{path, false, {}};
  exchange(f, p);
  if (p.sheetSize != "Custom") applySheetSize(p);
  const double stored = conv::Val(ReadProfileValue(kStrings, "Count", path));
  const int count = stored < 1 ? 0 : stored > kMaxExtras ? kMaxExtras : static_cast<int>(stored);
  for (int i = 1; i <= count; ++i) {
    ExtraString e = extraFrom(ReadProfileValue(kStrings, "String" + std::to_string(i), path));
    if (!e.label.empty()) p.extras.push_back(e);
  }
  return p;
}

bool writePanelFile(const std::string& path, const Parameters& given) {
  Parameters p = given;
  if (!fs::fileExists(path) && !fs::writeFileAtomic(path, "")) return false;
  Profile f{path, true, {}};
  exchange(f, p);
  const int count = std::min<int>(static_cast<int>(p.extras.size()), kMaxExtras);
  f.written.push_back({kStrings, "Count", std::to_string(count)});
  for (int i = 1; i <= count; ++i)
    f.written.push_back({kStrings, "String" + std::to_string(i), extraText(p.extras[i - 1])});
  return WriteProfileEntries(path, f.written);
}

std::vector<std::string> panelFilesIn(const std::string& folder) {
  std::vector<std::string> names;
  std::error_code ec;
  for (const auto& entry : std::filesystem::directory_iterator(fs::native(folder), ec)) {
    if (!entry.is_regular_file(ec)) continue;
    const std::string name = fs::fromNative(entry.path().filename());
    if (cp::equalsIgnoreCase(fs::splitName(name).ext, "ipd")) names.push_back(name);
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::string lastPanelFile(const std::string& settingsFile) {
  return ReadProfileValue("Longsection", "LastPanel", settingsFile);
}

void rememberPanelFile(const std::string& settingsFile, const std::string& path) {
  WriteProfileString("Longsection", "LastPanel", path, settingsFile);
}

}  // namespace korvane::longsection
