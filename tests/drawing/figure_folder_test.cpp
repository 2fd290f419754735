#include "drawing/figure_folder.h"

#include "drawing_fixture.h"
#include "support/places.h"

namespace vanzet::drawing {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kTwoContours = "k1 e\nx0 y0\nx5 y0\nek\nk2 e\nx0 y0\nax0 y2 x0 y1\nek\n";

class FigureFiles : public testing::Test {
 protected:
  const test::TemporaryFolder project;
  const FigureFolder figures{project / "figures"};
};

TEST_F(FigureFiles, AreNamedByTheirStems) {
  EXPECT_THAT(figures.Names(), IsEmpty()) << "there is no folder";
  test::WriteBytes(project / "figures/ring.txt", kTwoContours);
  test::WriteBytes(project / "figures/Bar.dxf", "");
  test::WriteBytes(project / "figures/Bar.txt", "");
  test::WriteBytes(project / "figures/.hidden", "");
  EXPECT_THAT(figures.Names(), ElementsAre("Bar", "ring"));
}

TEST_F(FigureFiles, GiveTheirContours) {
  test::WriteBytes(project / "figures/ring.txt", kTwoContours);
  const auto curves = figures.Read("ring");
  ASSERT_TRUE(curves) << curves.fault().Message();
  ASSERT_EQ(curves->size(), 2U);
  EXPECT_EQ((*curves)[0].Perim(), 5);
  EXPECT_TRUE(CheckCurve((*curves)[1]));
}

TEST_F(FigureFiles, GiveTheContoursOfADrawing) {
  std::filesystem::create_directories(project / "figures");
  std::filesystem::copy(VANZET_SOURCE_DIR "/examples/contours/bracket.dxf", project / "figures/bracket.dxf");
  const auto curves = figures.Read("bracket");
  ASSERT_TRUE(curves) << curves.fault().Message();
  EXPECT_FALSE(curves->empty());
}

TEST_F(FigureFiles, ThatAreMissingOrWrongAreReportedWithTheirPlace) {
  EXPECT_EQ(figures.Read("ring").fault().kind, FaultKind::kMissing);
  test::WriteBytes(project / "figures/ring.txt", "k1 e\nrubbish\n");
  EXPECT_THAT(figures.Read("ring").fault().Message(), HasSubstr("figures/ring.txt:2"));
}

}  // namespace
}  // namespace vanzet::drawing
