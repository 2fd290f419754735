#include <cstdlib>
#include <random>

#include "devices/kinds.h"
#include "devices/outline.h"
#include "devices/solid_check.h"
#include "sampled_shape.h"
#include "setup_fixture.h"

// Set-ups at random, on which the check and a search by points have to agree: no finding where points find
// nothing in common, and none left out. VANZET_RANDOM_SETUPS is how many are drawn.
namespace vanzet::test {
namespace {

using scene::Kind;
using scene::SceneBody;

constexpr double kTolerance = 0.05;  // of the rules
constexpr double kLoose = 0.002;     // of a search by points, and of half sections

class RandomSetups : public SetupTest {
 protected:
  double Number(double from, double to) { return std::uniform_real_distribution<double>(from, to)(random_); }
  bool Chance(double share) { return Number(0, 1) < share; }
  std::size_t Pick(std::size_t count) {
    return static_cast<std::size_t>(Number(0, 0.999) * static_cast<double>(count));
  }

  /// A difference that decides: none, next to the tolerance, or more.
  double Near() {
    const double kinds[] = {0, Number(-0.06, 0.06), Number(-0.4, 0.4), Number(-4, 4)};
    return kinds[Pick(std::size(kinds))];
  }

  DeviceParams Device(std::int32_t type, double size = 1) {
    const DeviceParams example = devices::Find(type)->example;
    for (;;) {
      DeviceParams params = example;
      const double scale = size * Number(0.7, 1.4);
      for (const devices::Letter& letter : devices::LettersOf(type)) {
        if (letter.unit == devices::Unit::kMillimetre)
          params.*kDeviceReals.at(static_cast<std::size_t>(letter.letter - 'A')) *=
              scale * Number(0.93, 1.07);
      }
      if (!devices::FindSolidFault(params)) return params;
    }
  }

  /// Steps from the rear to the front, which is at x = 0 or beyond it.
  Polygon Steps(double length, double radius, double bore, double front) {
    const double middle = -length * Number(0.3, 0.7);
    const double rear = radius + (Chance(0.3) ? Near() : 0);
    if (bore > 0 && Chance(0.4)) {
      const double depth = front - Number(0.5, std::min(20.0, length / 2));
      return {{-length, 0},    {depth, 0},       {depth, bore},  {front, bore},
              {front, radius}, {middle, radius}, {middle, rear}, {-length, rear}};
    }
    return {{-length, bore},  {front, bore},  {front, radius},
            {middle, radius}, {middle, rear}, {-length, rear}};
  }

  geometry::Kurve KurveOf(const Polygon& polygon) {
    geometry::Kurve curve;
    curve.Start(geometry::Point(polygon.front().x, polygon.front().y));
    for (std::size_t i = 1; i <= polygon.size(); ++i)
      curve.Add(geometry::Point(polygon[i % polygon.size()].x, polygon[i % polygon.size()].y));
    return curve;
  }

  /// Puts a part under a name, as a figure or as a solid; returns whether it is a solid.
  bool AddPart(const std::string& name, const Polygon& polygon) {
    own_[name] = polygon;
    if (!Chance(0.06)) {
      figures[name] = KurveOf(polygon);
      return false;
    }
    AddSolid(name, KurveOf(polygon));
    return true;
  }

  void DrawBillet(scene::Spindle& spindle, const std::string& name, double radius, double bore) {
    const double length = Number(25, 200), front = Number(0, 3);
    scene::Billet& billet = spindle.billet;
    billet = {.partLength = length,
              .frontAllowance = front,
              .clampDiameter = 2 * (radius + (Chance(0.4) ? Near() : 0))};
    if (Chance(0.6)) {
      billet.type = scene::billet_type::kCylinder;
      billet.outerDiameter = 2 * radius;
      billet.innerDiameter = 2 * bore;
      billet.rearAllowance = Number(0, 4);
      if (Chance(0.2)) billet.barLength = Number(300, 900);
      const double rear = billet.barLength > 0 ? front - billet.barLength : -length - billet.rearAllowance;
      own_[name] = {{rear, bore}, {front, bore}, {front, radius}, {rear, radius}};
      return;
    }
    const bool isSolid = AddPart(name, Steps(length, radius, bore, front));
    billet.type = isSolid ? scene::billet_type::kSolid : scene::billet_type::kFigures;
    (isSolid ? billet.solid : billet.outside) = name;
  }

