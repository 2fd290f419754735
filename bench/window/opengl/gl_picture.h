#pragma once

#include <QOpenGLExtraFunctions>
#include <memory>

#include "scene/shading.h"
#include "window/opengl/gl_bodies.h"
#include "window/opengl/gl_shaders.h"
#include "window/opengl/gl_target.h"
#include "window/views/body_canvas.h"

namespace vanzet::window {

/// Draws bodies by OpenGL as the painter draws them: the same colours, edges and sections, in the same order.
///
/// Requires   the context of OpenGL in which it was made is current, until its destructor has run
class GlPicture {
 public:
  GlPicture();

  /// The graphics card takes our shaders.
  bool IsUsable() const { return shaders_.isLinked(); }

  /// Draws into memory of the graphics card, with so many samples of a pixel (0: one). The model is not null.
  void Draw(const BodyPicture& picture, int samples);

  /// Copies what was drawn last to a frame of the same size.
  void CopyTo(GLuint frame) { target_.CopyTo(frame); }

  int uploads() const { return bodies_.uploads(); }  ///< so many bodies were uploaded so far

 private:
  void Prepare(const BodyPicture& picture);
  void DrawSolid(const std::vector<scene::Drawn>& all);
  void DrawThrough(const scene::Drawn& drawn);
  void DrawSurface(const scene::Drawn& drawn, double share);
  void DrawCap(const scene::Drawn& drawn, double share);
  void DrawEdges(const scene::Drawn& drawn);
  void DrawMarks(const scene::Model& model);
  void FindCap(const scene::Model& model, const scene::Look& look);
  void MarkCap(const scene::ModelBody& body);
  static void SetColour(QOpenGLShaderProgram& program, const char* name, const modeller::Colour& colour,
                        double share);

  QOpenGLExtraFunctions& gl_;
  GlShaders shaders_;
  GlTarget target_;
  GlBodies bodies_;
  scene::DrawOptions options_ = {};
  double lift_ = 0;
  std::vector<geometry::Point3d> cap_;  ///< a rectangle in the plane of the section, where it is seen
};

}  // namespace vanzet::window
