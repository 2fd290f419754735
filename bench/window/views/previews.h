#pragma once

#include <QImage>
#include <QPalette>
#include <QPixmap>
#include <vector>

#include "geometry/box.h"
#include "geometry/kurve.h"
#include "scene/model.h"

/// Small pictures of contours and bodies, for lists.
namespace vanzet::window {

inline constexpr QSize kPreviewSize = {96, 60};  ///< in pixels of a usual screen

/// The extents of contours; cleared for none.
geometry::Box BoxOf(const std::vector<geometry::Kurve>& contours);

/// The outlines of contours; empty for contours without an extent.
QPixmap PreviewOf(const std::vector<geometry::Kurve>& contours, const QPalette& palette, qreal pixelRatio);

/// The picture of a model from its usual side. Any thread may draw.
QImage PreviewOf(const scene::Model& model, const QColor& background, qreal pixelRatio);

}  // namespace vanzet::window
