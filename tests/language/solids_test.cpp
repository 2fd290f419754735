#include "modeller/measures.h"

#include "language/language_fixture.h"

namespace vanzet::language {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr double kPi = 3.14159265358979323846;

class Solids : public LanguageTest {
 protected:
  Solids() {
    // A ring section from 10 to 30 along y, 20 behind the face.
    DoAll({"win 0", "s100=h 10", "s101=v 0", "s102=h 30", "s103=v -20", "p100=s101 s100",
           "k30000 p100 as100 ts103 ts102 as101 p100 ek"});
  }

  std::int32_t Body() const { return *variables.Integer("i_return"); }
  modeller::Measures Measured() { return *modeller::MeasuresOf(*bodies.Get(Body())); }
  geometry::Box3d Extents() { return *modeller::Extents(*bodies.Get(Body())); }
};

TEST_F(Solids, AreSpunAboutTheAxis) {
  DoAll({"sld spu kur k30000 0 0 0 1 0 0 360 i_return"});
  EXPECT_EQ(Body(), 1);
  EXPECT_NEAR(Measured().volume, kPi * (30 * 30 - 10 * 10) * 20, 1e-6);
}

TEST_F(Solids, AreExtrudedUpwards) {
  DoAll({"sld ext kur k30000 12.500000 i_return"});
  EXPECT_NEAR(Measured().volume, 20 * 20 * 12.5, 1e-9);
  EXPECT_NEAR(Extents().max.z, 12.5, 1e-3);
}

TEST_F(Solids, AreMovedAndTurned) {
  DoAll({"sld ext kur k30000 10 i_return", "sld tra 1 i_return 0 0 0 0 0 -5"});
  EXPECT_NEAR(Extents().min.z, -5, 1e-3);
  DoAll({"sld rot 1 1 0 0 0 1 0 0 90"});
  EXPECT_NEAR(Extents().min.y, -5, 1e-3);
  EXPECT_NEAR(Extents().max.z, 30, 1e-3);
}

TEST_F(Solids, HaveNumbersThatAreNeverUsedTwice) {
  DoAll({"sld ext kur k30000 1 i_return"});
  ASSERT_TRUE(bodies.Delete(1));
  DoAll({"sld ext kur k30000 1 i_return"});
  EXPECT_EQ(Body(), 2);
}

TEST_F(Solids, ThatCannotBeMadeHaveTheNumberZeroAndAReason) {
  DoAll({"i_return=9", "s104=h -5", "k2 p100 as100 ts103 ts104 as101 p100 ek"});
  EXPECT_THAT(Outcome("sld spu kur k2 0 0 0 1 0 0 360 i_return"), HasSubstr("13: "));
  EXPECT_EQ(Body(), 0);
  DoAll({"i_return=9", "p101=s103 s100", "k3 p100 as100 p101 ek"});
  EXPECT_THAT(Outcome("sld ext kur k3 5 i_return"), HasSubstr("open"));
  EXPECT_EQ(Body(), 0);
  DoAll({"i_return=9"});
  EXPECT_THAT(Outcome("sld ext kur k4 5 i_return"), HasSubstr("k4 does not exist"));
  EXPECT_EQ(Body(), 0);
  DoAll({"i_return=9"});
  EXPECT_NE(Outcome("sld ext kur k30000 0 i_return"), "done");
  EXPECT_EQ(Body(), 0);
}

TEST_F(Solids, AreExportedAsFacets) {
  DoAll({"sld spu kur k30000 0 0 0 1 0 0 360 i_return"});
  const std::string file = (folder / "body.wrl").string();
  DoAll({"dll kelvane.dll exportVRML '" + file + "' 1 1"});
  const std::string text = test::ReadBytes(file);
  EXPECT_TRUE(text.starts_with("#VRML V2.0 utf8\n"));
  EXPECT_THAT(text, HasSubstr("\n    coordIndex\n"));
}

TEST_F(Solids, TakeABackslashInTheFilesPathForASeparator) {
  DoAll({"sld ext kur k30000 1 i_return",
         "dll kelvane.dll exportVRML '" + folder.path().string() + "\\tmpclamp.wrl' 1 1"});
  EXPECT_TRUE(std::filesystem::exists(folder / "tmpclamp.wrl"));
}

TEST_F(Solids, ThatDoNotExistLeaveAnOldFile) {
  test::WriteBytes(folder / "old.wrl", "old");
  EXPECT_NE(Outcome("dll kelvane.dll exportVRML '" + (folder / "old.wrl").string() + "' 1 0"), "done");
  EXPECT_EQ(test::ReadBytes(folder / "old.wrl"), "old");
}

TEST_F(Solids, AreNotWrittenOverTheStore) {
  DoAll({"sld ext kur k30000 1 i_return"});
  EXPECT_NE(Outcome("dll kelvane.dll exportVRML '" + (folder / "store.db").string() + "' 1 1"), "done");
}

TEST_F(Solids, AreRefusedWithColumnAndWhatWasExpected) {
  EXPECT_EQ(Outcome("sld spu k1 0 0 0 1 0 0 360 i_return"), "9: expected 'kur', found 'k1'");
  EXPECT_THAT(Outcome("sld spu kur k1 0 0 0 1 0 0 i_return"),
              HasSubstr("expected the point and the direction"));
  EXPECT_THAT(Outcome("sld cut 1 2"), HasSubstr("expected one of 'ext', 'rot', 'spu', 'tra'"));
  EXPECT_THAT(Outcome("sld tra 1 99 0 0 0 0 0 1"), HasSubstr("11: "));
  EXPECT_THAT(Outcome("dll other.dll exportVRML 'a' 1 1"), HasSubstr("kelvane.dll"));
}

}  // namespace
}  // namespace vanzet::language
