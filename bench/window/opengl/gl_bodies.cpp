#include "window/opengl/gl_bodies.h"

#include <algorithm>

#include "scene/shading.h"

namespace vanzet::window {
namespace {

using scene::ModelBody;

constexpr GLuint kPlace = 0, kNormal = 1;  // of the shaders

template <class Item>
GLsizeiptr BytesOf(const std::vector<Item>& items) {
  return static_cast<GLsizeiptr>(items.size() * sizeof(Item));
}

const void* Offset(std::size_t bytes) {
  // NOLINTNEXTLINE(performance-no-int-to-ptr): OpenGL takes the place in a buffer as a pointer
  return reinterpret_cast<const void*>(bytes);
}

std::vector<float> PlacesOf(const std::vector<geometry::Point3d>& points) {
  std::vector<float> places;
  for (const geometry::Point3d& p : points) {
    for (const double value : {p.x, p.y, p.z}) places.push_back(static_cast<float>(value));
  }
  return places;
}

void AddEnds(std::vector<std::uint32_t>& numbers, const scene::SurfaceEdge& edge) {
  numbers.push_back(edge.from);
  numbers.push_back(edge.to);
}

/// Bodies that are the same have been cut in the same way.
bool IsSame(const ModelBody& a, const ModelBody& b) {
  return a.surface.points == b.surface.points && a.surface.facets == b.surface.facets &&
         a.surface.edges == b.surface.edges;
}

}  // namespace

GlBodies::~GlBodies() {
  for (Uploaded& body : uploaded_) Free(body);
}

void GlBodies::Show(std::shared_ptr<const scene::Model> model) {
  if (model == model_) return;
  std::vector<Uploaded> before = std::move(uploaded_);
  uploaded_.clear();
  std::vector<bool> isTaken(before.size());
  for (const ModelBody& body : model->bodies) {
    std::size_t old = 0;
    while (old < before.size() && (isTaken[old] || !IsSame(model_->bodies[old], body))) ++old;
    uploaded_.push_back(old < before.size() ? before[old] : Upload(body));
    if (old < before.size()) isTaken[old] = true;
  }
  for (std::size_t i = 0; i < before.size(); ++i) {
    if (!isTaken[i]) Free(before[i]);
  }
  model_ = std::move(model);
}

GlBodies::Uploaded GlBodies::Upload(const ModelBody& body) {
  ++uploads_;
  Uploaded uploaded;
  const scene::Surface& surface = body.surface;
  gl_.glGenVertexArrays(1, &uploaded.layout);
  gl_.glGenBuffers(1, &uploaded.points);
  gl_.glGenBuffers(1, &uploaded.numbers);
  gl_.glGenBuffers(1, &uploaded.silhouette);
  gl_.glBindBuffer(GL_ARRAY_BUFFER, uploaded.points);
  gl_.glBufferData(GL_ARRAY_BUFFER, BytesOf(surface.points), surface.points.data(), GL_STATIC_DRAW);
  SetLayout(uploaded.layout, uploaded.points, true);
  std::vector<std::uint32_t> edges;
  for (std::size_t i = 0; i < surface.sharpEdges; ++i) AddEnds(edges, surface.edges[i]);
  gl_.glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, uploaded.numbers);
  gl_.glBufferData(GL_ELEMENT_ARRAY_BUFFER, BytesOf(surface.facets) + BytesOf(edges), nullptr,
                   GL_STATIC_DRAW);
  gl_.glBufferSubData(GL_ELEMENT_ARRAY_BUFFER, 0, BytesOf(surface.facets), surface.facets.data());
  gl_.glBufferSubData(GL_ELEMENT_ARRAY_BUFFER, BytesOf(surface.facets), BytesOf(edges), edges.data());
  uploaded.facetNumbers = static_cast<GLsizei>(3 * surface.facets.size());
  uploaded.edgeNumbers = static_cast<GLsizei>(edges.size());
  UploadCuts(body, uploaded);
  gl_.glBindVertexArray(0);
  return uploaded;
}

void GlBodies::UploadCuts(const ModelBody& body, Uploaded& uploaded) const {
  if (body.cuts.empty()) return;
  std::vector<geometry::Point3d> ends;
  for (const scene::Stroke& cut : body.cuts) ends.push_back(cut.from), ends.push_back(cut.to);
  const std::vector<float> places = PlacesOf(ends);
  gl_.glGenVertexArrays(1, &uploaded.cutLayout);
  gl_.glGenBuffers(1, &uploaded.cuts);
  gl_.glBindBuffer(GL_ARRAY_BUFFER, uploaded.cuts);
  gl_.glBufferData(GL_ARRAY_BUFFER, BytesOf(places), places.data(), GL_STATIC_DRAW);
  SetLayout(uploaded.cutLayout, uploaded.cuts, false);
  uploaded.cutPoints = static_cast<GLsizei>(ends.size());
}

