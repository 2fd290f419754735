#pragma once

#include <QString>
#include <concepts>
#include <filesystem>
#include <string>
#include <string_view>

namespace vanzet::window {

/// Texts of the workbench are UTF-8; bytes that are none become U+FFFD.
inline QString Shown(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
template <class Path>
requires std::same_as<Path, std::filesystem::path>  // not what could be turned into one
    QString Shown(const Path& path) {
  return Shown(std::string_view(path.string()));
}
inline std::filesystem::path PathOf(const QString& text) {
  return text.toStdString();
}

}  // namespace vanzet::window
