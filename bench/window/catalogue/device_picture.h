#pragma once

#include <QPalette>
#include <QPixmap>
#include <QString>

#include "devices/kinds.h"

/// Devices as the window shows them: their outlines in the colours of its palette, and words.
namespace vanzet::window {

class Texts;

/// The outline of a device, without its measures; empty for one whose values make none.
QPixmap ThumbnailOf(const DeviceParams& params, const QSize& size, const QPalette& palette, qreal pixelRatio);

/// A picture for white paper, with its colours changed to those of a palette.
QString InColoursOf(const QPalette& palette, const std::string& svg);

/// "Jaw".
QString NameOfKind(const Texts& texts, const devices::Kind& kind);

/// "Jaw 3": the kind, and the shape where the kind has several; "Chuck, own solid".
QString KindTextOf(const Texts& texts, std::int32_t type);

}  // namespace vanzet::window
