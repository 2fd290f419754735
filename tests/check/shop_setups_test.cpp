#include "project_fixture.h"

// Set-ups as shops run them, of which nothing may be reported.
namespace vanzet::test {
namespace {

struct ShopSetup {
  const char* name;
  const char* spur;       ///< the members of a spur of a form
  const char* form = "";  ///< further members of the form

  friend void PrintTo(const ShopSetup& setup, std::ostream* out) { *out << setup.name; }
};

// clang-format off
constexpr ShopSetup kSetups[] = {
    {"BarInACollet", R"("main": {"collet": {"name": "Collet D32"},
        "billet": {"kind": "cylinder", "outer_diameter": 32, "part_length": 60, "front_allowance": 1, "bar_length": 1000}},
        "datum": {"main": {"clamping_out": 75, "origin": 20}})"},
    {"ThinBarInACollet", R"("main": {"collet": {"name": "Collet D20"},
        "billet": {"kind": "cylinder", "outer_diameter": 20, "part_length": 30, "front_allowance": 0.5, "rear_allowance": 3, "bar_length": 600}},
        "datum": {"main": {"clamping_out": 40, "origin": 10}})"},
    {"TubeInAColletOfItsOwn", R"("main": {"collet": {"name": "Collet D80", "letters": {"A": 60, "B": 110, "C": 15, "D": 40, "E": 66, "F": 3}},
        "billet": {"kind": "cylinder", "outer_diameter": 80, "inner_diameter": 60, "part_length": 120, "front_allowance": 2, "rear_allowance": 0}},
        "datum": {"main": {"clamping_out": 70, "origin": 200}})"},
    {"BarThroughALargeBore", R"("main": {"chuck": {"name": "Chuck 254 large bore"}, "jaw": {"name": "Soft jaw 210"},
        "billet": {"kind": "cylinder", "outer_diameter": 80, "part_length": 90, "front_allowance": 2, "bar_length": 800}},
        "datum": {"main": {"clamping_out": 110, "origin": 150}})"},
    {"SawnBlankInSoftJaws", R"("main": {"chuck": {"name": "Chuck 210"}, "jaw": {"name": "Soft jaw 210"},
        "billet": {"kind": "cylinder", "outer_diameter": 120, "part_length": 90, "front_allowance": 2, "rear_allowance": 1}},
        "datum": {"main": {"clamping_out": 45, "origin": 200}})"},
    {"ShaftAgainstTheChucksFace", R"("main": {"chuck": {"name": "Chuck 160"}, "jaw": {"name": "Hard jaw 160 inside stepped"},
        "billet": {"kind": "cylinder", "outer_diameter": 60, "part_length": 150, "front_allowance": 0, "rear_allowance": 0}},
        "datum": {"main": {"clamping_out": 84, "origin": 250}})"},
    {"RingHeldFromInside", R"("main": {"chuck": {"name": "Chuck 210"}, "jaw": {"name": "Soft jaw 210", "inside": true},
        "billet": {"kind": "cylinder", "outer_diameter": 180, "inner_diameter": 110, "part_length": 50, "front_allowance": 1, "rear_allowance": 1}},
        "datum": {"main": {"clamping_out": 11, "origin": 180}})"},
    {"RingInSixJaws", R"("main": {"chuck": {"name": "Chuck 210"}, "jaw": {"name": "Soft jaw 210", "count": 6},
        "billet": {"kind": "cylinder", "outer_diameter": 140, "inner_diameter": 124, "part_length": 80, "front_allowance": 1, "rear_allowance": 1}},
        "datum": {"main": {"clamping_out": 30, "origin": 180}})"},
    {"DiscInFourJaws", R"("main": {"chuck": {"name": "Chuck 254 large bore"}, "jaw": {"name": "Claw jaw 210", "count": 4},
        "billet": {"kind": "cylinder", "outer_diameter": 100, "part_length": 60, "front_allowance": 2, "rear_allowance": 0}},
        "datum": {"main": {"clamping_out": 24, "origin": 190}})"},
    {"GearBlankOnAMandrel", R"("main": {"mandrel": {"name": "Mandrel D40"},
        "billet": {"kind": "cylinder", "outer_diameter": 90, "inner_diameter": 40, "part_length": 45, "front_allowance": 0, "rear_allowance": 0}},
        "datum": {"main": {"clamping_out": 5, "origin": 220}})"},
    {"ShaftBetweenCenters", R"("main": {"face_driver": {"name": "Face driver D80"},
        "billet": {"kind": "cylinder", "outer_diameter": 90, "part_length": 480, "front_allowance": 0, "rear_allowance": 0}},
        "center": {"name": "Center 60 deg MT4"}, "datum": {"main": {"clamping_out": 0, "origin": 600}})"},
    {"ShaftWithASteadyRest", R"("main": {"face_driver": {"name": "Face driver D50"},
        "billet": {"kind": "cylinder", "outer_diameter": 60, "part_length": 520, "front_allowance": 0, "rear_allowance": 0}},
        "center": {"name": "Center 60 deg MT4"}, "datum": {"main": {"clamping_out": 0, "origin": 620}}, "steady_rest": true)"},
    {"ShaftInAChuckWithACenter", R"("main": {"chuck": {"name": "Chuck 160"}, "jaw": {"name": "Soft jaw 160"},
        "billet": {"kind": "cylinder", "outer_diameter": 50, "part_length": 300, "front_allowance": 1, "rear_allowance": 1}},
        "center": {"name": "Center 60 deg MT3"}, "datum": {"main": {"clamping_out": 255, "origin": 400}})"},
    {"LongShaftInAChuckWithBoth", R"("main": {"chuck": {"name": "Chuck 160"}, "jaw": {"name": "Soft jaw 160"},
        "billet": {"kind": "cylinder", "outer_diameter": 44, "part_length": 600, "front_allowance": 1, "rear_allowance": 0}},
        "center": {"name": "Center 60 deg with collar"}, "datum": {"main": {"clamping_out": 560, "origin": 760}}, "steady_rest": true)"},
    {"TubeWithACenterInItsBore", R"("main": {"chuck": {"name": "Chuck 210"}, "jaw": {"name": "Soft jaw 210"},
        "billet": {"kind": "cylinder", "outer_diameter": 100, "inner_diameter": 40, "part_length": 320, "front_allowance": 0, "rear_allowance": 0}},
        "center": {"name": "Center 60 deg MT4"}, "datum": {"main": {"clamping_out": 260, "origin": 460}})"},
    {"PartForTheSubSpindle", R"("main": {"chuck": {"name": "Chuck 160"}, "jaw": {"name": "Soft jaw 160"},
        "billet": {"kind": "cylinder", "outer_diameter": 42, "part_length": 50, "front_allowance": 2, "rear_allowance": 3, "bar_length": 1000}},
        "sub": {"collet": {"name": "Collet D42"}}, "datum": {"main": {"clamping_out": 60, "origin": 120}, "sub": {"clamping_out": 40, "origin": -15}})"},
    {"SecondSideInASubColletBesideTheFirst", R"("main": {"collet": {"name": "Collet D42"},
        "billet": {"kind": "cylinder", "outer_diameter": 42, "part_length": 60, "front_allowance": 1, "bar_length": 700}},
        "sub": {"collet": {"name": "Collet D32"}, "billet": {"kind": "cylinder", "outer_diameter": 32, "part_length": 60, "front_allowance": 0}},
        "datum": {"main": {"clamping_out": 70, "origin": 100}, "sub": {"clamping_out": 35, "origin": 320}})"},
    {"SecondSideOnAMandrelInTheSubSpindle", R"("main": {"chuck": {"name": "Chuck 210"}, "jaw": {"name": "Hard jaw 210 outside stepped"},
        "billet": {"kind": "cylinder", "outer_diameter": 70, "inner_diameter": 22, "part_length": 60, "front_allowance": 1, "rear_allowance": 1}},
        "sub": {"mandrel": {"name": "Mandrel D24"}, "billet": {"kind": "cylinder", "outer_diameter": 70, "inner_diameter": 24, "part_length": 34, "front_allowance": 0}},
        "datum": {"main": {"clamping_out": 30, "origin": 180}, "sub": {"clamping_out": 4, "origin": 420}})"},
    {"CastingThatIsFinishedOnOneSide", R"("main": {"chuck": {"name": "Chuck 210"}, "jaw": {"name": "Soft jaw 210"},
        "billet": {"kind": "solid", "solid": "flange-casting", "part_length": 78, "clamp_diameter": 67.7, "angle": 0},
        "finished_part": {"kind": "solid", "solid": "flange"}}, "datum": {"main": {"clamping_out": 38, "origin": 150}})"},
    {"BarInInches", R"("main": {"chuck": {"name": "Chuck 160"}, "jaw": {"name": "Soft jaw 160"},
        "billet": {"kind": "cylinder", "outer_diameter": 1.5, "part_length": 2.5, "front_allowance": 0.05, "bar_length": 40}},
        "datum": {"main": {"clamping_out": 3, "origin": 5}})", R"("unit": "inch", )"},
    {"BlankInAChuckOfTheShop", R"("main": {"chuck": {"file": "lathe/chuck.vdm"}, "jaw": {"name": "Soft jaw 160"},
        "billet": {"kind": "cylinder", "outer_diameter": 60, "part_length": 90, "front_allowance": 1, "rear_allowance": 0}},
        "datum": {"main": {"clamping_out": 55, "origin": 200}})"},
};
// clang-format on

