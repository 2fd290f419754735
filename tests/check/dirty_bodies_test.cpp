#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <sstream>
#include <vector>

#include "project_fixture.h"

// Bodies that are not sound: each is reported, and what can be trusted of it is still compared.
namespace vanzet::test {
namespace {

using testing::Contains;
using testing::ElementsAre;

struct Corner {
  double x, y, z;
};
using Triangle = std::array<Corner, 3>;
using Triangles = std::vector<Triangle>;

/// A cylinder about the x axis from `from` to 0; anticlockwise when seen from outside.
Triangles Cylinder(double from, double radius) {
  constexpr int kSides = 72;
  Triangles triangles;
  const auto at = [&](double x, int side) {
    const double angle = 2 * std::numbers::pi * (side % kSides) / kSides;
    return Corner{x, radius * std::cos(angle), radius * std::sin(angle)};
  };
  for (int i = 0; i < kSides; ++i) {
    triangles.push_back({at(0, i), at(from, i), at(from, i + 1)});
    triangles.push_back({at(0, i), at(from, i + 1), at(0, i + 1)});
    triangles.push_back({Corner{0, 0, 0}, at(0, i), at(0, i + 1)});
    triangles.push_back({Corner{from, 0, 0}, at(from, i + 1), at(from, i)});
  }
  return triangles;
}

std::string StlOf(const Triangles& triangles) {
  std::ostringstream text;
  text.precision(17);
  text << "solid body\n";
  for (const Triangle& triangle : triangles) {
    text << "facet normal 0 0 0\nouter loop\n";
    for (const Corner& corner : triangle)
      text << "vertex " << corner.x << " " << corner.y << " " << corner.z << "\n";
    text << "endloop\nendfacet\n";
  }
  return text.str() + "endsolid body\n";
}

/// A billet of 42 mm in a collet with a bore of 42 mm.
class DirtyBodies : public CheckedProject, public testing::WithParamInterface<bool> {
 protected:
  static std::string Place() { return GetParam() ? "sub" : "main"; }

  void UseBillet(const Triangles& triangles) {
    std::filesystem::create_directories(folder / "lathe/bodies");
    WriteBytes(folder / "lathe/bodies/casting.stl", StlOf(triangles));
    const std::string place = '"' + Place() + '"';
    Define(place + R"(: {"collet": {"name": "Collet D42"},
        "billet": {"kind": "solid", "solid": "casting", "part_length": 100, "clamp_diameter": 42, "angle": 0}},
        "datum": {)" +
           place + R"(: {"clamping_out": 40, "origin": 100}})");
  }
  std::string Text() { return Vanzet("check lathe --spur 0").out; }
};

INSTANTIATE_TEST_SUITE_P(Spindles, DirtyBodies, testing::Bool(),
                         [](const auto& each) { return each.param ? "Sub" : "Main"; });

TEST_P(DirtyBodies, AreNotWhatASoundOneIs) {
  UseBillet(Cylinder(-100, 21));
  EXPECT_THAT(Rules(), testing::IsEmpty());
  UseBillet(Cylinder(-100, 21.5));
  EXPECT_THAT(Rules(), ElementsAre("EQ-203 " + Place()));
}

TEST_P(DirtyBodies, ThatAreOpenAreReportedAndCompared) {
  Triangles open = Cylinder(-100, 21);
  open.pop_back();
  UseBillet(open);
  EXPECT_THAT(Rules(), ElementsAre("EQ-104 " + Place()));
  EXPECT_THAT(Text(), testing::HasSubstr("do not enclose a volume"));
  open = Cylinder(-100, 21.5);
  open.pop_back();
  UseBillet(open);
  EXPECT_THAT(Rules(), ElementsAre("EQ-104 " + Place(), "EQ-203 " + Place()));
}

TEST_P(DirtyBodies, ThatAreOneFacetAloneDoNotStopTheCheck) {
  UseBillet({{Corner{0, 0, 0}, Corner{-60, 30, 0}, Corner{-60, 0, 30}}});
  EXPECT_THAT(Rules(), Contains("EQ-104 " + Place()));
}

TEST_P(DirtyBodies, ThatAreInsideOutAreTakenTheOtherWayRound) {
  for (const double radius : {21.0, 21.5}) {
    Triangles turned = Cylinder(-100, radius);
    for (Triangle& triangle : turned) std::swap(triangle[0], triangle[1]);
    UseBillet(turned);
    EXPECT_THAT(Rules(), Contains("EQ-104 " + Place()));
    EXPECT_THAT(Text(), testing::HasSubstr("face inwards"));
    const auto rules = Rules();
    EXPECT_EQ(std::ranges::count(rules, "EQ-203 " + Place()), radius > 21 ? 1 : 0);
  }
}

TEST_P(DirtyBodies, WithFacetsWithoutAreaAreAsGoodAsWithoutThem) {
  Triangles some = Cylinder(-100, 21.5);
  some.push_back({some[0][0], some[0][0], some[0][1]});
  some.push_back({Corner{5, 0, 0}, Corner{5, 0, 0}, Corner{5, 0, 0}});
  UseBillet(some);
  EXPECT_THAT(Rules(), Contains("EQ-203 " + Place()));
}

TEST_P(DirtyBodies, WithoutAVolumeAreReported) {
  const Corner a{-70, 21.5, 0}, b{-60, 30, 0}, c{-60, 21.5, 5};
  UseBillet({{a, b, c}, {a, c, b}});
  EXPECT_THAT(Rules(), Contains("EQ-104 " + Place()));
  EXPECT_THAT(Text(), testing::HasSubstr("enclose no volume"));
}

TEST_P(DirtyBodies, WithThreeFacetsAtAnEdgeAreReported) {
  Triangles fin = Cylinder(-100, 21);
  fin.push_back({fin[0][0], fin[0][1], Corner{-50, 40, 0}});
  UseBillet(fin);
  EXPECT_THAT(Rules(), testing::IsSupersetOf({"EQ-104 " + Place(), "EQ-203 " + Place()}));
}

TEST_P(DirtyBodies, ThatCannotBeReadAreReported) {
  UseBillet(Cylinder(-100, 21));
  WriteBytes(folder / "lathe/bodies/casting.stl", "solid nothing\nendsolid nothing\n");
  EXPECT_THAT(Rules(), Contains("EQ-104 " + Place()));
  WriteBytes(folder / "lathe/bodies/casting.stl", "not a body");
  EXPECT_THAT(Rules(), Contains("EQ-104 " + Place()));
}

}  // namespace
}  // namespace vanzet::test
