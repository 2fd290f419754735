#include "window/opengl/gl_canvas.h"

#include <QGuiApplication>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLPaintDevice>
#include <QOpenGLWidget>
#include <QPainter>
#include <QTimer>
#include <algorithm>

#include "window/opengl/gl_picture.h"

namespace vanzet::window {
namespace {

constexpr const char* kVariable = "VANZET_PAINTER";
constexpr int kSamples = 4;      // of a pixel of a smooth picture
constexpr int kStillness = 140;  // milliseconds before a renderer that is slow makes a smooth picture

QSurfaceFormat FormatOfBodies() {
  QSurfaceFormat format;
  if (QOpenGLContext::openGLModuleType() == QOpenGLContext::LibGL) {
    format.setVersion(3, 3);
    format.setProfile(QSurfaceFormat::CoreProfile);
    // Without them lines have only one width.
    format.setOption(QSurfaceFormat::DeprecatedFunctions);
  } else {
    format.setVersion(3, 0);
  }
  return format;
}

/// Whether OpenGL draws by the processor.
bool IsByProcessor(const QString& renderer) {
  constexpr const char* kWords[] = {"llvmpipe", "softpipe",    "swrast",      "SwiftShader",
                                    "Software", "GDI Generic", "Basic Render"};
  return std::ranges::any_of(kWords, [&](const char* word) {
    return renderer.contains(QLatin1StringView(word), Qt::CaseInsensitive);
  });
}

QString RendererOf(QOpenGLContext& context) {
  const auto* const name = context.functions()->glGetString(GL_RENDERER);
  return QString::fromLatin1(reinterpret_cast<const char*>(name));
}

/// The name of what draws by OpenGL; empty where nothing does, or not with our shaders.
QString FindRenderer() {
  // These platforms of the toolkit draw into memory, where it has no OpenGL or only one without windows.
  if (QGuiApplication::platformName() == "offscreen" || QGuiApplication::platformName() == "minimal")
    return {};
  QOpenGLContext context;
  context.setFormat(FormatOfBodies());
  QOffscreenSurface surface;
  surface.setFormat(FormatOfBodies());
  surface.create();
  if (!context.create() || !context.makeCurrent(&surface)) return {};
  const QString name = GlPicture().IsUsable() ? RendererOf(context) : QString();
  context.doneCurrent();
  return name;
}

class GlCanvas final : public QOpenGLWidget, public BodyCanvas {
 public:
  GlCanvas(CanvasSource source, QWidget* parent) : QOpenGLWidget(parent), source_(std::move(source)) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFormat(FormatOfBodies());
    stillness_.setSingleShot(true);
    stillness_.setInterval(kStillness);
    connect(&stillness_, &QTimer::timeout, this, [this] { update(); });
  }

  // The widget ends its context after the canvas is gone.
  ~GlCanvas() override {
    if (context() != nullptr) context()->disconnect(this);
    Forget();
  }

  QWidget& widget() override { return *this; }
  bool isSmooth() const override { return isSmooth_; }

  void Invalidate() override {
    isSmooth_ = false;
    isDue_ = true;
    if (isSlow_) stillness_.start();
    update();
  }

 protected:
  /// A window that gets another screen gets another context, too.
  void initializeGL() override {
    connect(context(), &QOpenGLContext::aboutToBeDestroyed, this, &GlCanvas::Forget);
    picture_ = std::make_unique<GlPicture>();
    isSlow_ = IsByProcessor(RendererOf(*context()));
    Invalidate();
  }

  void resizeGL(int, int) override { Invalidate(); }

  void paintGL() override {
    const BodyPicture wanted = source_.picture();
    if (wanted.model != nullptr) {
      DrawBodies(wanted);
      picture_->CopyTo(defaultFramebufferObject());
    }
    // Not a painter on this widget: that one paints nothing into a picture of the window.
    QOpenGLPaintDevice device(size() * devicePixelRatioF());
    device.setDevicePixelRatio(devicePixelRatioF());
    QPainter painter(&device);
    painter.setFont(font());
    painter.setRenderHints(QPainter::Antialiasing);
    source_.overlay(painter);
  }

 private:
  void DrawBodies(const BodyPicture& wanted) {
    const bool isSmooth = !isSlow_ || !stillness_.isActive();
    if (!isDue_ && isSmooth_ == isSmooth) return;
    picture_->Draw(wanted, isSmooth ? kSamples : 0);
    isDue_ = false;
    isSmooth_ = isSmooth;
  }

  void Forget() {
    if (picture_ == nullptr) return;
    makeCurrent();
    picture_.reset();
    doneCurrent();
  }

  CanvasSource source_;
  std::unique_ptr<GlPicture> picture_;
  bool isSlow_ = false;
  bool isDue_ = true;  ///< the picture is out of date
  bool isSmooth_ = false;
  QTimer stillness_;
};

}  // namespace

Result<PainterChoice> ChoosePainter() {
  const QByteArray word = qgetenv(kVariable);
  if (word == "software") return PainterChoice{};
  const PainterChoice found{.usesOpenGl = true, .renderer = FindRenderer()};
  if (word == "opengl") {
    if (found.renderer.isEmpty()) return Fault{"OpenGL 3.3 is not available", kVariable};
    return found;
  }
  if (!word.isEmpty())
    return Fault{"unknown painter '" + word.toStdString() + "': expected 'software' or 'opengl'", kVariable};
  return PainterChoice{!found.renderer.isEmpty() && !IsByProcessor(found.renderer), found.renderer};
}

BodyCanvas* MakeGlCanvas(CanvasSource source, QWidget* parent) {
  return new GlCanvas(std::move(source), parent);
}

}  // namespace vanzet::window
