#pragma once

#include <QString>
#include <concepts>
#include <filesystem>
#include <string>
#include <string_view>

namespace vanzet::window {

/// Texts of the workbench are UTF-8; other bytes become U+FFFD.
inline QString ToQString(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
template <class Path>
requires std::same_as<Path, std::filesystem::path>  // not what converts to a path
    QString ToQString(const Path& path) {
  return ToQString(std::string_view(path.string()));
}
inline std::filesystem::path ToPath(const QString& text) {
  return text.toStdString();
}

}  // namespace vanzet::window
