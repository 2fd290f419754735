#include "scene/picture.h"

#include "scene/scene_fixture.h"

namespace vanzet::test {
namespace {

using scene::Kind;
using scene::Picture;
using scene::View;

using Pixel = std::array<int, 3>;

class Pictures : public SceneTest {
 protected:
  Pictures() {
    Clamp(0, kChuck, kHardJaw);
    PutBillet(0, 60, 120);
    PutDatum({.outMain = 90});
  }

  static Picture Drawn(const scene::Scene& shown, const scene::PictureOptions& options,
                       bool isSection = false) {
    const auto model = scene::ModelOf(shown);
    EXPECT_TRUE(model);
    if (!model) return {};
    return scene::Draw(isSection ? scene::CutModel(*model, {}) : *model, options);
  }

  static Pixel At(const Picture& picture, int x, int y) {
    const auto at = (static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.width) +
                     static_cast<std::size_t>(x)) *
                    3;
    return {picture.bytes[at], picture.bytes[at + 1], picture.bytes[at + 2]};
  }

  struct Silhouette {
    int left = 1 << 20, right = -1, top = 1 << 20, bottom = -1;
    int pixels = 0;
  };
  static Silhouette SilhouetteOf(const Picture& picture) {
    const Pixel background = At(picture, 0, 0);
    Silhouette found;
    for (int y = 0; y < picture.height; ++y) {
      for (int x = 0; x < picture.width; ++x) {
        if (At(picture, x, y) == background) continue;
        found = {std::min(found.left, x), std::max(found.right, x), std::min(found.top, y),
                 std::max(found.bottom, y), found.pixels + 1};
      }
    }
    return found;
  }

