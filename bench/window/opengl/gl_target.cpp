#include "window/opengl/gl_target.h"

namespace vanzet::window {

void GlTarget::Resize(int width, int height, int samples, bool hasThrough) {
  const bool isEnough = hasThrough_ || !hasThrough;
  if (width == width_ && height == height_ && samples == samples_ && isEnough && colour_ != 0) return;
  Free();
  width_ = width, height_ = height, samples_ = samples, hasThrough_ = hasThrough;
  gl_.glGenRenderbuffers(1, &colour_);
  Store(colour_, GL_RGBA8);
  MakeFrame(Number(Depth::kSolid));
  if (hasThrough) MakeFrame(Number(Depth::kThrough));
}

void GlTarget::Store(GLuint buffer, GLenum format) {
  gl_.glBindRenderbuffer(GL_RENDERBUFFER, buffer);
  gl_.glRenderbufferStorageMultisample(GL_RENDERBUFFER, samples_, format, width_, height_);
}

void GlTarget::MakeFrame(std::size_t number) {
  gl_.glGenRenderbuffers(1, &depths_[number]);
  Store(depths_[number], GL_DEPTH24_STENCIL8);
  gl_.glGenFramebuffers(1, &frames_[number]);
  gl_.glBindFramebuffer(GL_FRAMEBUFFER, frames_[number]);
  gl_.glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_RENDERBUFFER, colour_);
  gl_.glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_DEPTH_STENCIL_ATTACHMENT, GL_RENDERBUFFER,
                                depths_[number]);
}

void GlTarget::CopyDepth() {
  gl_.glBindFramebuffer(GL_READ_FRAMEBUFFER, frames_[Number(Depth::kSolid)]);
  gl_.glBindFramebuffer(GL_DRAW_FRAMEBUFFER, frames_[Number(Depth::kThrough)]);
  gl_.glBlitFramebuffer(0, 0, width_, height_, 0, 0, width_, height_, GL_DEPTH_BUFFER_BIT, GL_NEAREST);
  Bind(Depth::kThrough);
}

void GlTarget::CopyTo(GLuint frame) {
  gl_.glBindFramebuffer(GL_READ_FRAMEBUFFER, frames_[Number(Depth::kSolid)]);
  gl_.glBindFramebuffer(GL_DRAW_FRAMEBUFFER, frame);
  gl_.glBlitFramebuffer(0, 0, width_, height_, 0, 0, width_, height_, GL_COLOR_BUFFER_BIT, GL_NEAREST);
  gl_.glBindFramebuffer(GL_FRAMEBUFFER, frame);
}

void GlTarget::Free() {
  gl_.glDeleteFramebuffers(2, frames_.data());
  gl_.glDeleteRenderbuffers(2, depths_.data());
  gl_.glDeleteRenderbuffers(1, &colour_);
  frames_ = {}, depths_ = {}, colour_ = 0;
}

}  // namespace vanzet::window
