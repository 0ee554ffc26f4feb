// The window's layout: restored from the settings file at start, written
// back at exit, and the folder panel that slides open and closed.
#include <QGuiApplication>
#include <QScreen>

#include "base/fs.h"
#include "base/profile.h"
#include "shell/window_settings.h"
#include "window/main_window.h"
#include "window/text_edge.h"

namespace korvane::window {
namespace {

int toPixels(int twips) { return twips / kTwipsPerPixel; }
int toTwips(int pixels) { return pixels * kTwipsPerPixel; }

// The designed layout, used where the settings file has nothing readable.
constexpr Geometry kDesigned{600, 600, 12600, 7200};
constexpr int kDesignedWidths[] = {2400, 2400, 2000, 3600};

QRect screenRect() {
  const QScreen* screen = QGuiApplication::primaryScreen();
  return screen ? screen->geometry() : QRect(0, 0, 1024, 768);
}

}  // namespace

int MainWindow::paneTwips(int index) const {
  const QList<int> sizes = splitter_->sizes();
  return index < sizes.size() ? toTwips(sizes[index]) : 0;
}

void MainWindow::restoreLastFile() {
  const LastFilePlan plan =
      planLastFile(ReadProfileString("Position", "LastFile", session_.ctx.settingsPath));
  switch (plan.kind) {
    case LastFilePlan::Kind::Home:
      home();
      return;
    case LastFilePlan::Kind::Folder:
      folderPanel_->setFolder(plan.folder);
      return;
    case LastFilePlan::Kind::FileInFolder:
      folderPanel_->setFolder(plan.folder);
      if (plan.fileName.empty()) return;
      for (int i = inps_->count() - 1; i >= 0; --i) {
        if (toCore(inps_->item(i)->text()) == plan.fileName) {
          inps_->setCurrentRow(i);
          return;
        }
      }
      return;
  }
}

void MainWindow::restoreLayout() {
  const WindowSettings s = readWindowSettings(session_.ctx.settingsPath);
  const QRect screen = screenRect();
  const Geometry g =
      restoredGeometry(s, kDesigned, toTwips(screen.width()), toTwips(screen.height()));
  move(screen.x() + toPixels(g.left), screen.y() + toPixels(g.top));
  resize(toPixels(g.width), toPixels(g.height));

  const std::optional<std::int16_t> widths[] = {s.dirWidth, s.inpWidth, s.subWidth, s.runWidth};
  QList<int> sizes;
  for (int i = 0; i < 4; ++i)
    sizes << std::max(toPixels(widths[i] && *widths[i] > 0 ? *widths[i] : kDesignedWidths[i]), 1);
  // The to-run pane takes what the window leaves; the others keep their widths.
  const int handles = 3 * splitter_->handleWidth() + 12;  // and the central margins
  sizes[3] = std::max(toPixels(g.width) - handles - sizes[0] - sizes[1] - sizes[2], sizes[3] / 4);
  splitter_->resize(sizes[0] + sizes[1] + sizes[2] + sizes[3] + 3 * splitter_->handleWidth(),
                    splitter_->height());
  splitter_->setSizes(sizes);

  if (s.saveOne) panels_->setBevel("saveone", *s.saveOne);
  if (s.saveSeparate) panels_->setBevel("savesep", *s.saveSeparate);

  // The folder panel: hidden when "Dir" says so, shown when it was left collapsed.
  const int dirTwips = toTwips(sizes[0]);
  const bool dir = s.dir.value_or(false);
  rememberedDirTwips_ = dirTwips;
  if (folderPanelToggleAtStart(dirTwips, dir)) {
    folderPanelShown_ = !folderPanelShown_;
    folderPanel_->setVisible(folderPanelShown_);
  }
  action("mnuDir")->setChecked(dir);

  // What is written back while the window has not been shown (batch runs).
  restored_.top = g.top;
  restored_.left = g.left;
  restored_.width = g.width;
  restored_.height = g.height;
  restored_.dirWidth = dirTwips;
  restored_.inpWidth = toTwips(sizes[1]);
  restored_.subWidth = toTwips(sizes[2]);
  restored_.runWidth = toTwips(sizes[3]);
}

void MainWindow::saveSettings() {
  WindowState st = restored_;
  if (shownOnce_) {
    const QRect screen = screenRect();
    st.top = toTwips(y() - screen.y());
    st.left = toTwips(x() - screen.x());
    st.width = toTwips(width());
    st.height = toTwips(height());
    st.dirWidth = folderPanelShown_ ? paneTwips(0) : rememberedDirTwips_;
    st.inpWidth = toTwips(inps_->width());
    st.subWidth = toTwips(subs_->width());
    st.runWidth = toTwips(toRun_->width());
  } else if (!folderPanelShown_) {
    st.dirWidth = rememberedDirTwips_;
  }
  st.dir = folderPanelShown_;
  st.saveOne = panels_->bevel("saveone");
  st.saveSeparate = panels_->bevel("savesep");
  st.lastFile = lastFileValue(folderPanel_->folder(), selectedInput());
  writeWindowSettings(session_.ctx.settingsPath, st);
}

void MainWindow::showEvent(QShowEvent* e) {
  QMainWindow::showEvent(e);
  shownOnce_ = true;
}

void MainWindow::toggleFolderPanel() {
  if (slide_.isActive()) {  // a second click while sliding: finish the first slide
    slideWidths_.clear();
    slideStep();
  }
  folderPanel_->setMinimumWidth(1);  // it passes through narrow widths as it slides
  if (!folderPanelShown_) {
    folderPanelShown_ = true;
    slideOpening_ = true;
    slideWidths_ = slideOpenWidths(rememberedDirTwips_);
    applyFolderPanelWidth(kCollapsedPanelTwips);
    folderPanel_->show();
  } else {
    rememberedDirTwips_ = paneTwips(0);
    folderPanelShown_ = false;
    slideOpening_ = false;
    slideWidths_ = slideClosedWidths(rememberedDirTwips_);
  }
  action("mnuDir")->setChecked(folderPanelShown_);
  writeFolderPanelShown(session_.ctx.settingsPath, folderPanelShown_);
  if (isVisible()) {
    slide_.start();
  } else {
    slideWidths_.clear();
    slideStep();
  }
}

void MainWindow::slideStep() {
  if (!slideWidths_.empty()) {
    applyFolderPanelWidth(slideWidths_.front());
    slideWidths_.erase(slideWidths_.begin());
    return;
  }
  slide_.stop();
  if (slideOpening_) {
    applyFolderPanelWidth(std::max(rememberedDirTwips_, kMinPaneTwips));
  } else {
    folderPanel_->hide();
  }
  folderPanel_->setMinimumWidth(kMinPaneTwips / kTwipsPerPixel);
}

void MainWindow::applyFolderPanelWidth(int twips) {
  QList<int> sizes = splitter_->sizes();
  const int px = std::max(toPixels(twips), 1);
  sizes[3] += sizes[0] - px;
  sizes[0] = px;
  splitter_->setSizes(sizes);
}

}  // namespace korvane::window
