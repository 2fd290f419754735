#include <QMessageBox>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFramebufferObject>

#include "window/opengl/gl_picture.h"
#include "window_fixture.h"

namespace vanzet::test {
namespace {

using scene::View;
using testing::HasSubstr;
using window::BodyPicture;
using window::Command;
using window::GlPicture;

constexpr QSize kSize(600, 400);

/// Draws by OpenGL without a window.
class Card {
 public:
  Card() {
    QSurfaceFormat format;
    format.setVersion(3, 3);
    format.setProfile(QSurfaceFormat::CoreProfile);
    format.setOption(QSurfaceFormat::DeprecatedFunctions);
    context_.setFormat(format);
    surface_.setFormat(format);
    surface_.create();
    if (context_.create() && context_.makeCurrent(&surface_)) picture_ = std::make_unique<GlPicture>();
  }
  ~Card() { context_.makeCurrent(&surface_), picture_.reset(); }

  GlPicture* picture() { return picture_.get(); }

  QImage Draw(const BodyPicture& wanted) {
    context_.makeCurrent(&surface_);
    const QOpenGLFramebufferObject frame(kSize);
    picture_->Draw(wanted, 4);
    picture_->CopyTo(frame.handle());
    return frame.toImage().convertToFormat(QImage::Format_RGB32);
  }

 private:
  QOpenGLContext context_;
  QOffscreenSurface surface_;
  std::unique_ptr<GlPicture> picture_;
};

class OpenGl : public WindowTest {
 protected:
  OpenGl() {
    setenv("VANZET_PAINTER", "opengl", 1);
    Restart();
    OpenSample(true);
  }
  ~OpenGl() override { unsetenv("VANZET_PAINTER"); }

  BodyPicture From(View view, bool isPerspective = false) {
    const auto model = equipment().model();
    return {model,
            scene::LookFrom(view, isPerspective, PointsOf(*model), kSize.width(), kSize.height()),
            {.width = kSize.width(), .height = kSize.height()}};
  }

  static QImage Painted(const BodyPicture& wanted) {
    const scene::Picture picture = scene::Draw(*wanted.model, wanted.look, wanted.options);
    return QImage(picture.bytes.data(), picture.width, picture.height, qsizetype{picture.width} * 3,
                  QImage::Format_RGB888)
        .convertToFormat(QImage::Format_RGB32);
  }

  static int Difference(QRgb a, QRgb b) {
    return std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b)) + std::abs(qBlue(a) - qBlue(b));
  }

  static bool IsGround(const QImage& image, int x, int y) {
    return Difference(image.pixel(x, y), image.pixel(0, 0)) < 60;
  }

  /// Whether the picture shows anything within two pixels of a place.
  static bool ShowsNear(const QImage& image, int x, int y) {
    for (int v = std::max(0, y - 2); v <= std::min(image.height() - 1, y + 2); ++v) {
      for (int u = std::max(0, x - 2); u <= std::min(image.width() - 1, x + 2); ++u) {
        if (!IsGround(image, u, v)) return true;
      }
    }
    return false;
  }

  /// The pixels of one silhouette that are not near the other.
  static int Strays(const QImage& image, const QImage& other) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x)
        count += IsGround(image, x, y) || ShowsNear(other, x, y) ? 0 : 1;
    }
    return count;
  }

  static void ExpectSame(const QImage& drawn, const QImage& painted) {
    ASSERT_EQ(drawn.size(), painted.size());
    long sum = 0;
    int far = 0;
    for (int y = 0; y < drawn.height(); ++y) {
      for (int x = 0; x < drawn.width(); ++x) {
        const int difference = Difference(drawn.pixel(x, y), painted.pixel(x, y));
        sum += difference;
        far += difference > 90 ? 1 : 0;
      }
    }
    EXPECT_EQ(Strays(drawn, painted), 0) << "the silhouettes differ";
    EXPECT_EQ(Strays(painted, drawn), 0) << "the silhouettes differ";
    EXPECT_LT(double(sum) / (drawn.width() * drawn.height()), 3) << "of 765 on the average";
    EXPECT_LT(far, drawn.width() * drawn.height() / 200) << "pixels of another colour";
  }

  void ExpectSame(const BodyPicture& wanted) {
    ASSERT_NE(card_.picture(), nullptr);
    ExpectSame(card_.Draw(wanted), Painted(wanted));
  }

  Card card_;
};