  void DrawPart(scene::Spindle& spindle, const std::string& name, double radius, double bore) {
    const double length = Number(0.3, 1) * spindle.billet.partLength;
    const bool isSolid = AddPart(name, Steps(length, std::max(radius + Near(), bore + 2), bore, 0));
    spindle.finishPart.type = isSolid ? scene::finish_part_type::kSolid : scene::finish_part_type::kFigures;
    (isSolid ? spindle.finishPart.solid : spindle.finishPart.outside) = name;
  }

  void DrawSide(std::size_t number, const std::string& name) {
    scene::Spindle& spindle = equipment.spindles[number];
    spindle = {};
    double radius = Number(12, 60), bore = Chance(0.5) ? radius * Number(0.2, 0.8) : 0;
    if (Chance(0.6)) {
      spindle.clamp = {"chuck", Device(1)};
      if (Chance(0.9)) spindle.jaw = {"jaw", Device(static_cast<std::int32_t>(5 + Pick(8)))};
      spindle.clampsInside = bore > 8 && Chance(0.3);
    } else if (Chance(0.6)) {
      spindle.clamp = {"collet", Device(2)};
      radius = spindle.clamp.params.D + Near();
      bore = Chance(0.5) ? radius * Number(0.2, 0.8) : 0;
    } else if (Chance(0.5)) {
      spindle.clamp = {"face driver", Device(4)};
      radius = spindle.clamp.params.F * Number(0.8, 2);
      bore = 0;
    } else {
      spindle.clamp = {"mandrel", Device(3)};
      spindle.clampsInside = true;
      bore = spindle.clamp.params.F + Near();
      radius = bore + Number(4, 30);
    }
    DrawBillet(spindle, name + " billet", radius, bore);
    if (Chance(0.5)) DrawPart(spindle, name + " finish part", radius, bore);
    spindle.clampingOut = Chance(0.85) ? Number(2, spindle.billet.partLength) : 0;
  }

  void Draw(std::uint32_t seed) {
    random_.seed(seed);
    figures.clear();
    solids.clear();
    own_.clear();
    equipment = {};
    DrawSide(0, "main");
    equipment.spindles[0].origin = Number(80, 300);
    if (Chance(0.5)) {
      DrawSide(1, "sub");
      equipment.spindles[1].origin = equipment.spindles[0].origin + Number(1, Chance(0.5) ? 200 : 40);
    } else if (Chance(0.7)) {
      equipment.center = {"center", Device(static_cast<std::int32_t>(13 + Pick(2)), Number(0.3, 1))};
    }
    equipment.usesSteadyRest = Chance(0.4);
    // A steady rest that reaches beyond the billet.
    if (equipment.usesSteadyRest && Chance(0.5)) equipment.spindles[0].clampingOut = Number(2, 30);
  }

  /// The ring of a steady rest, for which the machine says nothing, and its arms, which touch the billet.
  SampledShape SteadyRestAt(double x) const {
    constexpr double kRoll = 15, kRoom = 10, kHeight = 25, kHalf = 20, kHalfOfArm = 12;
    const scene::Spindle& spindle = equipment.spindles[0];
    const double outside = std::ranges::max(own_.at("main billet"), {}, &PlanePoint::y).y;
    const double held = spindle.clampsInside ? outside : spindle.billet.clampDiameter / 2;
    const double low = held + 2 * kRoll + kRoom, high = low + kHeight;
    SampledShape rest = {{{x - kHalf, low}, {x + kHalf, low}, {x + kHalf, high}, {x - kHalf, high}}};
    for (const double angle : {0.0, 120.0, 240.0})
      rest.arms.push_back({x - kHalfOfArm, x + kHalfOfArm, held + kRoll, low, kRoll, angle});
    return rest;
  }

