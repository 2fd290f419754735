#include "project_fixture.h"

// Definitions and files that do not fit each other, on both spindles.
namespace vanzet::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class StoredProjects : public CheckedProject, public testing::WithParamInterface<bool> {
 protected:
  static std::string Place() { return GetParam() ? "sub" : "main"; }

  /// A spindle that holds a bar, with other members for its chuck and its billet.
  void Hold(const std::string& chuck, const std::string& billet) {
    const std::string place = '"' + Place() + '"';
    Define(place + R"(: {"chuck": )" + chuck + R"(, "jaw": {"name": "Soft jaw 160"}, "billet": )" + billet +
           R"(}, "datum": {)" + place + R"(: {"origin": 100, "clamping_out": 40}})");
  }
  void HoldABar() { Hold(kChuck, kBar); }

  /// Changes what the project has stored, behind the back of the definition.
  void Store(const std::string& from, const std::string& to) {
    ASSERT_EQ(Vanzet("vdm save lathe 1000 job.vdm").status, 0);
    std::string content = ReadBytes(folder / "job.vdm");
    const std::size_t at = content.find(from);
    ASSERT_NE(at, std::string::npos) << from;
    WriteBytes(folder / "job.vdm", content.replace(at, from.size(), to));
    ASSERT_EQ(Vanzet("vdm load lathe job.vdm 1000").status, 0);
  }

  static constexpr const char* kChuck = R"({"name": "Chuck 160"})";
  static constexpr const char* kBar = R"({"kind": "cylinder", "outer_diameter": 42, "part_length": 100})";
};
INSTANTIATE_TEST_SUITE_P(Spindles, StoredProjects, testing::Bool(),
                         [](const auto& each) { return each.param ? "Sub" : "Main"; });

TEST_P(StoredProjects, WithSimulationDataOfOtherValues) {
  HoldABar();
  EXPECT_THAT(Rules(), IsEmpty());
  // The bore, which no other rule asks for here.
  Store(".1 80.000000 90.000000 22.500000 ", ".1 80.000000 90.000000 22.500001 ");
  EXPECT_THAT(Rules(), IsEmpty());
  Store(".1 80.000000 90.000000 22.500001 ", ".1 80.000000 90.000000 22.600000 ");
  EXPECT_THAT(Rules(), ElementsAre("EQ-103 " + Place(), "EQ-105 " + Place()));
  ASSERT_EQ(Vanzet("upgrade lathe").status, 0);
}

TEST_P(StoredProjects, OfAnOlderVersion) {
  HoldABar();
  Store(".100\n", ".99\n");
  EXPECT_THAT(Rules(), testing::Contains("EQ-105 main"));
}

TEST_P(StoredProjects, WithoutTheFileOfAnOwnDevice) {
  HoldABar();
  ASSERT_EQ(Vanzet("export lathe --spur 0 --out models --format stl").status, 0);
  WriteBytes(folder / "outline.txt", "k1 e\nx-90 y22.5\nx0 y22.5\nx0 y80\nx-90 y80\nx-90 y22.5\nek\n");
  ASSERT_EQ(Vanzet("device make --class chuck --body models/" + Place() +
                   "-chuck.stl --face 0 --outline outline.txt --first 90 -o lathe/chuck.vdm")
                .status,
            0);
  Hold(R"({"file": "lathe/chuck.vdm"})", kBar);
  EXPECT_THAT(Rules(), IsEmpty());
  std::filesystem::remove(folder / "lathe/chuck.vdm");
  EXPECT_THAT(Rules(), ElementsAre("EQ-104 " + Place()));
}

TEST_P(StoredProjects, WithoutTheSolidOfABillet) {
  std::filesystem::create_directories(folder / "lathe/bodies");
  std::filesystem::copy(VANZET_SOURCE_DIR "/examples/bodies/flange-casting.step", folder / "lathe/bodies");
  Hold(
      kChuck,
      R"({"kind": "solid", "solid": "flange-casting", "part_length": 78, "clamp_diameter": 67.7, "angle": 0})");
  EXPECT_THAT(Rules(), testing::Not(testing::Contains("EQ-104 " + Place())));
  std::filesystem::remove(folder / "lathe/bodies/flange-casting.step");
  EXPECT_THAT(Rules(), testing::Contains("EQ-104 " + Place()));
}

}  // namespace
}  // namespace vanzet::test
