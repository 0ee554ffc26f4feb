// The long-section panel (LongDraw): the parameters of a long-section set,
// its panel files, Generate and the preview.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QWidget>
#include <functional>
#include <string>

#include "longsection/parameters.h"
#include "window/longsection_preview.h"
#include "window/session.h"

namespace korvane::window {

class LongsectionPanel : public QWidget {
  Q_OBJECT
 public:
  // `toRun`: puts a run entry on the main window's to-run list, and runs the
  // list at once when the second argument is true.
  LongsectionPanel(WindowSession& session, std::function<void(const std::string&, bool)> toRun,
                   QWidget* parent = nullptr);

  // Commands.
  void newSet();
  bool openSet(const std::string& path);  // false when there is no such file
  void openDialog();
  bool save();
  bool saveAs();
  bool generate();  // checks, saves, writes the input and the drawing parameter file
  bool preview();   // generates and draws the set without AutoCAD

  longsection::Parameters parameters() const;
  void setParameters(const longsection::Parameters& p);
  const std::string& panelFile() const { return file_; }
  // The last check's messages, one a line; empty when the set could be drawn.
  QString problems() const { return problems_->text(); }
  LongsectionPreview* previewWidget() const { return preview_; }

 private:
  void build();
  void fillFiles();
  void fillStrings();
  void sizeChanged();
  void setFile(const std::string& path);
  bool check();
  QString text(MessageKey key) const;

  WindowSession& session_;
  std::function<void(const std::string&, bool)> toRun_;
  std::string file_;
  std::string input_;  // the input written by the last Generate
  QListWidget* files_ = nullptr;
  QLineEdit* model_ = nullptr;
  QComboBox *master_ = nullptr, *ground_ = nullptr, *design_ = nullptr;
  QTableWidget* extras_ = nullptr;
  QLineEdit *hscale_ = nullptr, *vscale_ = nullptr;
  QComboBox *size_ = nullptr, *orientation_ = nullptr;
  QLineEdit *width_ = nullptr, *height_ = nullptr;
  QLineEdit *left_ = nullptr, *right_ = nullptr, *top_ = nullptr, *bottom_ = nullptr;
  QLineEdit *start_ = nullptr, *end_ = nullptr, *interval_ = nullptr, *datum_ = nullptr;
  QCheckBox* gradeColumns_ = nullptr;
  QLineEdit *textHeight_ = nullptr, *groundType_ = nullptr, *designType_ = nullptr;
  QRadioButton *putOnList_ = nullptr, *runNow_ = nullptr;
  QLabel* problems_ = nullptr;
  QLabel* info_ = nullptr;
  LongsectionPreview* preview_ = nullptr;
};

}  // namespace korvane::window
