// The main window's layout and state as the settings file keeps them under
// [Position]: positions and widths in twips, read as 16-bit signed integers,
// the folder panel's state, the two save modes and the last input file.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace korvane {

// Twips per device-independent pixel (1440 to the inch at 96 pixels to the inch).
constexpr int kTwipsPerPixel = 15;
// No list of the row of panes is made narrower than this by a splitter.
constexpr int kMinPaneTwips = 750;
// Width of the collapsed folder panel, and the steps in which it slides.
constexpr int kCollapsedPanelTwips = 150;
constexpr int kSlideStepTwips = 120;
// The variables viewer is never smaller than this either way.
constexpr int kViewerMinTwips = 3000;

// Save-mode panel states: pressed (the mode is on) and raised.
constexpr int kBevelPressed = 1;
constexpr int kBevelRaised = 2;

// What [Position] holds; a value that is missing or does not read as a 16-bit
// integer is empty, and leaves the window's own value as it is.
struct WindowSettings {
  std::optional<bool> dir;
  std::optional<std::int16_t> top, left, width, height;
  std::optional<std::int16_t> dirWidth, inpWidth, subWidth, runWidth;
  std::optional<int> saveOne, saveSeparate;  // bevels
  std::string lastFile;
};

WindowSettings readWindowSettings(const std::string& settingsFile);

// What the window writes at exit (and before every run), in twips.
struct WindowState {
  int top = 0, left = 0, width = 0, height = 0;
  bool dir = true;
  int dirWidth = 0, inpWidth = 0, subWidth = 0, runWidth = 0;
  int saveOne = kBevelRaised, saveSeparate = kBevelRaised;
  std::string lastFile;
};

// Writes every [Position] key, one at a time in the order the window has
// always written them. False when the file could not be written.
bool writeWindowSettings(const std::string& settingsFile, const WindowState& state);
// The folder panel's state, written at once when it is toggled.
bool writeFolderPanelShown(const std::string& settingsFile, bool shown);

struct Geometry {
  int top = 0, left = 0, width = 0, height = 0;  // twips
};
// The window's geometry from the settings, kept on a screen of the given size:
// a top or left outside the screen becomes 0, a size larger than the screen
// is cut to it, and the window is moved back so that it fits. Missing values
// keep `designed`.
Geometry restoredGeometry(const WindowSettings& s, Geometry designed, int screenWidth,
                          int screenHeight);

// Whether start-up toggles the folder panel to match "Dir": a list wider than
// the collapsed width with "Dir" false, or exactly collapsed with "Dir" true.
bool folderPanelToggleAtStart(int folderListTwips, bool dir);

// The widths the folder panel passes through when it slides open (up to the
// remembered width) and closed (down to the collapsed width).
std::vector<int> slideOpenWidths(int rememberedTwips);
std::vector<int> slideClosedWidths(int currentTwips);

// A save-mode panel's state after a click: pressed and raised swap.
int toggledBevel(int bevel);
// Its tool tip: the panel's text, followed by the "on" tag while it is pressed.
std::string saveModeTip(int bevel, const std::string& panelText, const std::string& onTag);

// "LastFile" as the window writes it: the folder, a separator and the
// selected file (nothing after the separator when none is selected).
std::string lastFileValue(const std::string& folder, const std::string& selectedFile);

// Where start-up goes with a "LastFile" value.
struct LastFilePlan {
  enum class Kind { Folder, FileInFolder, Home } kind = Kind::Home;
  std::string folder;    // Folder, FileInFolder
  std::string fileName;  // FileInFolder: the name to select, empty when the file is gone
};
LastFilePlan planLastFile(const std::string& lastFile);

}  // namespace korvane
