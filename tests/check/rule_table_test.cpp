#include "setup_fixture.h"

// Each rule at its limit: a set-up that just raises it and one that just does not, on both spindles.
namespace vanzet::test {
namespace {

constexpr DeviceParams kSteppedChuck = {1, 80, 90, 81};  // the bore is wider than the chuck

}  // namespace

/// The set-up that is possible, with the changes that the rows of the table make.
class RuleTable : public SetupTest {
 public:
  using Step = void (*)(RuleTable& setup, bool isRaised);

  scene::Spindle& spindle() { return isSub ? equipment.spindles[1] : equipment.spindles[0]; }
  void WithoutJaws(const char* name, const DeviceParams& clamp) {
    spindle().clamp = {name, clamp};
    spindle().jaw = {};
  }

  /// A billet of a figure, 100 mm long from the face of the part.
  void Billet(double outside, double inside = 0, double front = 2) {
    figures["billet"] = Rectangle(-100, inside, front, outside);
    spindle().billet = {.type = scene::billet_type::kFigures, .partLength = 100, .outside = "billet"};
    spindle().billet.clampDiameter = 2 * (spindle().clampsInside ? inside : outside);
  }
  void SolidBillet(double radius, double clampDiameter) {
    AddSolid("billet", Rectangle(-100, 0, 2, radius));
    spindle().billet = {.type = scene::billet_type::kSolid,
                        .partLength = 100,
                        .clampDiameter = clampDiameter,
                        .solid = "billet"};
  }
  void Part(const geometry::Kurve& section) {
    figures["part"] = section;
    spindle().finishPart = {.type = scene::finish_part_type::kFigures, .outside = "part"};
  }
  void Figures(const std::string& device, const std::string& json) {
    auto read =
        catalogue::MakerData::Read(R"({"version":1,"devices":{")" + device + "\":" + json + "}}", "maker");
    ASSERT_TRUE(read) << read.fault().text;
    shop.maker = *std::move(read);
  }
  /// The device that the figures are about is on this side alone.
  void NameAlone() {
    spindle().clamp.name = "the chuck";
    spindle().jaw.name = "the jaw";
  }
  void Catalogue(const std::string& text) { shop.catalogue = catalogue::Catalogue::Read(text); }
  void Center() {
    equipment.spindles[1] = {};
    equipment.center = {"Center", kCenter};
  }

  using SetupTest::definition;
  using SetupTest::equipment;
  using SetupTest::Findings;
  using SetupTest::job;
  using SetupTest::kCollet;
  using SetupTest::Rectangle;
  using SetupTest::RuleAndPlace;

  bool isSub = false;

 private:
  void TestBody() override {}
};

namespace {

/// The side of the finding, or the part that has no side.
enum class Place { kSide, kDatum, kSubAlways, kMainAlways, kCenter };

struct RuleRow {
  const char* rule;
  const char* name;
  Place place;
  RuleTable::Step step;

