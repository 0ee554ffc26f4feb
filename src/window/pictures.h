// The program's own pictures (tool bar, status bar, buttons, application
// icon), drawn as SVG so that they stay sharp at any display scaling.
#pragma once

#include <QIcon>
#include <QPixmap>

namespace korvane::window {

// The picture of a key ("run", "saveone", "saveonebw", "proj", ...).
QIcon picture(const QString& key);
// The picture as a pixmap of `size` logical pixels for a widget's scaling.
QPixmap picturePixmap(const QString& key, int size, qreal devicePixelRatio);

}  // namespace korvane::window
