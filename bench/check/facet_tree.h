#pragma once

#include <array>
#include <cstdint>
#include <limits>
#include <vector>

#include "geometry/box.h"
#include "geometry/matrix.h"
#include "modeller/mesh.h"

namespace vanzet::check {

/// A triangle in space; anticlockwise when seen from outside of its body.
struct Facet {
  std::array<geometry::Point3d, 3> corners;

  geometry::Point3d Centre() const;
  geometry::Vector3d Across() const;  ///< at right angles to it, as long as twice its area
  double Reach() const;               ///< the largest distance from the centre

  /// The point of the facet that is nearest to a place.
  geometry::Point3d NearestTo(const geometry::Point3d& place) const;

  /// Whether some plane is between the two, so that they have no point in common.
  bool IsApartFrom(const Facet& other) const;
};

/// The facets of a mesh where a placement puts them; those without area are left out.
std::vector<Facet> PlacedFacets(const modeller::Mesh& mesh, const geometry::Matrix& placement);

/// The facets of a body, arranged so that the ones near a place are found quickly.
///
/// Shape   boxes in boxes, each halved across its longest side
/// Cost    n log n to make; about log n for a question
class FacetTree {
 public:
  explicit FacetTree(std::vector<Facet> facets, bool isClosed = true);

  const std::vector<Facet>& facets() const { return facets_; }
  const geometry::Box3d& box() const { return nodes_.front().box; }

  struct Near {
    double distance = std::numeric_limits<double>::infinity();
    const Facet* facet = nullptr;  ///< null without any facet
  };
  /// The nearest facet.
  Near NearestTo(const geometry::Point3d& place) const;

  /// Whether the facets enclose a volume.
  bool IsClosed() const { return isClosed_; }

  /// A facet that may have a point in common with another one; null: none has.
  const Facet* FindMet(const Facet& other) const;

  /// Whether the facets go round a place, in whichever direction they face. When they are not closed, most of
  /// three directions decide.
  bool Contains(const geometry::Point3d& place) const;

 private:
  struct Node {
    geometry::Box3d box;
    std::uint32_t first, count;  ///< its facets
    std::uint32_t further = 0;   ///< its second half; the first one follows; 0: it is not halved
  };

  void Arrange(std::size_t first, std::size_t count);
  /// Whether a ray does not leave the facets as often as it enters them.
  bool IsEnclosedAlong(const geometry::Point3d& place, const geometry::Vector3d& direction) const;

  std::vector<Facet> facets_;
  std::vector<Node> nodes_;
  bool isClosed_;
};

}  // namespace vanzet::check
