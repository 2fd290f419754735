#include <QElapsedTimer>
#include <QPainter>
#include <QThreadPool>
#include <QTimer>
#include <algorithm>
#include <cmath>

#include "window/views/body_canvas.h"

namespace vanzet::window {
namespace {

constexpr int kStillness = 100;  // milliseconds before a smooth picture is made
constexpr double kFrame = 40;    // milliseconds that a quick picture may take
constexpr double kCoarsest = 4;  // pixels that become one at most
constexpr double kPixels = 1e6;

QImage ImageOf(const scene::Picture& picture) {
  return QImage(picture.bytes.data(), picture.width, picture.height, qsizetype{picture.width} * 3,
                QImage::Format_RGB888)
      .convertToFormat(QImage::Format_RGB32);
}

class PainterCanvas final : public QWidget, public BodyCanvas {
 public:
  PainterCanvas(CanvasSource source, QWidget* parent) : QWidget(parent), source_(std::move(source)) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    stillness_.setSingleShot(true);
    stillness_.setInterval(kStillness);
    connect(&stillness_, &QTimer::timeout, this, &PainterCanvas::DrawSmoothly);
  }

  ~PainterCanvas() override {
    // A picture that is being made calls this canvas when it is done.
    QThreadPool::globalInstance()->waitForDone();
  }

  QWidget& widget() override { return *this; }
  bool isSmooth() const override { return isSmooth_; }

  void Invalidate() override {
    ++generation_;
    isDue_ = true;
    isSmooth_ = false;
    stillness_.start();
    update();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    if (isDue_) DrawQuickly();
    if (!picture_.isNull()) painter.drawImage(QRectF(rect()), picture_);
    source_.overlay(painter);
  }

 private:
  void DrawQuickly() {
    isDue_ = false;
    BodyPicture wanted = source_.picture();
    if (wanted.model == nullptr) return static_cast<void>(picture_ = {});
    scene::DrawOptions& options = wanted.options;
    const double pixels = double{1} * options.width * options.height / kPixels;
    const double coarse = std::clamp(std::sqrt(pixels * pixelMillis_ / kFrame), 1.0, kCoarsest);
    options.width = std::max(1, static_cast<int>(options.width / coarse));
    options.height = std::max(1, static_cast<int>(options.height / coarse));
    options.line /= coarse;
    options.samples = 1;
    QElapsedTimer clock;
    clock.start();
    const scene::Model& model = wanted.coarse ? *wanted.coarse : *wanted.model;
    picture_ = ImageOf(scene::Draw(model, ScaleLook(wanted.look, 1 / coarse), options));
    pixelMillis_ =
        double(clock.nsecsElapsed()) / 1e6 / (double{1} * options.width * options.height / kPixels);
  }

  void DrawSmoothly() {
    const BodyPicture wanted = source_.picture();
    if (wanted.model == nullptr) return;
    const auto draw = [this, wanted, generation = generation_] {
      const QImage picture = ImageOf(scene::Draw(*wanted.model, wanted.look, wanted.options));
      QMetaObject::invokeMethod(
          this, [=, this] { ShowSmooth(generation, picture); }, Qt::QueuedConnection);
    };
    QThreadPool::globalInstance()->start(draw);
  }

  void ShowSmooth(int generation, const QImage& picture) {
    if (generation != generation_) return;
    picture_ = picture;
    isDue_ = false;
    isSmooth_ = true;
    update();
  }

  CanvasSource source_;
  QImage picture_;
  bool isDue_ = true;  ///< the picture is out of date
  bool isSmooth_ = false;
  int generation_ = 0;      ///< counts changes, so that a smooth picture that is out of date is dropped
  double pixelMillis_ = 0;  ///< how long a million pixels took
  QTimer stillness_;
};

}  // namespace

BodyCanvas* MakePainterCanvas(CanvasSource source, QWidget* parent) {
  return new PainterCanvas(std::move(source), parent);
}

scene::Look ScaleLook(scene::Look look, double factor) {
  look.scale *= factor;
  look.shiftX *= factor;
  look.shiftY *= factor;
  return look;
}

}  // namespace vanzet::window
