#include "window/longsection_preview.h"

#include <QPainter>

namespace korvane::window {

LongsectionPreview::LongsectionPreview(QWidget* parent) : QWidget(parent) {
  setObjectName("longsectionPreview");
  setMinimumSize(320, 200);
}

bool LongsectionPreview::load(const QString& svgFile) {
  const bool ok = renderer_.load(svgFile);
  if (!ok) renderer_.load(QByteArray());
  update();
  return ok;
}

void LongsectionPreview::clear() {
  renderer_.load(QByteArray());
  update();
}

void LongsectionPreview::setHint(const QString& hint) {
  hint_ = hint;
  update();
}

void LongsectionPreview::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.fillRect(rect(), QColor(0xe8, 0xe8, 0xe8));
  if (!renderer_.isValid()) {
    p.setPen(palette().color(QPalette::WindowText));
    p.drawText(rect().adjusted(12, 12, -12, -12), Qt::AlignCenter | Qt::TextWordWrap, hint_);
    return;
  }
  // Fit the picture, proportions kept, centred with a small border.
  const QSizeF size = renderer_.viewBoxF().size();
  const QRectF room = QRectF(rect()).adjusted(8, 8, -8, -8);
  const double scale = std::min(room.width() / size.width(), room.height() / size.height());
  const QSizeF shown = size * scale;
  const QRectF target(room.center().x() - shown.width() / 2, room.center().y() - shown.height() / 2,
                      shown.width(), shown.height());
  p.setRenderHint(QPainter::Antialiasing);
  renderer_.render(&p, target);
}

}  // namespace korvane::window
