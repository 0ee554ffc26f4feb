// The variables viewer: what the last run left in the variable table, one
// "name=value" a line, and on its second page the run's log (trapped
// function failures and the engine's messages). Never smaller than
// 3000 by 3000 twips.
#pragma once

#include <QListWidget>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <QWidget>
#include <string>
#include <vector>

#include "window/session.h"

namespace korvane::window {

class VariablesViewer : public QWidget {
  Q_OBJECT
 public:
  VariablesViewer(const WindowSession& session, QWidget* parent);

  // Fills both pages: the table's items (temporaries left out) and the log.
  void fill(const std::vector<std::string>& variableItems, const std::string& logText);

  QListWidget* variables() const { return lstVars_; }
  QPlainTextEdit* logText() const { return txtChai_; }
  QTabWidget* tabs() const { return tbsLook_; }

 private:
  QTabWidget* tbsLook_;
  QListWidget* lstVars_;
  QPlainTextEdit* txtChai_;
};

}  // namespace korvane::window
