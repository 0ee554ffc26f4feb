// The main window: the folder panel, the inputs list "inps", the sections
// list "subs", the Pick buttons and the to-run list "ToRun" in one row of
// panes with three splitters; the menus, the tool bar and the status bar.
// Commands are public so that the tool bar, the menus and the tests reach
// the same code.
#pragma once

#include <QLabel>
#include <QListWidget>
#include <QMainWindow>
#include <QMap>
#include <QPushButton>
#include <QSplitter>
#include <QTimer>
#include <string>
#include <vector>

#include "shell/to_run_list.h"
#include "shell/window_settings.h"
#include "window/folder_panel.h"
#include "window/run_controller.h"
#include "window/session.h"
#include "window/status_panels.h"
#include "window/variables_viewer.h"

namespace korvane::window {

class LongsectionPanel;

class MainWindow : public QMainWindow {
  Q_OBJECT
 public:
  // `batch`: the window is never shown; messages go to a box only where a
  // screen is available, else to standard error.
  MainWindow(WindowSession& session, bool batch);
  ~MainWindow() override;

  // Batch start: runs the one entry as the only to-run entry and returns the
  // exit status (0 ran to the end, 1 stopped).
  int runBatch(const std::string& entry);

  // Commands.
  void pick();
  void pickAll();
  void moveUp();
  void moveDown();
  void deleteSelected();
  void deleteAll();
  void copyAll();
  void editInput();
  void home();
  void refresh();
  void toggleFolderPanel();
  void run();
  void stopRun();
  void showLists();
  void showHelp();
  void showLongDraw();
  void showAbout();
  void updateFileMenu();
  void updateInpsPopup();
  // Back to idle after start-up and after every run.
  void idleReset();
  // Writes the [Position] keys as at exit.
  void saveSettings();

  // State for the status bar, the run and the tests.
  bool running() const { return runner_->running(); }
  bool folderPanelShown() const { return folderPanelShown_; }
  bool sliding() const { return slide_.isActive(); }
  std::string fileListPath() const { return folderPanel_->folder(); }
  std::string selectedInput() const;
  QAction* action(const QString& name) const { return actions_.value(name); }
  StatusPanels* statusPanels() const { return panels_; }
  VariablesViewer* viewer() const { return viewer_; }
  LongsectionPanel* longsectionPanel() const { return longsection_; }
  QSplitter* splitter() const { return splitter_; }
  FolderPanel* folderPanel() const { return folderPanel_; }

 protected:
  void closeEvent(QCloseEvent* e) override;
  void showEvent(QShowEvent* e) override;
  bool eventFilter(QObject* watched, QEvent* e) override;

 private:
  void buildActions();
  void buildMenus();
  void buildPanes();
  void labelControls();
  void restoreLastFile();
  void restoreLayout();
  void applyFolderPanelWidth(int twips);
  int paneTwips(int index) const;

  void onFolderChanged();
  void fileListPathChanged();
  void loadSections();
  void focusInputs();
  ToRunList toRunState() const;
  void setToRunState(const ToRunList& list);
  void onEntryShown(int index);
  void onRunFinished();
  void setRunning(bool running);
  void warn(const QString& title, const QString& text);
  void slideStep();
  void onSplitterMoved(int index);

  WindowSession& session_;
  const bool batch_;
  QMap<QString, QAction*> actions_;
  QMenu* fileMenu_ = nullptr;
  QMenu* inpsPopup_ = nullptr;
  QMenu* toRunPopup_ = nullptr;
  QSplitter* splitter_ = nullptr;
  FolderPanel* folderPanel_ = nullptr;
  QLabel* inpsLabel_ = nullptr;
  QLabel* subsLabel_ = nullptr;
  QLabel* toRunLabel_ = nullptr;
  QListWidget* inps_ = nullptr;
  QListWidget* subs_ = nullptr;
  QListWidget* toRun_ = nullptr;
  LongsectionPanel* longsection_ = nullptr;  // made when LongDraw first opens it
  QPushButton* pick_ = nullptr;
  QPushButton* pickAll_ = nullptr;
  QPushButton* up_ = nullptr;
  QPushButton* down_ = nullptr;
  StatusPanels* panels_ = nullptr;
  VariablesViewer* viewer_ = nullptr;
  RunController* runner_ = nullptr;

  bool folderPanelShown_ = true;
  int rememberedDirTwips_ = 0;  // the folder panel's width while it is hidden
  QTimer slide_;
  std::vector<int> slideWidths_;
  bool slideOpening_ = false;
  bool holdStatus_ = false;  // a stopped entry's status stays until the box is closed
  bool closePending_ = false;
  bool showBoxes_ = true;
  bool shownOnce_ = false;
  QList<int> acceptedSizes_;  // the panes' widths after the last accepted splitter move
  WindowState restored_;      // the layout as restored, kept until the window is shown
};

}  // namespace korvane::window