void GlBodies::SetLayout(GLuint layout, GLuint points, bool hasNormals) const {
  const GLsizei stride = hasNormals ? sizeof(scene::SurfacePoint) : 3 * sizeof(float);
  gl_.glBindVertexArray(layout);
  gl_.glBindBuffer(GL_ARRAY_BUFFER, points);
  gl_.glEnableVertexAttribArray(kPlace);
  gl_.glVertexAttribPointer(kPlace, 3, GL_FLOAT, GL_FALSE, stride, nullptr);
  if (!hasNormals) return;
  gl_.glEnableVertexAttribArray(kNormal);
  gl_.glVertexAttribPointer(kNormal, 4, GL_INT_2_10_10_10_REV, GL_TRUE, stride,
                            Offset(offsetof(scene::SurfacePoint, normal)));
}

void GlBodies::Free(Uploaded& uploaded) const {
  gl_.glDeleteVertexArrays(1, &uploaded.layout);
  gl_.glDeleteVertexArrays(1, &uploaded.cutLayout);
  for (GLuint* const buffer : {&uploaded.points, &uploaded.numbers, &uploaded.silhouette, &uploaded.cuts})
    gl_.glDeleteBuffers(1, buffer);
}

void GlBodies::Turn(const scene::Camera& camera) {
  gl_.glBindVertexArray(0);
  for (std::size_t i = 0; i < uploaded_.size(); ++i) {
    const scene::Surface& surface = model_->bodies[i].surface;
    std::vector<std::uint32_t> numbers;
    for (const std::uint32_t edge : Silhouette(surface, camera)) AddEnds(numbers, surface.edges[edge]);
    gl_.glBindBuffer(GL_ARRAY_BUFFER, uploaded_[i].silhouette);
    gl_.glBufferData(GL_ARRAY_BUFFER, BytesOf(numbers), numbers.data(), GL_STREAM_DRAW);
    uploaded_[i].silhouetteNumbers = static_cast<GLsizei>(numbers.size());
  }
}

const GlBodies::Uploaded& GlBodies::Of(const ModelBody& body) const {
  return uploaded_[static_cast<std::size_t>(&body - model_->bodies.data())];
}

void GlBodies::DrawFacets(const ModelBody& body) const {
  const Uploaded& uploaded = Of(body);
  gl_.glBindVertexArray(uploaded.layout);
  gl_.glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, uploaded.numbers);
  gl_.glDrawElements(GL_TRIANGLES, uploaded.facetNumbers, GL_UNSIGNED_INT, nullptr);
}

void GlBodies::DrawEdges(const ModelBody& body) const {
  const Uploaded& uploaded = Of(body);
  gl_.glBindVertexArray(uploaded.layout);
  gl_.glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, uploaded.numbers);
  gl_.glDrawElements(GL_LINES, uploaded.edgeNumbers, GL_UNSIGNED_INT,
                     Offset(static_cast<std::size_t>(uploaded.facetNumbers) * sizeof(std::uint32_t)));
  gl_.glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, uploaded.silhouette);
  gl_.glDrawElements(GL_LINES, uploaded.silhouetteNumbers, GL_UNSIGNED_INT, nullptr);
}

void GlBodies::DrawCuts(const ModelBody& body) const {
  const Uploaded& uploaded = Of(body);
  if (uploaded.cutPoints == 0) return;
  gl_.glBindVertexArray(uploaded.cutLayout);
  gl_.glDrawArrays(GL_LINES, 0, uploaded.cutPoints);
}

void GlBodies::Draw(GLenum form, const std::vector<geometry::Point3d>& points) const {
  const std::vector<float> places = PlacesOf(points);
  GLuint layout = 0, buffer = 0;
  gl_.glGenVertexArrays(1, &layout);
  gl_.glGenBuffers(1, &buffer);
  gl_.glBindBuffer(GL_ARRAY_BUFFER, buffer);
  gl_.glBufferData(GL_ARRAY_BUFFER, BytesOf(places), places.data(), GL_STREAM_DRAW);
  SetLayout(layout, buffer, false);
  gl_.glDrawArrays(form, 0, static_cast<GLsizei>(points.size()));
  gl_.glDeleteVertexArrays(1, &layout);
  gl_.glDeleteBuffers(1, &buffer);
}

}  // namespace vanzet::window