  /// A body where it is. Jaws have a thickness; in their middle plane they have none.
  SampledShape ShapeOf(const SceneBody& body) const {
    if (body.kind == Kind::kSteadyRest)
      return SteadyRestAt(body.placement.Transform(geometry::Point3d(0, 0, 0)).x);
    const scene::Spindle& spindle = equipment.spindles[body.name.starts_with("sub ") ? 1 : 0];
    const bool isJaw = body.kind == Kind::kJaw;
    const auto found = own_.find(body.name);
    Polygon own = found == own_.end() ? Polygon() : found->second;
    const DeviceParams& params = body.kind == Kind::kCenter ? equipment.center.params
                                 : isJaw                    ? spindle.jaw.params
                                                            : spindle.clamp.params;
    if (found == own_.end()) {
      for (const OutlineVertex& vertex : OutlineOf(params)) own.push_back({vertex.x, vertex.y});
    }
    for (PlanePoint& point : own) {
      const auto placed = body.placement.Transform(isJaw ? geometry::Point3d(point.x, 0, point.y)
                                                         : geometry::Point3d(point.x, 0, 0));
      point = {placed.x, isJaw ? placed.y : point.y};
    }
    return {own, isJaw ? devices::ThicknessOf(params) : 0};
  }

  static bool IsSolid(const SceneBody& body) { return !body.profile; }

  const SceneBody* Find(const scene::Scene& scene, const std::string& ending) const {
    const auto found = std::ranges::find_if(
        scene.bodies, [&](const SceneBody& each) { return each.name.ends_with(ending); });
    return found == scene.bodies.end() ? nullptr : &*found;
  }

  const check::Finding* FindingOf(const std::string& rule, const SceneBody& a, const SceneBody& b,
                                  const char* value) const {
    const auto isIt = [&](const check::Finding& finding) {
      return finding.rule->id == rule && finding.values.front().name == std::string(value) &&
             (rule == "EQ-201" ? finding.bodies.back() == b.name
                               : finding.bodies == std::vector<std::string>{a.name, b.name});
    };
    const auto found = std::ranges::find_if(found_, isIt);
    return found == found_.end() ? nullptr : &*found;
  }

  struct Case {
    std::string rule;
    const SceneBody* a;
    const SceneBody* b;
    bool isFlat;    ///< jaws in their middle planes
    bool isBeyond;  ///< what the first one has outside of the second one
  };

  /// Compares a finding, or that there is none, with what points say.
  void Compare(const Case& each) {
    if (each.a == nullptr || each.b == nullptr) return;
    SampledShape a = ShapeOf(*each.a), b = ShapeOf(*each.b);
    if (each.isFlat) a.thickness = b.thickness = 0;
    const bool isExact = a.IsFlat() && b.IsFlat() && !IsSolid(*each.a) && !IsSolid(*each.b);
    const double width = 2 * (each.isBeyond ? DeepestBeyond(a, b) : DeepestCommon(a, b));
    const check::Finding* const finding =
        FindingOf(each.rule, *each.a, *each.b, each.isBeyond ? "volume" : "overlap");
    const std::string what = each.rule + " " + each.a->name + ", " + each.b->name;
    if (finding == nullptr) {
      // A ball in what they have in common is half as deep as it is wide.
      const double most = isExact ? kTolerance : each.isFlat ? 0.15 : 0.3;
      EXPECT_LE(width, most * 1.01 + kLoose) << what;
      return;
    }
    EXPECT_GT(width, isExact ? kTolerance - kLoose : 0) << what;
    const double overlap = ValueOf(*finding, "overlap");
    EXPECT_TRUE(!isExact || each.rule == "EQ-201" || width <= overlap * 1.01 + kLoose) << what;
    found_counts_[each.rule] += 1;
  }

