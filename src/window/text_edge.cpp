#include "window/text_edge.h"

#include "base/codepage.h"

namespace korvane::window {

QString fromCore(std::string_view cp1250) { return QString::fromStdString(cp::toUtf8(cp1250)); }

std::string toCore(const QString& text) { return cp::fromUtf8(text.toStdString()); }

}  // namespace korvane::window
