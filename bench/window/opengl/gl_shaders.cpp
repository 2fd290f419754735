#include "window/opengl/gl_shaders.h"

#include <QMatrix3x3>
#include <QOpenGLContext>
#include <QVector2D>
#include <QVector3D>
#include <algorithm>

#include "scene/shading.h"

namespace vanzet::window {
namespace {

namespace shading = scene::shading;

// The camera of scene/camera.h. Depth is linear in the nearness of a point, as it is in the painter.
constexpr const char* kCorner = R"(
layout(location = 0) in vec3 place;
layout(location = 1) in vec3 normal;
uniform mat3 toPicture;
uniform vec3 middle;
uniform float eye;       // its distance; 0: parallel projection
uniform vec2 shift, scale;
uniform vec3 depth;      // of w, of the reach over w, of a nearness
uniform vec2 lift;       // a way, a nearness
out vec3 seen;
void main() {
  vec3 p = toPicture * (place - middle);
  vec3 toEye = eye > 0.0 ? normalize(vec3(0.0, 0.0, eye) - p) : vec3(0.0, 0.0, 1.0);
  p += toEye * lift.x;
  float w = eye > 0.0 ? (eye - p.z) / eye : 1.0;
  float nearness = eye > 0.0 ? depth.y : p.z;
  gl_Position = vec4(shift * w + scale * p.xy, depth.x * w - depth.z * (nearness + lift.y * w), w);
  seen = toPicture * normal;
}
)";

constexpr const char* kSurface = R"(
in vec3 seen;
uniform vec4 colour;
uniform vec3 key, fill, shine;
uniform vec4 lights;     // ambient, key, fill, gloss
uniform float glossPower;
out vec4 painted;
void main() {
  vec3 n = normalize(seen);
  if (n.z < 0.0) n = -n;
  float light = lights.x + lights.y * max(0.0, dot(n, key)) + lights.z * max(0.0, dot(n, fill));
  float gloss = lights.w * pow(max(0.0, dot(n, shine)), glossPower);
  painted = vec4(clamp(colour.rgb * light + gloss, 0.0, 1.0), colour.a);
}
)";

constexpr const char* kLine = R"(
in vec3 seen;
uniform vec4 colour;
out vec4 painted;
void main() { painted = colour; }
)";

constexpr const char* kCap = R"(
in vec3 seen;
uniform vec4 colour, stripe;
uniform vec3 hatch;      // the height of the picture, the distance of lines, their width
out vec4 painted;
void main() {
  float across = gl_FragCoord.x + hatch.x - gl_FragCoord.y;
  painted = mod(across, hatch.y) < hatch.z ? stripe : colour;
}
)";

QVector3D ToQt(const geometry::Vector3d& v) {
  return {static_cast<float>(v.dx), static_cast<float>(v.dy), static_cast<float>(v.dz)};
}

bool Link(QOpenGLShaderProgram& program, const char* fragment) {
  const bool isEs = QOpenGLContext::currentContext()->isOpenGLES();
  const QByteArray head = isEs ? "#version 300 es\nprecision highp float;\n" : "#version 330 core\n";
  return program.addShaderFromSourceCode(QOpenGLShader::Vertex, head + kCorner) &&
         program.addShaderFromSourceCode(QOpenGLShader::Fragment, head + fragment) && program.link();
}

}  // namespace

GlShaders::GlShaders() {
  isLinked_ = Link(surface, kSurface) && Link(line, kLine) && Link(cap, kCap);
  if (!isLinked_) return;
  surface.bind();
  surface.setUniformValue("key", ToQt(shading::kKey));
  surface.setUniformValue("fill", ToQt(shading::kFill));
  surface.setUniformValue("shine", ToQt(shading::kShine));
  surface.setUniformValue("lights", static_cast<float>(shading::kAmbient),
                          static_cast<float>(shading::kKeyShare), static_cast<float>(shading::kFillShare),
                          static_cast<float>(shading::kGloss));
  surface.setUniformValue("glossPower", float{shading::kGlossPower});
}

void GlShaders::SetCamera(const scene::Look& look, double range, int width, int height) {
  for (QOpenGLShaderProgram* const program : {&surface, &line, &cap})
    SetCamera(*program, look, range, width, height);
}

void GlShaders::SetCamera(QOpenGLShaderProgram& program, const scene::Look& look, double range, int width,
                          int height) {
  const geometry::Vector3d right = Cross(look.up, look.toward);
  QMatrix3x3 toPicture;
  int row = 0;
  for (const geometry::Vector3d& axis : {right, look.up, look.toward}) {
    toPicture(row, 0) = static_cast<float>(axis.dx);
    toPicture(row, 1) = static_cast<float>(axis.dy);
    toPicture(row++, 2) = static_cast<float>(axis.dz);
  }
  const double eye = scene::Camera(look).EyeDistance();
  const double least = 0.05;  // of the distance of the eye, that points keep from it
  const double near = eye > 0 ? look.reach / std::max(1 - range / eye, least) : range;
  const double far = eye > 0 ? look.reach / (1 + range / eye) : -range;
  const double slope = 2 / (near - far);
  program.bind();
  program.setUniformValue("toPicture", toPicture);
  program.setUniformValue("middle", ToQt(geometry::Vector3d({0, 0, 0}, look.middle)));
  program.setUniformValue("eye", static_cast<float>(eye));
  program.setUniformValue("shift", QVector2D(static_cast<float>(2 * look.shiftX / width - 1),
                                             static_cast<float>(1 - 2 * look.shiftY / height)));
  program.setUniformValue("scale", QVector2D(static_cast<float>(2 * look.scale / width),
                                             static_cast<float>(2 * look.scale / height)));
  program.setUniformValue("depth", QVector3D(static_cast<float>(1 + slope * far),
                                             static_cast<float>(look.reach), static_cast<float>(slope)));
  SetLift(program, 0, 0);
}

void GlShaders::SetLift(QOpenGLShaderProgram& program, double way, double nearness) {
  program.bind();
  program.setUniformValue("lift", QVector2D(static_cast<float>(way), static_cast<float>(nearness)));
}

}  // namespace vanzet::window
