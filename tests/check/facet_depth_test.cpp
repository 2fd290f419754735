#include "check/facet_depth.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

#include "geometry/matrix.h"

namespace vanzet::test {
namespace {

using check::FacetTree;
using check::Side;
using geometry::Matrix;
using geometry::Point3d;

/// A block about the origin: half of its sizes.
struct Block {
  double x, y, z;

  /// How deep a place is inside; below 0 outside, where it is only a bound.
  double DepthOf(const Point3d& place) const {
    return std::min({x - std::fabs(place.x), y - std::fabs(place.y), z - std::fabs(place.z)});
  }

  modeller::Mesh Mesh() const {
    modeller::Mesh mesh;
    for (int corner = 0; corner < 8; ++corner) {
      mesh.points.emplace_back((corner & 1) != 0 ? x : -x, (corner & 2) != 0 ? y : -y,
                               (corner & 4) != 0 ? z : -z);
    }
    mesh.triangles = {{0, 2, 1}, {1, 2, 3}, {4, 5, 6}, {5, 7, 6}, {0, 1, 4}, {1, 5, 4},
                      {2, 6, 3}, {3, 6, 7}, {0, 4, 2}, {2, 4, 6}, {1, 3, 5}, {3, 7, 5}};
    return mesh;
  }
  FacetTree Tree(const Matrix& placement = {}) const {
    return FacetTree(check::PlacedFacets(Mesh(), placement));
  }
};

Matrix MovedBy(double x, double y, double z) {
  Matrix matrix;
  matrix.Translate(x, y, z);
  return matrix;
}

TEST(FacetTree, FindsTheNearestFacetAndTheInside) {
  const FacetTree block = Block{10, 20, 30}.Tree();
  EXPECT_EQ(block.facets().size(), 12U);
  EXPECT_NEAR(block.NearestTo({0, 0, 28}).distance, 2, 1e-12);
  EXPECT_NEAR(block.NearestTo({13, 24, 0}).distance, 5, 1e-12);
  EXPECT_TRUE(block.Contains({9.9, -19.9, 29.9}));
  EXPECT_FALSE(block.Contains({10.1, 0, 0}));
  const FacetTree none({});
  EXPECT_FALSE(none.Contains({0, 0, 0}));
  EXPECT_EQ(none.NearestTo({0, 0, 0}).facet, nullptr);
}

TEST(FacetTree, DoesNotMindInWhichDirectionFacetsFace) {
  modeller::Mesh mesh = Block{10, 10, 10}.Mesh();
  for (auto& [a, b, c] : mesh.triangles) std::swap(b, c);
  EXPECT_TRUE(FacetTree(check::PlacedFacets(mesh, {})).Contains({1, 2, 3}));
}

/// The least distance from points of one facet, at even distances, to the other one.
double SampledDistance(const check::Facet& facet, const check::Facet& other) {
  constexpr int kSteps = 40;
  const auto& [a, b, c] = facet.corners;
  double least = 1e9;
  for (int i = 0; i <= kSteps; ++i) {
    for (int j = 0; i + j <= kSteps; ++j) {
      const Point3d place = a + geometry::Vector3d(a, b) * (static_cast<double>(i) / kSteps) +
                            geometry::Vector3d(a, c) * (static_cast<double>(j) / kSteps);
      least = std::min(least, geometry::Vector3d(place, other.NearestTo(place)).Magnitude());
    }
  }
  return least;
}

TEST(Facets, AreApartWherePointsAre) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> number(-10, 10);
  const auto place = [&] { return Point3d(number(random), number(random), number(random)); };
  int apart = 0, common = 0;
  for (int i = 0; i < 3000; ++i) {
    const check::Facet one{{place(), place(), place()}}, other{{place(), place(), place()}};
    const double distance = std::min(SampledDistance(one, other), SampledDistance(other, one));
    if (one.IsApartFrom(other)) {
      EXPECT_GT(distance, 0);
      ++apart;
    } else {
      // Some point is at most half a step away along each of two edges.
      EXPECT_LT(distance, 0.9);
      ++common;
    }
    EXPECT_EQ(one.IsApartFrom(other), other.IsApartFrom(one));
    EXPECT_EQ(FacetTree({other}).FindMet(one) == nullptr, one.IsApartFrom(other));
  }
  EXPECT_GT(std::min(apart, common), 500);
}

TEST(Facets, ThatTouchAreNotApart) {
  const check::Facet flat{{Point3d(0, 0, 0), Point3d(4, 0, 0), Point3d(0, 4, 0)}};
  const auto at = [](double x, double y, double z) {
    return check::Facet{{Point3d(x, y, z), Point3d(x + 1, y, z), Point3d(x, y + 1, z)}};
  };
  EXPECT_FALSE(flat.IsApartFrom(at(1, 1, 0)));
  EXPECT_FALSE(flat.IsApartFrom(at(4, 0, 0)));
  EXPECT_TRUE(flat.IsApartFrom(at(4.001, 0, 0)));
  EXPECT_TRUE(flat.IsApartFrom(at(1, 1, 0.001)));
  EXPECT_TRUE(flat.IsApartFrom(at(2.1, 2.1, 0)));
}

TEST(DeepPlaces, AreNotFoundWhereBodiesTouch) {
  const FacetTree below = Block{50, 50, 10}.Tree(), above = Block{30, 20, 10}.Tree(MovedBy(7, 5, 20));
  EXPECT_TRUE(FindDeeper(above, below, Side::kInside, 0.05).empty());
  EXPECT_TRUE(FindDeeper(below, above, Side::kInside, 0.05).empty());
  const FacetTree deeper = Block{30, 20, 10}.Tree(MovedBy(7, 5, 19.96));
  EXPECT_TRUE(FindDeeper(deeper, below, Side::kInside, 0.05).empty());
}

TEST(DeepPlaces, AreFoundWhereTheyAreDeeperThanTheTolerance) {
  const FacetTree below = Block{50, 50, 10}.Tree(), above = Block{30, 20, 10}.Tree(MovedBy(7, 5, 19.9));
  const auto found = FindDeeper(above, below, Side::kInside, 0.05);
  ASSERT_FALSE(found.empty());
  EXPECT_NEAR(found.front().depth, 0.1, 1e-9);
  EXPECT_NEAR(found.front().place.z, 9.9, 1e-9);
}

TEST(DeepPlaces, AreFoundInASpikeThatIsNarrow) {
  const FacetTree below = Block{50, 50, 10}.Tree();
  const FacetTree spike = Block{0.01, 0.01, 10}.Tree(MovedBy(31.7, 8.3, 19.9));
  EXPECT_FALSE(FindDeeper(spike, below, Side::kInside, 0.05).empty());
  EXPECT_TRUE(FindDeeper(spike, below, Side::kInside, 0.11).empty());
}

TEST(DeepPlaces, AreFoundBelowTheSurfaceOfASolidThatIsInside) {
  const FacetTree inner = Block{1, 1, 1}.Tree(), outer = Block{5, 5, 5}.Tree();
  EXPECT_FALSE(FindDeeper(inner, outer, Side::kInside, 0.05).empty());
  EXPECT_FALSE(FindDeeper(outer, inner, Side::kInside, 0.05).empty());
  EXPECT_TRUE(FindDeeper(outer, Block{1, 1, 1}.Tree(MovedBy(6.1, 0, 0)), Side::kInside, 0.05).empty());
}

TEST(DeepPlaces, OutsideAreThoseThatReachOut) {
  const FacetTree billet = Block{20, 20, 20}.Tree();
  EXPECT_TRUE(FindDeeper(Block{20, 20, 20}.Tree(), billet, Side::kOutside, 0.05).empty());
  EXPECT_TRUE(FindDeeper(Block{5, 20.04, 7}.Tree(), billet, Side::kOutside, 0.05).empty());
  EXPECT_FALSE(FindDeeper(Block{5, 20.06, 7}.Tree(), billet, Side::kOutside, 0.05).empty());
}

/// Points of the facets of a block, close to each other.
std::vector<Point3d> SamplesOf(const Block& block, const Matrix& placement) {
  constexpr int kSteps = 40;
  std::vector<Point3d> samples;
  for (int i = 0; i <= kSteps; ++i) {
    for (int j = 0; j <= kSteps; ++j) {
      const double u = 2.0 * i / kSteps - 1, v = 2.0 * j / kSteps - 1;
      for (const double side : {-1.0, 1.0}) {
        samples.push_back(placement.Transform(Point3d(side * block.x, u * block.y, v * block.z)));
        samples.push_back(placement.Transform(Point3d(u * block.x, side * block.y, v * block.z)));
        samples.push_back(placement.Transform(Point3d(u * block.x, v * block.y, side * block.z)));
      }
    }
  }
  return samples;
}

TEST(DeepPlaces, AreThoseOfBlocksAtRandom) {
  constexpr double kTolerance = 0.3;
  std::mt19937 random(20261123);
  const auto number = [&](double from, double to) {
    return std::uniform_real_distribution<double>(from, to)(random);
  };
  int deep = 0, free = 0;
  for (int i = 0; i < 400; ++i) {
    const Block solid{number(1, 10), number(1, 10), number(1, 10)};
    const Block body{number(1, 10), number(1, 10), number(1, 10)};
    Matrix placement;
    for (int axis = 1; axis <= 3; ++axis) placement.Rotate(number(-3, 3), axis);
    placement.Translate(number(-13, 13), number(-13, 13), number(-13, 13));
    const auto found = FindDeeper(body.Tree(placement), solid.Tree(), Side::kInside, kTolerance);
    for (const check::DeepPlace& each : found) {
      EXPECT_GT(solid.DepthOf(each.place), kTolerance);
    }
    double deepest = -1;
    for (const Point3d& sample : SamplesOf(body, placement))
      deepest = std::max(deepest, solid.DepthOf(sample));
    EXPECT_TRUE(!found.empty() || deepest <= kTolerance + 0.002) << "set " << i << ", " << deepest;
    (found.empty() ? free : deep) += 1;
  }
  EXPECT_GT(deep, 100);
  EXPECT_GT(free, 100);
}

TEST(DistanceOfFacets, IsThatOfCornersFacesAndEdges) {
  const FacetTree block = Block{10, 10, 10}.Tree();
  const auto distance = [&](double x, double y, double z) {
    return check::DistanceBetween(Block{1, 1, 1}.Tree(MovedBy(x, y, z)), block, 0.05);
  };
  EXPECT_NEAR(distance(14, 0, 0), 3, 1e-9);
  EXPECT_NEAR(distance(14, 15, 0), 5, 1e-9);
  EXPECT_LE(distance(11, 3, 3), 0.05);
  // Two edges that cross each other: both blocks are turned by an eighth about axes of their own.
  Matrix upright, lying;
  upright.Rotate(std::numbers::pi / 4, 1);
  lying.Rotate(std::numbers::pi / 4, 2);
  lying.Translate(0, 0, 20);
  const double edge = 5 * std::numbers::sqrt2;
  const double crossed =
      check::DistanceBetween(Block{50, 5, 5}.Tree(upright), Block{5, 50, 5}.Tree(lying), 0.05);
  EXPECT_GE(crossed, 20 - 2 * edge - 1e-9);
  EXPECT_LE(crossed, (20 - 2 * edge) / 0.9);
}

}  // namespace
}  // namespace vanzet::test