  /// Whether a pixel has the hue of a colour: the same order of its parts, far enough apart.
  static int PixelsLike(const Picture& picture, Kind kind) {
    const modeller::Colour wanted = scene::ColourOf(kind);
    int count = 0;
    for (int y = 0; y < picture.height; ++y) {
      for (int x = 0; x < picture.width; ++x) {
        const auto [r, g, b] = At(picture, x, y);
        const double light = r / (255 * wanted.red);
        const bool isLike = light > 0.3 && std::abs(g / (255 * wanted.green) - light) < 0.04 &&
                            std::abs(b / (255 * wanted.blue) - light) < 0.04;
        count += isLike ? 1 : 0;
      }
    }
    return count;
  }
};

TEST_F(Pictures, HaveTheOutlineOfTheEquipment) {
  const Picture picture = Drawn(Shown(), {.width = 300, .height = 200, .view = View::kFront});
  const Silhouette found = SilhouetteOf(picture);
  // From the chuck's foot to the billet's front 230 by 160: the height fills the picture.
  EXPECT_NEAR(found.bottom - found.top, 200 * 0.88, 4);
  EXPECT_NEAR(found.right - found.left, 200 * 0.88 / 160 * 230, 4);
  EXPECT_NEAR(found.left + found.right, 300, 4);
}

TEST_F(Pictures, ShowEachKindInItsColour) {
  const Picture picture = Drawn(Shown(), {.width = 300, .height = 200});
  for (const Kind kind : {Kind::kClamp, Kind::kJaw, Kind::kBillet}) {
    EXPECT_GT(PixelsLike(picture, kind), 150) << static_cast<int>(kind);
  }
  EXPECT_LT(PixelsLike(picture, Kind::kFinishPart), 10);
}

TEST_F(Pictures, HideWhatIsBehind) {
  scene::Scene shown = Shown();
  std::erase_if(shown.bodies, [](const auto& body) { return body.kind == Kind::kJaw; });
  const Picture fromBehind = Drawn(shown, {.width = 200, .height = 200, .view = View::kLeft});
  EXPECT_GT(PixelsLike(fromBehind, Kind::kClamp), 5000);
  // Through the chuck's bore of 45 the billet of 60 is seen, and nothing of it beside.
  const int seen = PixelsLike(fromBehind, Kind::kBillet);
  EXPECT_GT(seen, 500);
  EXPECT_LT(seen, 2600);
}

TEST_F(Pictures, AreCutOpenByASection) {
  const scene::Scene shown = Shown();
  const scene::PictureOptions options = {.width = 240, .height = 160, .view = View::kFront};
  const Picture before = Drawn(shown, options), after = Drawn(shown, options, true);
  EXPECT_NEAR(SilhouetteOf(before).right, SilhouetteOf(after).right, 1);
  // The jaws before the plane hide the billet; behind the cut its face is bare down to the chuck's face.
  const auto isBillet = [](const Pixel& pixel) { return pixel[2] > pixel[0] + 30; };
  int bare = 0, covered = 0;
  for (int x = 0; x < 240; ++x) {
    bare += isBillet(At(after, x, 82)) ? 1 : 0;
    covered += isBillet(At(before, x, 82)) ? 1 : 0;
  }
  EXPECT_GT(bare, 50);
  EXPECT_NE(before.bytes, after.bytes);
}

TEST_F(Pictures, ShowTheFinishPartThroughTheBillet) {
  scene::Scene shown = Shown();
  scene::SceneBody part = shown.bodies.back();
  part.kind = Kind::kFinishPart;
  shown.bodies.back().isSeenThrough = true;
  part.placement = geometry::Matrix();
  part.placement.Scale(0.8);
  shown.bodies.push_back(part);
  const Picture picture = Drawn(shown, {.width = 240, .height = 160, .view = View::kFront});
  int reddish = 0;
  for (int x = 0; x < 240; ++x) {
    const auto [r, g, b] = At(picture, x, 80);
    reddish += r > b && r > g + 10 ? 1 : 0;
  }
  EXPECT_GT(reddish, 30);
}

TEST_F(Pictures, DoNotSpeckleWhereRawAndFinishedPartHaveACommonFace) {
  scene::Scene shown = Shown();
  scene::SceneBody part = shown.bodies.back();
  part.kind = Kind::kFinishPart;
  shown.bodies = {part};
  for (const bool isPerspective : {false, true}) {
    const scene::PictureOptions options = {.width = 200, .height = 150, .isPerspective = isPerspective};
    const int alone = PixelsLike(Drawn({{part}, {}}, options), Kind::kFinishPart);
    scene::SceneBody raw = part;
    raw.kind = Kind::kBillet;
    raw.isSeenThrough = true;
    // Away by less than facets are from their surfaces, as another program's rounding.
    raw.placement.Translate(1e-7, -1e-7, 1e-7);
    EXPECT_NEAR(PixelsLike(Drawn({{part, raw}, {}}, options), Kind::kFinishPart), alone, alone / 50)
        << isPerspective;
  }
}

TEST_F(Pictures, AreFilledByTheBodiesThatAreToFit) {
  const scene::Scene shown = Shown();
  scene::PictureOptions options = {.width = 300, .height = 200, .view = View::kFront};
  const int all = PixelsLike(Drawn(shown, options), Kind::kJaw);
  options.fitted = {"main jaw 1"};
  EXPECT_GT(PixelsLike(Drawn(shown, options), Kind::kJaw), 3 * all);
}

TEST_F(Pictures, OfAnySizeAreTheSameEachTime) {
  const scene::Scene shown = Shown();
  const scene::PictureOptions options = {.width = 333, .height = 77, .isPerspective = true};
  const Picture picture = Drawn(shown, options);
  EXPECT_EQ(picture.bytes.size(), 333U * 77U * 3U);
  EXPECT_EQ(picture.bytes, Drawn(shown, options).bytes);
  EXPECT_GT(SilhouetteOf(picture).pixels, 2000);
}

TEST_F(Pictures, OfSliversComeToAnEnd) {
  // Three corners almost on one line: the edges meet far outside of the picture.
  scene::Model model;
  scene::ModelBody body;
  for (const float lean : {1e-38F, 1e-18F, 1e-7F, -1e-6F}) {
    const auto first = static_cast<std::uint32_t>(body.surface.points.size());
    for (const auto& [x, y] : {std::pair{0.0F, 0.0F}, {10.0F, 1 + lean}, {20.0F, 2.0F}, {1e9F, lean}})
      body.surface.points.push_back({x, y, 0, scene::PackVector({0, 0, 1})});
    body.surface.facets.push_back({first, first + 1, first + 2});
    body.surface.edges.push_back({first, first + 3, 0, 0});
  }
  body.surface.sharpEdges = body.surface.edges.size();
  scene::GroupFacets(body.surface);
  model.bodies.push_back(body);
  const scene::Look look =
      scene::LookFrom(View::kFront, false, std::vector<geometry::Point3d>{{-5, -5, -5}, {5, 5, 5}}, 100, 80);
  for (const double zoom : {1.0, 1e3, 1e6}) {
    const Picture picture = scene::Draw(model, scene::ZoomAt(look, zoom, 3, 3), {.width = 100, .height = 80});
    EXPECT_EQ(picture.bytes.size(), 24000U);
  }
}

TEST_F(Pictures, OfNothingAreEmpty) {
  EXPECT_EQ(SilhouetteOf(Drawn({}, {.width = 40, .height = 40})).pixels, 0);
}

}  // namespace
}  // namespace vanzet::test