  friend void PrintTo(const RuleRow& row, std::ostream* out) { *out << row.rule << " " << row.name; }
};

using S = RuleTable;

// clang-format off
const RuleRow kRows[] = {
    {"EQ-101", "NoDevice",          Place::kSide,   [](S& s, bool is) { s.WithoutJaws("Collet", S::kCollet); if (is) s.spindle().clamp = {}; }},
    {"EQ-101", "ChuckWithoutJaws",  Place::kSide,   [](S& s, bool is) { if (is) s.spindle().jaw = {}; }},
    {"EQ-102", "BoreOfTheChuck",    Place::kSide,   [](S& s, bool is) { if (is) s.spindle().clamp.params = kSteppedChuck; }},
    {"EQ-102", "LengthOfTheJaw",    Place::kSide,   [](S& s, bool is) { s.spindle().jaw.params.B = is ? 0 : 62; }},
    {"EQ-102", "Center",            Place::kCenter, [](S& s, bool is) { s.Center(); if (is) s.equipment.center.params.B = -1; }},
    {"EQ-103", "OtherValue",        Place::kSide,   [](S& s, bool is) { s.Catalogue("Chuck 160\n1 80 90 22.5 0 0 0 0 0 0 0\n"); s.spindle().clamp.params.C = is ? 22.50002 : 22.500005; }},
    {"EQ-103", "OtherShape",        Place::kSide,   [](S& s, bool is) { s.spindle().jaw.name = "the jaw"; s.Catalogue(is ? "the jaw\n10 38 62 12 24 0 0 0 0 0 0\n" : "the jaw\n9 38 62 12 24 0 0 0 0 0 0\n"); }},
    {"EQ-104", "MissingSolid",      Place::kSide,   [](S& s, bool is) { s.SolidBillet(21, 42); if (is) s.spindle().billet.solid = "nowhere"; }},
    {"EQ-105", "OlderDefinition",   Place::kMainAlways, [](S& s, bool is) { s.equipment.spindles = {}; s.definition.version = is ? 99 : 100; }},
    {"EQ-201", "Solid",             Place::kSide,   [](S& s, bool is) { s.SolidBillet(is ? 21.13 : 21.04, 42); }},
    {"EQ-201", "Figure",            Place::kSide,   [](S& s, bool is) { s.Billet(is ? 21.06 : 21.04); s.spindle().billet.clampDiameter = 42; }},
    {"EQ-201", "ClampedInside",     Place::kSide,   [](S& s, bool is) { s.spindle().clampsInside = true; s.Billet(45, 30); s.spindle().billet.clampDiameter = is ? 60.12 : 60.08; }},
    {"EQ-202", "Figure",            Place::kSide,   [](S& s, bool is) { s.Billet(is ? 20.94 : 20.96); s.spindle().billet.clampDiameter = 42; }},
    {"EQ-202", "ClampedInside",     Place::kSide,   [](S& s, bool is) { s.spindle().clampsInside = true; s.Billet(45, 30); s.spindle().billet.clampDiameter = is ? 59.88 : 59.92; }},
    {"EQ-203", "Bore",              Place::kSide,   [](S& s, bool is) { s.WithoutJaws("Collet", S::kCollet); s.Billet(is ? 21.06 : 21.04); }},
    {"EQ-203", "Stop",              Place::kSide,   [](S& s, bool is) { s.spindle().billet.outerDiameter = s.spindle().billet.clampDiameter = 60; s.spindle().billet.rearAllowance = is ? 2.1 : 2.04; }},
    {"EQ-204", "Jaw",               Place::kSide,   [](S& s, bool is) { s.Part(S::Rectangle(-100, 0, 0, is ? 21.06 : 21.04)); }},
    {"EQ-204", "ClampDevice",       Place::kSide,   [](S& s, bool is) { s.WithoutJaws("Collet", S::kCollet); s.Part(S::Rectangle(-100, 0, 0, is ? 21.06 : 21.04)); }},
    {"EQ-204", "Center",            Place::kCenter, [](S& s, bool is) { s.isSub = false; s.Center(); s.Part(S::Rectangle(-30, 0, is ? 2.2 : 2, 5)); }},
    {"EQ-205", "Jaws",              Place::kSubAlways, [](S& s, bool is) { s.equipment.spindles[0].clampingOut = 2; s.equipment.spindles[1].billet = {}; s.equipment.spindles[1].clampingOut = 0; s.equipment.spindles[1].origin = is ? 159.88 : 159.96; }},
    {"EQ-206", "HoleOfTheBillet",   Place::kCenter, [](S& s, bool is) { s.isSub = false; s.Center(); s.Billet(is ? 60 : 25, is ? 40 : 5); s.spindle().billet.clampDiameter = is ? 120 : 50; }},
    {"EQ-301", "Outside",           Place::kSide,   [](S& s, bool is) { s.Part(S::Rectangle(-30, 0, 0, is ? 21.06 : 21.04)); }},
    {"EQ-301", "Front",             Place::kSide,   [](S& s, bool is) { s.Part(S::Rectangle(-30, 0, is ? 2.06 : 2.04, 20)); }},
    {"EQ-302", "AThird",            Place::kSide,   [](S& s, bool is) { s.spindle().clampingOut = is ? 86.1 : 86; }},
    {"EQ-303", "WithoutACenter",    Place::kSide,   [](S& s, bool is) { s.spindle().billet.partLength = 300; s.spindle().clampingOut = is ? 124.01 : 124; }},
    {"EQ-304", "Origin",            Place::kDatum,  [](S& s, bool is) { s.Billet(21, 0, is ? -0.06 : -0.04); }},
    {"EQ-304", "ClampingOut",       Place::kDatum,  [](S& s, bool is) { s.spindle().clampingOut = is ? 99.96 : 99.94; }},
    {"EQ-305", "Bar",               Place::kSide,   [](S& s, bool is) { s.NameAlone(); s.Figures("the chuck", R"({"max_bar_length": 1000})"); s.spindle().billet.barLength = is ? 1000.1 : 1000; }},
    {"EQ-401", "Least",             Place::kSide,   [](S& s, bool is) { s.NameAlone(); s.Figures("the chuck", is ? R"({"clamp_outside": [42.1, 90]})" : R"({"clamp_outside": [42, 90]})"); }},
    {"EQ-401", "MostOfTheJaw",      Place::kSide,   [](S& s, bool is) { s.NameAlone(); s.Figures("the jaw", is ? R"({"clamp_outside": [20, 41.9]})" : R"({"clamp_outside": [20, 42]})"); }},
    {"EQ-402", "Speed",             Place::kSide,   [](S& s, bool is) { s.NameAlone(); s.Figures("the chuck", R"({"max_speed": 4500})"); s.job.speed = is ? 4501 : 4500; }},
    {"EQ-402", "ForceOfTheJaw",     Place::kSide,   [](S& s, bool is) { s.NameAlone(); s.Figures("the jaw", R"({"max_force": 60})"); s.job.force = is ? 60.1 : 60; }},
    {"EQ-402", "Mass",              Place::kSide,   [](S& s, bool is) { s.NameAlone(); s.Figures("the chuck", is ? R"({"max_mass": 1.1})" : R"({"max_mass": 1.12})"); }},
};
// clang-format on

class RuleAtItsLimit : public testing::TestWithParam<RuleRow> {
 protected:
  /// "EQ-201 main", and the same rule elsewhere, of the row on a side.
  static std::vector<std::string> Found(bool isSub, bool isRaised) {
    RuleTable setup;
    setup.isSub = isSub;
    GetParam().step(setup, isRaised);
    std::vector<std::string> found;
    for (const check::Finding& finding : setup.Findings()) {
      if (finding.rule->id != GetParam().rule) continue;
      found.push_back(RuleTable::RuleAndPlace(finding));
    }
    return found;
  }
  static std::string PlaceOn(bool isSub) {
    switch (GetParam().place) {
      case Place::kSide: return isSub ? "sub" : "main";
      case Place::kDatum: return "datum";
      case Place::kSubAlways: return "sub";
      case Place::kMainAlways: return "main";
      case Place::kCenter: return "center";
    }
    return {};
  }
};
INSTANTIATE_TEST_SUITE_P(Rules, RuleAtItsLimit, testing::ValuesIn(kRows), [](const auto& each) {
  return std::string(each.param.rule).replace(2, 1, "") + each.param.name;
});

TEST_P(RuleAtItsLimit, IsRaisedBeyondItAndNotWithinOnBothSpindles) {
  for (const bool isSub : {false, true}) {
    EXPECT_THAT(Found(isSub, true), testing::Each(std::string(GetParam().rule) + " " + PlaceOn(isSub)));
    EXPECT_THAT(Found(isSub, true), testing::Not(testing::IsEmpty())) << PlaceOn(isSub);
    EXPECT_THAT(Found(isSub, false), testing::IsEmpty()) << PlaceOn(isSub);
  }
}

TEST(TableOfRules, HasARowForEachRule) {
  for (const check::Rule& rule : check::Rules()) {
    EXPECT_TRUE(std::ranges::any_of(kRows, [&](const RuleRow& row) { return row.rule == rule.id; }))
        << rule.id;
  }
}

}  // namespace
}  // namespace vanzet::test
