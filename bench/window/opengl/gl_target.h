#pragma once

#include <QOpenGLExtraFunctions>
#include <array>

namespace vanzet::window {

/// A picture in the memory of the graphics card, with two depths: that of the bodies that are solid, and one
/// for the body that is seen through at the moment.
///
/// Owns       its buffers
/// Requires   the context of OpenGL in which it was made is current, until its destructor has run
class GlTarget {
 public:
  explicit GlTarget(QOpenGLExtraFunctions& gl) : gl_(gl) {}
  ~GlTarget() { Free(); }
  GlTarget(const GlTarget&) = delete;
  GlTarget& operator=(const GlTarget&) = delete;

  enum class Depth { kSolid, kThrough };

  /// Makes the buffers, unless they are so already. `samples` of a pixel, 0 for one in its middle.
  void Resize(int width, int height, int samples, bool hasThrough);

  void Bind(Depth depth) { gl_.glBindFramebuffer(GL_FRAMEBUFFER, frames_[Number(depth)]); }

  /// Begins a see-through body with the depth of the solid ones.
  void CopyDepth();

  /// Copies the picture to a frame of the same size.
  void CopyTo(GLuint frame);

 private:
  static std::size_t Number(Depth depth) { return static_cast<std::size_t>(depth); }
  void Free();
  void Store(GLuint buffer, GLenum format);
  void MakeFrame(std::size_t number);

  QOpenGLExtraFunctions& gl_;
  int width_ = 0, height_ = 0, samples_ = 0;
  bool hasThrough_ = false;
  GLuint colour_ = 0;
  std::array<GLuint, 2> depths_ = {}, frames_ = {};
};

}  // namespace vanzet::window