class ShopSetups : public CheckedProject, public testing::WithParamInterface<ShopSetup> {
 protected:
  ShopSetups() {
    std::filesystem::create_directories(folder / "lathe/bodies");
    for (const char* const name : {"flange-casting.step", "flange.step"}) {
      std::filesystem::copy(std::filesystem::path(VANZET_SOURCE_DIR "/examples/bodies") / name,
                            folder / "lathe/bodies");
    }
  }

  /// A chuck of 160 mm with a bore, from the model that the workbench itself exports of one.
  void MakeOwnChuck() {
    Define(R"("main": {"chuck": {"name": "Chuck 160"}})");
    ASSERT_EQ(Vanzet("export lathe --spur 0 --out models --format stl").status, 0);
    WriteBytes(folder / "outline.txt", "k1 e\nx-90 y22.5\nx0 y22.5\nx0 y80\nx-90 y80\nx-90 y22.5\nek\n");
    const Outcome made = Vanzet(
        "device make --class chuck --body models/main-chuck.stl --face 0 --outline outline.txt --first 90 "
        "-o lathe/chuck.vdm");
    ASSERT_EQ(made.status, 0) << made.err;
  }
};

INSTANTIATE_TEST_SUITE_P(OfAShop, ShopSetups, testing::ValuesIn(kSetups),
                         [](const auto& setup) { return std::string(setup.param.name); });

TEST_P(ShopSetups, HaveNoFinding) {
  if (std::string(GetParam().spur).find("chuck.vdm") != std::string::npos) MakeOwnChuck();
  Define(GetParam().spur, 0, GetParam().form);
  const Json json = Checked();
  EXPECT_TRUE(json["findings"].empty()) << json["findings"].dump(1);
}

}  // namespace
}  // namespace vanzet::test
