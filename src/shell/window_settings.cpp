#include "shell/window_settings.h"

#include <algorithm>
#include <limits>

#include "base/codepage.h"
#include "base/conversions.h"
#include "base/fs.h"
#include "base/profile.h"

namespace korvane {
namespace {

const char* const kPosition = "Position";

std::optional<std::int16_t> readInt16(const std::string& file, const char* key) {
  const std::string text = ReadProfileString(kPosition, key, file);
  if (text.empty()) return std::nullopt;
  try {
    return conv::CInt(text);
  } catch (const conv::ConversionError&) {
    return std::nullopt;  // nonsense or out of range: the value stays as it is
  }
}

std::string int16Text(int v) {
  // The reader takes 16-bit values: anything larger is kept as the largest
  // value that reads back.
  constexpr int lo = std::numeric_limits<std::int16_t>::min();
  constexpr int hi = std::numeric_limits<std::int16_t>::max();
  return std::to_string(std::clamp(v, lo, hi));
}

}  // namespace

WindowSettings readWindowSettings(const std::string& file) {
  WindowSettings s;
  const std::string dir = ReadProfileString(kPosition, "Dir", file);
  if (cp::equalsIgnoreCase(dir, "True"))
    s.dir = true;
  else if (cp::equalsIgnoreCase(dir, "False"))
    s.dir = false;
  s.top = readInt16(file, "Top");
  s.left = readInt16(file, "Left");
  s.width = readInt16(file, "Width");
  s.height = readInt16(file, "Height");
  s.dirWidth = readInt16(file, "dirWidth");
  s.inpWidth = readInt16(file, "inpWidth");
  s.subWidth = readInt16(file, "subWidth");
  s.runWidth = readInt16(file, "runWidth");
  if (auto v = readInt16(file, "SaveSingleFile"))
    s.saveOne = *v == kBevelPressed ? kBevelPressed : kBevelRaised;
  if (auto v = readInt16(file, "SaveSeparateFiles"))
    s.saveSeparate = *v == kBevelPressed ? kBevelPressed : kBevelRaised;
  s.lastFile = ReadProfileString(kPosition, "LastFile", file);
  return s;
}

bool writeWindowSettings(const std::string& file, const WindowState& st) {
  const std::pair<const char*, std::string> keys[] = {
      {"Top", int16Text(st.top)},
      {"Left", int16Text(st.left)},
      {"Width", int16Text(st.width)},
      {"Height", int16Text(st.height)},
      {"Dir", st.dir ? "True" : "False"},
      {"dirWidth", int16Text(st.dirWidth)},
      {"inpWidth", int16Text(st.inpWidth)},
      {"subWidth", int16Text(st.subWidth)},
      {"runWidth", int16Text(st.runWidth)},
      {"SaveSingleFile", std::to_string(st.saveOne)},
      {"SaveSeparateFiles", std::to_string(st.saveSeparate)},
      {"LastFile", st.lastFile},
  };
  bool ok = true;
  for (const auto& [key, value] : keys)
    ok = WriteProfileString(kPosition, key, value, file) == "1" && ok;
  return ok;
}

bool writeFolderPanelShown(const std::string& file, bool shown) {
  return WriteProfileString(kPosition, "Dir", shown ? "True" : "False", file) == "1";
}

Geometry restoredGeometry(const WindowSettings& s, Geometry g, int screenWidth, int screenHeight) {
  if (s.top) g.top = *s.top;
  if (s.left) g.left = *s.left;
  if (g.top < 0 || g.top > screenHeight) g.top = 0;
  if (g.left < 0 || g.left > screenWidth) g.left = 0;
  if (s.width && *s.width > 0) g.width = *s.width;
  if (s.height && *s.height > 0) g.height = *s.height;
  g.width = std::min(g.width, screenWidth);
  g.height = std::min(g.height, screenHeight);
  if (g.top + g.height > screenHeight) g.top = screenHeight - g.height;
  if (g.left + g.width > screenWidth) g.left = screenWidth - g.width;
  return g;
}

bool folderPanelToggleAtStart(int folderListTwips, bool dir) {
  return (folderListTwips > kCollapsedPanelTwips && !dir) ||
         (folderListTwips == kCollapsedPanelTwips && dir);
}

std::vector<int> slideOpenWidths(int remembered) {
  std::vector<int> widths;
  for (int w = kCollapsedPanelTwips; w <= remembered; w += kSlideStepTwips) widths.push_back(w);
  widths.push_back(std::max(remembered, kCollapsedPanelTwips));
  return widths;
}

std::vector<int> slideClosedWidths(int current) {
  std::vector<int> widths;
  for (int w = current; w >= kCollapsedPanelTwips; w -= kSlideStepTwips) widths.push_back(w);
  widths.push_back(kCollapsedPanelTwips);
  return widths;
}

int toggledBevel(int bevel) { return bevel == kBevelPressed ? kBevelRaised : kBevelPressed; }

std::string saveModeTip(int bevel, const std::string& panelText, const std::string& onTag) {
  return bevel == kBevelPressed ? panelText + " " + onTag : panelText;
}

std::string lastFileValue(const std::string& folder, const std::string& selectedFile) {
  return fs::withTrailingSeparator(folder) + selectedFile;
}

LastFilePlan planLastFile(const std::string& lastFile) {
  LastFilePlan plan;
  if (fs::folderExists(lastFile)) {
    plan.kind = LastFilePlan::Kind::Folder;
    plan.folder = lastFile;
    return plan;
  }
  const std::size_t sep = lastFile.find_last_of("\\/");
  if (sep == std::string::npos) return plan;
  std::string parent = lastFile.substr(0, sep);
  if (parent.empty() || (parent.size() == 2 && parent[1] == ':')) parent += fs::kSep;
  if (!fs::folderExists(parent)) return plan;
  plan.kind = LastFilePlan::Kind::FileInFolder;
  plan.folder = parent;
  if (fs::fileExists(lastFile)) plan.fileName = lastFile.substr(sep + 1);
  return plan;
}

}  // namespace korvane
