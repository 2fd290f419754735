#pragma once

#include <QVariantMap>

#include "scene/equipment.h"

namespace vanzet::window {

/// The equipment with the values that the page in front of the module's dialog holds, stored or not.
///
///   values  the property "page" of the dialog's window: docs/view.md
scene::Equipment WithPage(scene::Equipment equipment, const QVariantMap& values);

}  // namespace vanzet::window
