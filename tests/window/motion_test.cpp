#include <QListWidget>
#include <cmath>
#include <cstring>
#include <fstream>

#include "scene/coarse.h"
#include "window/views/body_canvas.h"
#include "window_fixture.h"

namespace vanzet::test {
namespace {

using window::BodyPicture;
using window::Command;

/// A plate across the eye of the front view.
std::shared_ptr<const scene::Model> Plate(const modeller::Colour& colour) {
  modeller::Mesh mesh;
  mesh.points = {{-10, -10, 0}, {10, -10, 0}, {10, 10, 0}, {-10, 10, 0}};
  mesh.triangles = {{0, 1, 2}, {0, 2, 3}};
  scene::ModelBody body;
  body.name = "plate";
  body.colour = colour;
  body.surface = scene::SurfaceOf(mesh, geometry::Matrix());
  return std::make_shared<scene::Model>(scene::Model{{body}, {}});
}

TEST_F(WindowTest, DrawsCoarseBodiesInMotionAndFineOnesAtRest) {
  const auto fine = Plate({1, 0, 0}), coarse = Plate({0, 0, 1});
  const scene::Look look = scene::LookFrom(scene::View::kFront, false, PointsOf(*fine), 200, 100);
  const window::CanvasSource source = {
      [&] {
        return BodyPicture{fine, look, {.width = 200, .height = 100}, coarse};
      },
      [](QPainter&) {}};
  QWidget frame;
  window::BodyCanvas& canvas = *window::MakePainterCanvas(source, &frame);
  canvas.widget().resize(200, 100);
  frame.show();
  for (int move = 0; move < 3; ++move) {
    canvas.Invalidate();
    const QColor moving = canvas.widget().grab().toImage().pixelColor(100, 50);
    EXPECT_GT(moving.blue(), 2 * moving.red()) << "in motion";
    ASSERT_TRUE(QTest::qWaitFor([&] { return canvas.isSmooth(); }));
    const QColor still = canvas.widget().grab().toImage().pixelColor(100, 50);
    EXPECT_GT(still.red(), 2 * still.blue()) << "at rest";
  }
}

/// A ball of many facets as a binary STL file.
void WriteBall(const std::filesystem::path& file, int rings) {
  std::ofstream out(file, std::ios::binary);
  const int around = 2 * rings;
  const auto facets = static_cast<std::uint32_t>(2 * around * (rings - 1));
  out.write(std::string(80, ' ').data(), 80);
  out.write(reinterpret_cast<const char*>(&facets), sizeof(facets));
  const auto place = [&](int ring, int i) -> std::array<float, 3> {
    const double high = geometry::PI * ring / rings, wide = 2 * geometry::PI * (i % around) / around;
    const double radius = 40 + 2 * std::sin(9 * wide) * std::sin(high);
    return {static_cast<float>(60 + radius * std::cos(high)),
            static_cast<float>(radius * std::sin(high) * std::cos(wide)),
            static_cast<float>(radius * std::sin(high) * std::sin(wide))};
  };
  const auto write = [&](auto a, auto b, auto c) {
    std::array<char, 50> facet = {};
    std::memcpy(&facet[12], a.data(), 12);
    std::memcpy(&facet[24], b.data(), 12);
    std::memcpy(&facet[36], c.data(), 12);
    out.write(facet.data(), facet.size());
  };
  for (int ring = 0; ring < rings; ++ring) {
    for (int i = 0; i < around; ++i) {
      const auto a = place(ring, i), b = place(ring, i + 1), c = place(ring + 1, i),
                 d = place(ring + 1, i + 1);
      if (ring > 0) write(a, c, b);
      if (ring < rings - 1) write(b, c, d);
    }
  }
}

class Motion : public WindowTest {
 protected:
  /// The sample project with a billet of 130,000 facets.
  Motion() {
    OpenSample();
    WriteBall(folder / "lathe/bodies/scan.stl", 180);
    Play("select 21\npress 2018\npress 2015\n",
         {[this] { emit choice().list().itemActivated(choice().list().item(0)); }});
    const auto isRead = [this] {
      return equipment().model() != nullptr && CountFacets(*equipment().model()) > 120'000;
    };
    EXPECT_TRUE(QTest::qWaitFor(isRead, 60'000));
  }

  /// The view without the strip of its cube, whose slanted letters the platform may draw two ways.
  QImage Grab() {
    const QImage view = equipment().grab().toImage();
    return view.copy(0, 0, view.width() - 120, view.height());
  }
  QImage GrabAtRest() {
    EXPECT_TRUE(QTest::qWaitFor([this] { return equipment().isSmooth(); }, 60'000));
    return Grab();
  }
};

TEST_F(Motion, ShowsALargeBodyWithFewerFacetsAndAtRestWithAll) {
  ASSERT_NE(equipment().model(), nullptr);
  EXPECT_LE(CountFacets(*equipment().coarseModel()), 100'000U);
  const QImage still = GrabAtRest();
  actions()[Command::kFront]->trigger();
  actions()[Command::kIso]->trigger();
  EXPECT_FALSE(equipment().isSmooth());
  EXPECT_NE(Grab(), still);
  EXPECT_EQ(GrabAtRest(), still);
  actions()[Command::kSection]->trigger();
  EXPECT_LE(CountFacets(*equipment().coarseModel()), CountFacets(*equipment().model()));
  EXPECT_TRUE(equipment().coarseModel()->section);
}

TEST_F(WindowTest, TurnsSmallBodiesWithAllTheirFacets) {
  OpenSample(true);
  EXPECT_EQ(equipment().coarseModel(), equipment().model());
}

}  // namespace
}  // namespace vanzet::test
