// The status bar's panels: "excl" (inside or outside the project folder),
// the two save-mode toggles "saveone" and "savesep", "dir" (the current
// folder) and "stat" (the state text).
#pragma once

#include <QAction>
#include <QLabel>
#include <QStatusBar>
#include <QToolButton>

#include "window/session.h"

namespace korvane::window {

class StatusPanels : public QObject {
  Q_OBJECT
 public:
  // Adds the panels to `bar`; `saveOneMenu` and `saveSepMenu` are the menu
  // entries whose check marks follow the save modes.
  StatusPanels(QStatusBar* bar, const WindowSession& session, QAction* saveOneMenu,
               QAction* saveSepMenu);

  void setInsideProject(bool inside);
  void setFolder(const QString& folder);
  void setState(const QString& text);
  QString state() const { return stat_->text(); }

  // Save-mode panels by key ("saveone", "savesep"): the bevel, 1 pressed.
  int bevel(const QString& key) const;
  void setBevel(const QString& key, int bevel);
  // A click on the panel (or its menu entry): pressed and raised swap.
  void toggle(const QString& key);

 private:
  QToolButton* saveButton(const QString& key) const;
  void repaint(const QString& key);

  const WindowSession& session_;
  QLabel* excl_;
  QToolButton* saveOne_;
  QToolButton* saveSep_;
  QLabel* dir_;
  QLabel* stat_;
  QAction* saveOneMenu_;
  QAction* saveSepMenu_;
};

}  // namespace korvane::window
