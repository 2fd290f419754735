#include "window/opengl/gl_picture.h"

#include <QOpenGLContext>
#include <algorithm>

#include "scene/vectors.h"

namespace vanzet::window {
namespace {

namespace shading = scene::shading;

using geometry::Point3d;
using geometry::Vector3d;
using scene::Drawn;

/// How far anything is from a point.
double RangeOf(const scene::Model& model, const Point3d& from) {
  const geometry::Box3d box = BoxOf(model);
  return Vector3d(from, box.Mid()).Magnitude() + Dist(box.min, box.max) / 2 + 1;
}

/// A rectangle in a plane that contains the plane's part in a box.
std::vector<Point3d> RectangleIn(const scene::Plane& plane, const geometry::Box3d& box) {
  const Point3d middle = box.Mid() + plane.normal * -plane.Height(box.Mid());
  const Vector3d other = std::abs(plane.normal.dx) < 0.9 ? Vector3d(1, 0, 0) : Vector3d(0, 1, 0);
  const double half = Dist(box.min, box.max);
  const Vector3d across = scene::UnitVector(Cross(plane.normal, other)) * half;
  const Vector3d along = Cross(plane.normal, across);
  return {middle + across + along, middle - across + along, middle - across - along, middle + across - along};
}

}  // namespace

GlPicture::GlPicture()
    : gl_(*QOpenGLContext::currentContext()->extraFunctions()), target_(gl_), bodies_(gl_) {}

void GlPicture::SetColour(QOpenGLShaderProgram& program, const char* name, const modeller::Colour& colour,
                          double share) {
  program.setUniformValue(name, static_cast<float>(colour.red), static_cast<float>(colour.green),
                          static_cast<float>(colour.blue), static_cast<float>(share));
}

void GlPicture::Draw(const BodyPicture& picture, int samples) {
  options_ = picture.options;
  const std::vector<Drawn> all = DrawnBodies(*picture.model, options_);
  const auto isThrough = [](const Drawn& drawn) { return drawn.isSeenThrough; };
  target_.Resize(options_.width, options_.height, samples, std::ranges::any_of(all, isThrough));
  target_.Bind(GlTarget::Depth::kSolid);
  Prepare(picture);
  DrawSolid(all);
  for (const Drawn& drawn : all) {
    if (drawn.isSeenThrough) DrawThrough(drawn);
  }
  DrawMarks(*picture.model);
  gl_.glBindVertexArray(0);
  for (const GLenum state :
       std::initializer_list<GLenum>{GL_DEPTH_TEST, GL_STENCIL_TEST, GL_BLEND, GL_CULL_FACE})
    gl_.glDisable(state);
  gl_.glDepthFunc(GL_LESS);
  gl_.glDepthMask(GL_TRUE);
}

void GlPicture::Prepare(const BodyPicture& picture) {
  bodies_.Show(picture.model);
  bodies_.Turn(scene::Camera(picture.look));
  lift_ = picture.look.reach * shading::kLift;
  shaders_.SetCamera(picture.look, RangeOf(*picture.model, picture.look.middle), options_.width,
                     options_.height);
  FindCap(*picture.model, picture.look);
  const modeller::Colour& ground = options_.style.background;
  gl_.glViewport(0, 0, options_.width, options_.height);
  gl_.glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
  gl_.glDepthMask(GL_TRUE);
  gl_.glStencilMask(0xFF);
  gl_.glDisable(GL_SCISSOR_TEST);
  gl_.glClearColor(static_cast<float>(ground.red), static_cast<float>(ground.green),
                   static_cast<float>(ground.blue), 1);
  gl_.glClearDepthf(1);
  gl_.glClearStencil(0);
  gl_.glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT);
  gl_.glEnable(GL_DEPTH_TEST);
  gl_.glDepthFunc(GL_LESS);
  gl_.glDisable(GL_BLEND);
  // The picture stays opaque.
  gl_.glBlendFuncSeparate(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA, GL_ZERO, GL_ONE);
}

void GlPicture::FindCap(const scene::Model& model, const scene::Look& look) {
  cap_.clear();
  if (model.section && scene::Camera(look).SeesFrontOf(*model.section))
    cap_ = RectangleIn(*model.section, BoxOf(model));
}

/// Paints edges over all surfaces that they could be on.
void GlPicture::DrawSolid(const std::vector<Drawn>& all) {
  for (const Drawn& drawn : all) {
    if (drawn.isSeenThrough) continue;
    MarkCap(*drawn.body);
    DrawSurface(drawn, 1);
    DrawCap(drawn, 1);
  }
  for (const Drawn& drawn : all) {
    if (!drawn.isSeenThrough) DrawEdges(drawn);
  }
}

