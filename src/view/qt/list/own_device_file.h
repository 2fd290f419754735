#pragma once

#include <QPolygonF>
#include <QString>
#include <optional>

namespace vanzet::view::qt {

/// The facts of a file with an own device that a list shows.
struct OwnDeviceFile {
  int deviceClass = 0;  ///< 0 a clamp device, 1 a jaw, 3 a center
  QPolygonF outline;    ///< chords, x along the axis, y up; empty for a file without one
};

/// Reads the file as far as a list needs it. Nothing when the file cannot be read or holds no own device;
/// whether it can be used says the dialog.
///
/// Source   docs/formats/vdm.md, and docs/formats/definition.md, "Own devices"
std::optional<OwnDeviceFile> ReadOwnDeviceFile(const QString& path);

}  // namespace vanzet::view::qt
