#pragma once

#include <QString>
#include <optional>

class QWidget;

/// The list of files with own devices, with their outlines and kinds.
namespace vanzet::view::qt {

/// Has the user choose a file: those that were used last come first, then all others in their folders, in
/// that of `current` and in the current folder. Returns its path, or nothing when the list was dismissed.
std::optional<QString> ChooseOwnDevice(const QString& current, QWidget* parent);

/// Puts the file of an own device in front of those that were used last. A path without a file is ignored.
void RememberOwnDevice(const QString& path);

}  // namespace vanzet::view::qt
