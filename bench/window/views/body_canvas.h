#pragma once

#include <QWidget>
#include <functional>
#include <memory>

#include "scene/picture.h"

class QPainter;

namespace vanzet::window {

/// The bodies that a canvas draws, in pixels of the screen.
struct BodyPicture {
  std::shared_ptr<const scene::Model> model;  ///< null: nothing but the overlay
  scene::Look look;
  scene::DrawOptions options;
  std::shared_ptr<const scene::Model> coarse = {};  ///< for a picture that is seen for a moment; null: none
};

/// Where a canvas gets what it draws.
struct CanvasSource {
  std::function<BodyPicture()> picture;
  std::function<void(QPainter&)> overlay;  ///< over the bodies, in the widget's coordinates
};

/// Draws bodies into a widget: by the painter, which needs nothing but a processor, or by OpenGL. It takes no
/// events of the mouse: they are those of the widget that it is in.
class BodyCanvas {
 public:
  virtual ~BodyCanvas() = default;

  /// The widget that shows the bodies; it owns the canvas.
  virtual QWidget& widget() = 0;

  /// The source has another picture. A change of the overlay alone takes only `widget().update()`.
  virtual void Invalidate() = 0;

  /// The picture has no steps at its edges: it is what stays while nothing moves.
  virtual bool isSmooth() const = 0;
};

/// A canvas by the painter.
///
/// Pictures   a quick one at once, coarser when the last one took long; a smooth one follows from another
///            thread when nothing has moved for a moment
BodyCanvas* MakePainterCanvas(CanvasSource source, QWidget* parent);

/// The same look at a picture that is `factor` times as large.
scene::Look ScaleLook(scene::Look look, double factor);

}  // namespace vanzet::window
