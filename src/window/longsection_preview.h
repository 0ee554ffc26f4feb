// The long-section preview: the SVG picture of a drawn set, fitted into the
// widget with its proportions kept.
#pragma once

#include <QString>
#include <QSvgRenderer>
#include <QWidget>

namespace korvane::window {

class LongsectionPreview : public QWidget {
  Q_OBJECT
 public:
  explicit LongsectionPreview(QWidget* parent = nullptr);
  // Loads an SVG file; false (and an empty picture) when it cannot be read.
  bool load(const QString& svgFile);
  void clear();
  bool hasPicture() const { return renderer_.isValid(); }
  // Shown while there is no picture.
  void setHint(const QString& hint);
  QSize sizeHint() const override { return {640, 360}; }

 protected:
  void paintEvent(QPaintEvent*) override;

 private:
  QSvgRenderer renderer_;
  QString hint_;
};

}  // namespace korvane::window
