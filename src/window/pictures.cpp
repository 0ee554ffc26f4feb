#include "window/pictures.h"

// The pictures live in a static library: their resource is registered on
// first use, so that the linker keeps it.
static void registerPictures() { Q_INIT_RESOURCE(pictures); }

namespace korvane::window {

QIcon picture(const QString& key) {
  static const bool registered = (registerPictures(), true);
  (void)registered;
  return QIcon(":/pictures/" + key + ".svg");
}

QPixmap picturePixmap(const QString& key, int size, qreal devicePixelRatio) {
  return picture(key).pixmap(QSize(size, size), devicePixelRatio);
}

}  // namespace korvane::window
