#pragma once

#include <QString>

#include "base/result.h"
#include "window/views/body_canvas.h"

namespace vanzet::window {

/// Who draws the bodies of the equipment view.
struct PainterChoice {
  bool usesOpenGl = false;
  QString renderer;  ///< of OpenGL, by its own name; empty where there is none
};

/// Tries OpenGL. The variable VANZET_PAINTER, "opengl" or "software", decides where it is set; else a
/// graphics card is used where there is one, and the painter where OpenGL would draw by the processor, too.
/// Errors   VANZET_PAINTER has another word, or asks for OpenGL where there is none
/// Requires an application of Qt
Result<PainterChoice> ChoosePainter();

/// A canvas by OpenGL.
BodyCanvas* MakeGlCanvas(CanvasSource source, QWidget* parent);

}  // namespace vanzet::window
