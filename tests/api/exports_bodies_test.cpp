#include <array>
#include <cstdlib>
#include <filesystem>
#include <sstream>

#include "api/host_fixture.h"
#include "support/places.h"

namespace vanzet::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// A project with the bodies of the examples: casting.step and scan.stl.
class BodyExports : public HostTest {
 protected:
  BodyExports() {
    std::filesystem::copy(VANZET_SOURCE_DIR "/examples/bodies", folder / "bodies",
                          std::filesystem::copy_options::recursive);
    setenv("VANZET_EXCHANGE", VANZET_EXCHANGE_FILE, 1);
  }

  void PickFrom(const std::string& text) {
    std::istringstream lines(text);
    host->picks = std::make_unique<drawing::Picks>(*drawing::Picks::Read(lines, "picks.txt"));
  }

  static std::int32_t Select() {
    std::int32_t object = -9;
    OrvoSelectOneObject(0, 18432, "Select Solid!", &object);
    return object;
  }
};

TEST_F(BodyExports, FindTheBodiesOfTheFolderByName) {
  const std::int32_t casting = OrvoPsGetBodyNumberFromName("casting");
  EXPECT_GE(casting, 1);
  EXPECT_STREQ(OrvoPsGetBodyNameFromNumber(casting), "casting");
  EXPECT_EQ(OrvoPsGetBodyNumberFromName("casting"), casting) << "it is read once";
  EXPECT_EQ(OrvoIsBodyAnSTLObject(casting), 0);
  EXPECT_EQ(OrvoIsBodyAnSTLObject(OrvoPsGetBodyNumberFromName("scan")), 1);
  EXPECT_THAT(panel.lines, IsEmpty());
}

TEST_F(BodyExports, HaveNoNumberForANameThatNobodyHas) {
  EXPECT_EQ(OrvoPsGetBodyNumberFromName("ghost"), 0);
  EXPECT_THAT(panel.lines, ElementsAre(HasSubstr("ghost")));
  EXPECT_EQ(OrvoPsGetBodyNumberFromName(""), 0);
  EXPECT_THAT(panel.lines, testing::SizeIs(1));
  EXPECT_STREQ(OrvoPsGetBodyNameFromNumber(99), "");
}

TEST_F(BodyExports, ReturnExtentsInMetres) {
  for (const char* line :
       {"win 0", "s100=h 10", "s101=v 0", "s102=h 30", "s103=v -20", "p100=s101 s100",
        "k1 p100 as100 ts103 ts102 as101 p100 ek", "sld spu kur k1 0 0 0 1 0 0 360 i_return"}) {
    OrvoCommand(line);
  }
  std::array<double, 6> extents = {};
  OrvoPsGetExtents(1, extents.data());
  const double expected[] = {-0.02, -0.03, -0.03, 0, 0.03, 0.03};
  for (std::size_t i = 0; i < 6; ++i) EXPECT_NEAR(extents[i], expected[i], 1e-6) << i;
  EXPECT_THAT(panel.lines, IsEmpty());
}

TEST_F(BodyExports, LeaveTheExtentsOfNoBodyAlone) {
  std::array<double, 6> extents = {7};
  OrvoPsGetExtents(5, extents.data());
  OrvoPsGetExtents(5, nullptr);
  EXPECT_EQ(extents[0], 7);
  EXPECT_THAT(panel.lines, ElementsAre(HasSubstr("5"), HasSubstr("5")));
}

TEST_F(BodyExports, ArePickedByName) {
  PickFrom("object casting\ncancel\nobject ghost\nposition 1 2\n");
  OrvoClearSelection();
  const std::int32_t object = Select();
  EXPECT_STREQ(OrvoPsGetBodyNameFromNumber(OrvoGetObjectParasolidEntityNumber(object)), "casting");
  EXPECT_EQ(OrvoGetObjectParasolidEntityNumber(Select()), 0) << "cancelled";
  EXPECT_THAT(panel.lines, IsEmpty());
  EXPECT_EQ(Select(), 0);
  EXPECT_THAT(panel.lines, ElementsAre(HasSubstr("picks.txt:3: ")));
  EXPECT_EQ(Select(), 0) << "a pick of another kind";
  EXPECT_EQ(Select(), 0) << "none is left";
}

TEST_F(BodyExports, AreDeletedByNumber) {
  const std::int32_t casting = OrvoPsGetBodyNumberFromName("casting");
  OrvoPsDeleteBody(casting);
  EXPECT_EQ(OrvoGetObjectParasolidEntityNumber(casting), 0);
  OrvoPsDeleteBody(casting);
  EXPECT_THAT(panel.lines, testing::SizeIs(1)) << "it is gone";
}

}  // namespace
}  // namespace vanzet::test
