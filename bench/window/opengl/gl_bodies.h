#pragma once

#include <QOpenGLExtraFunctions>
#include <memory>
#include <vector>

#include "scene/model.h"

namespace vanzet::window {

/// The surfaces of a model in the memory of the graphics card.
///
/// Owns       its buffers
/// Requires   the context of OpenGL in which it was made is current, until its destructor has run
class GlBodies {
 public:
  explicit GlBodies(QOpenGLExtraFunctions& gl) : gl_(gl) {}
  ~GlBodies();
  GlBodies(const GlBodies&) = delete;
  GlBodies& operator=(const GlBodies&) = delete;

  /// Takes another model. Bodies whose surface stays are not uploaded again.
  void Show(std::shared_ptr<const scene::Model> model);

  /// Finds the edges that are drawn because the surface turns away from the eye there.
  void Turn(const scene::Camera& camera);

  // The parts of one body of the model.

  void DrawFacets(const scene::ModelBody& body) const;
  void DrawEdges(const scene::ModelBody& body) const;
  void DrawCuts(const scene::ModelBody& body) const;

  /// Draws points that are not kept: a line through them, or a fan of triangles.
  void Draw(GLenum form, const std::vector<geometry::Point3d>& points) const;

  int uploads() const { return uploads_; }  ///< so many bodies were uploaded so far

 private:
  /// A body; its edges' numbers of points follow those of its facets.
  struct Uploaded {
    GLuint layout = 0, points = 0, numbers = 0, silhouette = 0, cuts = 0, cutLayout = 0;
    GLsizei facetNumbers = 0, edgeNumbers = 0, silhouetteNumbers = 0, cutPoints = 0;
  };

  const Uploaded& Of(const scene::ModelBody& body) const;
  Uploaded Upload(const scene::ModelBody& body);
  void UploadCuts(const scene::ModelBody& body, Uploaded& uploaded) const;
  void SetLayout(GLuint layout, GLuint points, bool hasNormals) const;
  void Free(Uploaded& uploaded) const;

  QOpenGLExtraFunctions& gl_;
  std::shared_ptr<const scene::Model> model_;
  std::vector<Uploaded> uploaded_;  ///< by the places of the bodies in the model
  int uploads_ = 0;
};

}  // namespace vanzet::window
