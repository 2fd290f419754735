#include <QApplication>
#include <QElapsedTimer>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFramebufferObject>
#include <QProcess>
#include <cstdio>
#include <ctime>

#include "ball.h"
#include "scene/coarse.h"
#include "window/opengl/gl_picture.h"

/// The frames a second and the memory of the two painters of bodies while a body of so many facets turns:
/// xvfb-run -a painters_benchmark. Each row is measured in a process of its own.
namespace {

using namespace vanzet;
using window::BodyPicture;

constexpr int kFrames = 20;
constexpr std::size_t kFacetsInMotion = 100'000;  // of the window

BodyPicture BallPicture(int facets, int width, int height) {
  auto model = std::make_shared<scene::Model>();
  scene::ModelBody ball;
  ball.name = "ball";
  ball.colour = {0.4, 0.6, 0.9};
  ball.surface = scene::SurfaceOf(benchmarks::Ball(facets), geometry::Matrix());
  model->bodies.push_back(std::move(ball));
  const scene::Look look = scene::LookFrom(scene::View::kIso, false, PointsOf(*model), width, height);
  return {model, look, {.width = width, .height = height, .samples = 1}};
}

/// Milliseconds for a frame: those that pass, and those of all processors.
struct Millis {
  double passed, worked;
};

/// The time of a frame while the body turns. The first one, which uploads it, does not count.
template <class Draw>
Millis Measure(BodyPicture picture, Draw draw) {
  draw(picture);
  QElapsedTimer clock;
  clock.start();
  const std::clock_t before = std::clock();
  for (int i = 0; i < kFrames; ++i) {
    picture.look = scene::TurnEye(picture.look, 0.03, 0.01);
    draw(picture);
  }
  return {double(clock.nsecsElapsed()) / 1e6 / kFrames,
          1e3 * double(std::clock() - before) / CLOCKS_PER_SEC / kFrames};
}

Millis MeasurePainter(const BodyPicture& picture) {
  return Measure(picture, [](const BodyPicture& p) { scene::Draw(*p.model, p.look, p.options); });
}

/// As the window draws while something moves, without its coarser pixels.
Millis MeasureInMotion(const BodyPicture& picture) {
  BodyPicture coarse = picture;
  coarse.model = std::make_shared<scene::Model>(scene::CoarseModel(*picture.model, kFacetsInMotion));
  return MeasurePainter(coarse);
}

Millis MeasureOpenGl(const BodyPicture& picture) {
  QSurfaceFormat format;
  format.setVersion(3, 3);
  format.setProfile(QSurfaceFormat::CoreProfile);
  format.setOption(QSurfaceFormat::DeprecatedFunctions);
  QOpenGLContext context;
  context.setFormat(format);
  QOffscreenSurface surface;
  surface.setFormat(format);
  surface.create();
  if (!context.create() || !context.makeCurrent(&surface)) return {};
  window::GlPicture card;
  const QOpenGLFramebufferObject frame(picture.options.width, picture.options.height);
  return Measure(picture, [&](const BodyPicture& p) {
    card.Draw(p, 0);
    card.CopyTo(frame.handle());
    context.functions()->glFinish();
  });
}

void MeasureAll() {
  std::puts("| Painter | Facets | Picture | Frame | CPU time | Memory |\n|---|---|---|---|---|---|");
  std::fflush(stdout);
  for (const char* painter : {"painter", "motion", "opengl"}) {
    for (const char* facets : {"100000", "1000000"}) {
      for (const auto& [width, height] : {std::pair{"1400", "900"}, {"3840", "2160"}})
        QProcess::execute(QCoreApplication::applicationFilePath(), {painter, facets, width, height});
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  const QStringList words = QCoreApplication::arguments();
  if (words.size() != 5) return MeasureAll(), 0;
  const BodyPicture picture = BallPicture(words[2].toInt(), words[3].toInt(), words[4].toInt());
  const Millis millis = words[1] == "opengl"   ? MeasureOpenGl(picture)
                        : words[1] == "motion" ? MeasureInMotion(picture)
                                               : MeasurePainter(picture);
  std::printf("| %s | %d | %s x %s | %.1f ms | %.1f ms | %.0f MB |\n", qPrintable(words[1]),
              static_cast<int>(picture.model->bodies[0].surface.facets.size()), qPrintable(words[3]),
              qPrintable(words[4]), millis.passed, millis.worked, benchmarks::PeakMegabytes());
}
