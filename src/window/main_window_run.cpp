// Run, its status and stop message, the small commands and exit.
#include <QCloseEvent>
#include <QDesktopServices>
#include <QEventLoop>
#include <QGuiApplication>
#include <QMessageBox>
#include <QUrl>
#include <iostream>

#include "base/fs.h"
#include "base/texts/menu_texts.h"
#include "base/texts/messages_texts.h"
#include "base/texts/status_bar_texts.h"
#include "base/texts/window_texts.h"
#include "shell/help_viewer.h"
#include "window/longsection_panel.h"
#include "window/main_window.h"
#include "window/pictures.h"
#include "window/text_edge.h"

#ifndef KORVANE_VERSION
#define KORVANE_VERSION ""
#endif

namespace korvane::window {

void MainWindow::run() {
  if (running()) return;
  if (!batch_) inps_->setFocus();
  if (toRun_->count() == 0) return;
  session_.log.clear();
  saveSettings();  // a crash during the run loses nothing
  toRun_->clearSelection();
  const ToRunList list = toRunState();
  RunSettings settings = readRunSettings(session_.ctx.settingsPath);
  settings.saveOne = panels_->bevel("saveone") == kBevelPressed;
  settings.saveSeparate = panels_->bevel("savesep") == kBevelPressed;
  holdStatus_ = false;
  setRunning(true);
  runner_->start(list.entries, settings);
}

void MainWindow::stopRun() {
  if (running()) runner_->interrupt();
}

void MainWindow::onEntryShown(int index) {
  if (QListWidgetItem* item = toRun_->item(index)) {
    item->setSelected(true);
    toRun_->setCurrentRow(index, QItemSelectionModel::NoUpdate);
    toRun_->scrollToItem(item);
  }
}

void MainWindow::onRunFinished() {
  const RunOutcome& outcome = runner_->outcome();
  if (outcome.stopped) session_.log.add(outcome.shown);
  if (outcome.stopped && !closePending_) {
    if (!batch_) {
      raise();
      activateWindow();
    }
    warn(session_.text(texts::messages::kRunStopped), fromCore(outcome.message));
  }
  setRunning(false);
  idleReset();
  if (closePending_) close();
}

void MainWindow::idleReset() {
  if (!running()) viewer_->fill(session_.ctx.vars.viewerItems(), session_.log.text());
  if (inps_->count() > 0 && inps_->selectedItems().isEmpty()) inps_->setCurrentRow(0);
  if (!batch_) focusInputs();
  holdStatus_ = false;
  panels_->setState(session_.text(texts::status_bar::kReady));
}

int MainWindow::runBatch(const std::string& entry) {
  // Without a screen nobody could close a box: messages go to standard error.
  const QString platform = QGuiApplication::platformName();
  showBoxes_ = platform != "offscreen" && platform != "minimal";
  runner_->setAskUser(showBoxes_);
  toRun_->clear();
  toRun_->addItem(fromCore(entry));
  QEventLoop loop;
  connect(runner_, &RunController::finished, &loop, &QEventLoop::quit);
  run();
  if (running()) loop.exec();
  const int status = runner_->outcome().stopped ? 1 : 0;
  close();
  return status;
}

void MainWindow::warn(const QString& title, const QString& text) {
  if (!showBoxes_) {
    std::cerr << text.toStdString() << std::endl;
    return;
  }
  QMessageBox box(QMessageBox::Warning, title, text, QMessageBox::Ok, this);
  box.setObjectName("messageBox");
  box.setWindowFlag(Qt::WindowStaysOnTopHint);  // in front, whatever has the focus
  box.exec();
}

void MainWindow::showLists() {
  if (!running()) viewer_->fill(session_.ctx.vars.viewerItems(), session_.log.text());
  viewer_->show();
  viewer_->raise();
  viewer_->activateWindow();
}

void MainWindow::showHelp() {
  const std::string help = session_.helpFile();
  const bool ok =
      fs::fileExists(help) && (showHelpFile(help) ||  // Windows' HTML help viewer
                               QDesktopServices::openUrl(QUrl::fromLocalFile(
                                   QString::fromStdU16String(fs::native(help).u16string()))));
  if (!ok)
    warn(session_.text(texts::menu::kHelpContents),
         session_.format(texts::window::kNoHelp, fromCore(help)));
}

void MainWindow::showLongDraw() {
  if (!longsection_) {
    longsection_ = new LongsectionPanel(
        session_,
        [this](const std::string& input, bool runNow) {
          toRun_->addItem(fromCore(input));
          if (runNow) run();
        },
        this);
  }
  longsection_->show();
  longsection_->raise();
  longsection_->activateWindow();
}

void MainWindow::showAbout() {
  QMessageBox box(this);
  box.setObjectName("aboutBox");
  box.setWindowTitle(session_.text(texts::menu::kAbout));
  box.setIconPixmap(picturePixmap("korvane", 64, devicePixelRatioF()));
  box.setTextFormat(Qt::PlainText);
  box.setText("Korvane");
  box.setInformativeText(
      session_.text(texts::window::kAbout) + "\n\n" +
      session_.format(texts::window::kVersion, KORVANE_VERSION) + "\n" +
      session_.format(texts::window::kProject, fromCore(session_.ctx.projectFolder)) + "\n" +
      session_.format(texts::window::kSettings, fromCore(session_.paths().settings)));
  box.exec();
}

void MainWindow::closeEvent(QCloseEvent* e) {
  if (running()) {
    // Closing in the middle of a run: stop it at its next line, then close.
    closePending_ = true;
    runner_->interrupt();
    e->ignore();
    return;
  }
  saveSettings();
  viewer_->close();
  e->accept();
}

}  // namespace korvane::window
