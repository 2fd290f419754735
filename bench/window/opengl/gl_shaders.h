#pragma once

#include <QOpenGLShaderProgram>
#include <memory>

#include "scene/look.h"

namespace vanzet::window {

/// The programs that run on the graphics card. All have the same corners: a place in space (0), and a normal
/// (1) that only `surface` looks at.
///
/// Requires: the context of OpenGL in which they were made is current
class GlShaders {
 public:
  /// The texts of the shaders are our own: a context that takes OpenGL 3.3 or ES 3.0 compiles them.
  GlShaders();

  QOpenGLShaderProgram surface;  ///< lit, by the rules of the painter
  QOpenGLShaderProgram line;     ///< one colour
  QOpenGLShaderProgram cap;      ///< the hatched face of a section

  bool isLinked() const { return isLinked_; }

  /// Sets the camera for all programs. `range` is how far from the middle of the look anything is.
  void SetCamera(const scene::Look& look, double range, int width, int height);

  /// Moves what is drawn towards the eye, by a way in space or by a nearness in the picture.
  static void SetLift(QOpenGLShaderProgram& program, double way, double nearness);

 private:
  static void SetCamera(QOpenGLShaderProgram& program, const scene::Look& look, double range, int width,
                        int height);

  bool isLinked_ = false;
};

}  // namespace vanzet::window
