#pragma once

#include <QString>
#include <optional>
#include <string>
#include <vector>

#include "view/dialog_state.h"

class QWidget;

/// The list of devices with their outlines, kinds and values, to be searched by any word of them.
namespace vanzet::view::qt {

/// Has the user choose one of the devices. Those that were used last come first. Returns the index in
/// `names`, or nothing when the list was dismissed.
/// Requires: a device for each name.
std::optional<int> ChooseDevice(const std::vector<std::string>& names,
                                const std::vector<ListedDevice>& devices, QWidget* parent);

/// Puts a name in front of those that were used last. They are kept in the user's settings.
void RememberDevice(const QString& name);

}  // namespace vanzet::view::qt