  /// The center touches the billet, cuts into it, or is away from it.
  void CompareCenter(const scene::Scene& scene) {
    const SceneBody *const center = Find(scene, "center"), *const billet = Find(scene, "main billet");
    if (center == nullptr || billet == nullptr) return;
    Compare({"EQ-206", center, billet, false, false});
    const double nearest = NearestOf(ShapeOf(*center), ShapeOf(*billet));
    if (FindingOf("EQ-206", *center, *billet, "gap") != nullptr) {
      EXPECT_GT(nearest, kTolerance - kLoose);
      found_counts_["EQ-206"] += 1;
    } else if (FindingOf("EQ-206", *center, *billet, "overlap") == nullptr) {
      EXPECT_LE(nearest, 0.2) << "EQ-206 gap";
    }
  }

  void CompareAll(const scene::Scene& scene) {
    for (const std::string side : {"main ", "sub "}) {
      const SceneBody *const billet = Find(scene, side + "billet"), *const part =
                                                                        Find(scene, side + "finish part");
      const SceneBody *const jaw = Find(scene, side + "jaw 1"), *const clamp = ClampOf(scene, side);
      Compare({"EQ-201", jaw, billet, true, false});
      Compare({"EQ-203", clamp, billet, false, false});
      Compare({"EQ-204", clamp, part, false, false});
      Compare({"EQ-204", jaw, part, true, false});
      Compare({"EQ-301", part, billet, false, true});
    }
    Compare({"EQ-204", Find(scene, "center"), Find(scene, "main finish part"), false, false});
    for (const SceneBody* const main :
         {ClampOf(scene, "main "), Find(scene, "main jaw 1"), Find(scene, "steady rest")}) {
      for (const SceneBody* const other :
           {ClampOf(scene, "sub "), Find(scene, "sub jaw 1"), Find(scene, "center")})
        Compare({"EQ-205", main, other, false, false});
    }
    CompareCenter(scene);
  }

  static const SceneBody* ClampOf(const scene::Scene& scene, const std::string& side) {
    const auto found = std::ranges::find_if(scene.bodies, [&](const SceneBody& each) {
      return each.kind == Kind::kClamp && each.name.starts_with(side);
    });
    return found == scene.bodies.end() ? nullptr : &*found;
  }

  void Run(std::uint32_t seed) {
    SCOPED_TRACE("VANZET_RANDOM_SEED=" + std::to_string(seed));
    Draw(seed);
    const scene::Scene scene = Scene();
    found_ = FindingsIn(scene);
    CompareAll(scene);
  }

  std::map<std::string, int> found_counts_;

 private:
  std::mt19937 random_;
  std::map<std::string, Polygon> own_;  ///< billets and parts, by the names of their bodies
  std::vector<check::Finding> found_;
};

std::uint32_t NumberFrom(const char* variable, std::uint32_t otherwise) {
  const char* const text = std::getenv(variable);
  return text == nullptr ? otherwise : static_cast<std::uint32_t>(std::stoul(text));
}

TEST_F(RandomSetups, HaveTheFindingsThatPointsSay) {
  const std::uint32_t first = NumberFrom("VANZET_RANDOM_SEED", 1),
                      count = NumberFrom("VANZET_RANDOM_SETUPS", 60);
  for (std::uint32_t seed = first; seed < first + count; ++seed) Run(seed);
  if (count < 60) return;
  for (const char* const rule : {"EQ-201", "EQ-203", "EQ-204", "EQ-205", "EQ-206", "EQ-301"})
    EXPECT_GT(found_counts_[rule], 0) << rule << " was not tried";
}

}  // namespace
}  // namespace vanzet::test