TEST_F(OpenGl, DrawsWhatThePainterDraws) {
  for (const View view : {View::kIso, View::kFront, View::kTop, View::kRight, View::kBack}) {
    SCOPED_TRACE(scene::ViewWords()[static_cast<std::size_t>(view)]);
    ExpectSame(From(view));
  }
}

TEST_F(OpenGl, DrawsPerspectiveAndTheDarkAsThePainterDoes) {
  BodyPicture wanted = From(View::kIso, true);
  wanted.options.style.background = {0.1, 0.11, 0.12};
  wanted.options.style.ink = {0.04, 0.05, 0.06};
  ExpectSame(wanted);
}

TEST_F(OpenGl, CutsBodiesOpenAsThePainterDoes) {
  actions()[Command::kSection]->trigger();
  ASSERT_TRUE(equipment().model()->section);
  ExpectSame(From(View::kFront));
  ExpectSame(From(View::kIso));
  ExpectSame(From(View::kIso, true));
  ExpectSame(From(View::kBack));
}

TEST_F(OpenGl, MarksHidesAndSeesThroughAsThePainterDoes) {
  BodyPicture wanted = From(View::kIso);
  wanted.options.looks["main chuck"].isSeenThrough = true;
  wanted.options.looks["main jaw 1"].isMarked = true;
  wanted.options.looks["main jaw 2"].isHidden = true;
  ExpectSame(wanted);
  wanted.options.looks["main jaw 1"].isSeenThrough = true;
  ExpectSame(wanted);
}

TEST_F(OpenGl, UploadsOnlyBodiesThatChange) {
  ASSERT_NE(card_.picture(), nullptr);
  BodyPicture wanted = From(View::kIso);
  card_.Draw(wanted);
  const int all = card_.picture()->uploads();
  EXPECT_EQ(all, static_cast<int>(wanted.model->bodies.size()));
  wanted.look = scene::TurnEye(wanted.look, 0.2, 0.1);
  card_.Draw(wanted);
  auto other = std::make_shared<scene::Model>(*wanted.model);
  wanted.model = other;
  card_.Draw(wanted);
  EXPECT_EQ(card_.picture()->uploads(), all);
  auto moved = std::make_shared<scene::Model>(*other);
  for (scene::SurfacePoint& point : moved->bodies.back().surface.points) point.x += 1;
  wanted.model = moved;
  card_.Draw(wanted);
  EXPECT_EQ(card_.picture()->uploads(), all + 1);
  ExpectSame(wanted);
}

TEST_F(OpenGl, ShowsTheEquipmentInTheWindow) {
  const auto isSmooth = [this] { return equipment().isSmooth(); };
  ASSERT_TRUE(QTest::qWaitFor(isSmooth, 20'000));
  const QImage drawn = equipment().grab().toImage().convertToFormat(QImage::Format_RGB32);
  setenv("VANZET_PAINTER", "software", 1);
  Restart();
  ASSERT_TRUE(window->projectCommands().Open(folder / "lathe"));
  ASSERT_TRUE(QTest::qWaitFor(isSmooth, 20'000));
  ExpectSame(drawn, equipment().grab().toImage().convertToFormat(QImage::Format_RGB32));
}

TEST_F(OpenGl, IsNamedInTheAbout) {
  const auto said = AnswerBox("OK");
  actions()[Command::kAbout]->trigger();
  EXPECT_THAT(said->toStdString(), HasSubstr("OpenGL"));
  setenv("VANZET_PAINTER", "software", 1);
  Restart();
  const auto saidThen = AnswerBox("OK");
  actions()[Command::kAbout]->trigger();
  EXPECT_THAT(saidThen->toStdString(), HasSubstr("processor"));
}

TEST_F(OpenGl, IsRefusedByAnotherName) {
  setenv("VANZET_PAINTER", "brush", 1);
  Restart();
  EXPECT_THAT(notice().Message().toStdString(), HasSubstr("unknown painter 'brush'"));
}

}  // namespace
}  // namespace vanzet::test
