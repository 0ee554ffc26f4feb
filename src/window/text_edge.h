// The window's edge of the core's text: the core keeps Windows-1250 bytes,
// Qt keeps Unicode. Every text that crosses between them passes here.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace korvane::window {

QString fromCore(std::string_view cp1250);
std::string toCore(const QString& text);

}  // namespace korvane::window