/// The nearest surface of the body alone is mixed over everything else: its depth comes first, into a depth
/// of its own, so that other bodies do not see it.
void GlPicture::DrawThrough(const Drawn& drawn) {
  target_.CopyDepth();
  // Where a raw part and its finished part have a common face, the finished part is seen.
  for (QOpenGLShaderProgram* const program : {&shaders_.surface, &shaders_.cap})
    GlShaders::SetLift(*program, 0, -shading::kCommon);
  MarkCap(*drawn.body);
  gl_.glColorMask(GL_FALSE, GL_FALSE, GL_FALSE, GL_FALSE);
  DrawSurface(drawn, 1);
  DrawCap(drawn, 1);
  gl_.glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
  gl_.glEnable(GL_BLEND);
  gl_.glDepthFunc(GL_EQUAL);
  DrawSurface(drawn, shading::kThrough);
  DrawCap(drawn, shading::kThrough);
  gl_.glDepthFunc(GL_LESS);
  gl_.glDisable(GL_BLEND);
  for (QOpenGLShaderProgram* const program : {&shaders_.surface, &shaders_.cap})
    GlShaders::SetLift(*program, 0, 0);
  target_.Bind(GlTarget::Depth::kSolid);
  DrawEdges(drawn);
}

void GlPicture::DrawSurface(const Drawn& drawn, double share) {
  shaders_.surface.bind();
  SetColour(shaders_.surface, "colour", drawn.colour, share);
  const bool hasHiddenBacks = drawn.body->surface.isClosed;
  if (hasHiddenBacks) gl_.glEnable(GL_CULL_FACE);
  bodies_.DrawFacets(*drawn.body);
  gl_.glDisable(GL_CULL_FACE);
}

/// Counts, for each pixel, the surfaces by which the eye leaves the body less those by which it enters. Where
/// any are left, it looks into the body through its cut face.
void GlPicture::MarkCap(const scene::ModelBody& body) {
  if (cap_.empty()) return;
  gl_.glClear(GL_STENCIL_BUFFER_BIT);
  gl_.glEnable(GL_STENCIL_TEST);
  gl_.glStencilFunc(GL_ALWAYS, 0, 0xFF);
  gl_.glStencilOpSeparate(GL_BACK, GL_KEEP, GL_INCR_WRAP, GL_INCR_WRAP);
  gl_.glStencilOpSeparate(GL_FRONT, GL_KEEP, GL_DECR_WRAP, GL_DECR_WRAP);
  gl_.glColorMask(GL_FALSE, GL_FALSE, GL_FALSE, GL_FALSE);
  gl_.glDepthMask(GL_FALSE);
  shaders_.surface.bind();
  bodies_.DrawFacets(body);
  gl_.glDepthMask(GL_TRUE);
  gl_.glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
  gl_.glDisable(GL_STENCIL_TEST);
}

void GlPicture::DrawCap(const Drawn& drawn, double share) {
  if (cap_.empty()) return;
  const double line = options_.line;
  shaders_.cap.bind();
  SetColour(shaders_.cap, "colour", scene::MixColours(drawn.colour, {1, 1, 1}, shading::kHatchLight), share);
  SetColour(shaders_.cap, "stripe", scene::MixColours(drawn.colour, {0, 0, 0}, shading::kHatchDark), share);
  shaders_.cap.setUniformValue("hatch", static_cast<float>(options_.height),
                               static_cast<float>(shading::kHatch * line),
                               static_cast<float>(shading::kHatchLine * line));
  gl_.glEnable(GL_STENCIL_TEST);
  gl_.glStencilFunc(GL_NOTEQUAL, 0, 0xFF);
  gl_.glStencilOp(GL_KEEP, GL_KEEP, GL_KEEP);
  bodies_.Draw(GL_TRIANGLE_FAN, cap_);
  gl_.glDisable(GL_STENCIL_TEST);
}

void GlPicture::DrawEdges(const Drawn& drawn) {
  GlShaders::SetLift(shaders_.line, lift_, 0);
  SetColour(shaders_.line, "colour", options_.style.ink, drawn.EdgeShare());
  gl_.glLineWidth(static_cast<float>(shading::kEdgeWidth * options_.line));
  gl_.glEnable(GL_BLEND);
  gl_.glDepthMask(GL_FALSE);
  bodies_.DrawEdges(*drawn.body);
  bodies_.DrawCuts(*drawn.body);
  gl_.glDepthMask(GL_TRUE);
  gl_.glDisable(GL_BLEND);
}

void GlPicture::DrawMarks(const scene::Model& model) {
  GlShaders::SetLift(shaders_.line, lift_, 0);
  SetColour(shaders_.line, "colour", options_.style.mark, 1);
  gl_.glLineWidth(static_cast<float>(shading::kMarkWidth * options_.line));
  for (const scene::Mark& mark : model.marks) bodies_.Draw(GL_LINE_STRIP, mark.points);
}

}  // namespace vanzet::window
