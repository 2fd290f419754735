#include "modeller/mesh.h"

#include <BRepBuilderAPI_NurbsConvert.hxx>
#include <BRepMesh_IncrementalMesh.hxx>
#include <BRepTools.hxx>
#include <BRep_Builder.hxx>
#include <BRep_Tool.hxx>
#include <IMeshData_Status.hxx>
#include <IMeshTools_Parameters.hxx>
#include <NCollection_DataMap.hxx>
#include <Poly_PolygonOnTriangulation.hxx>
#include <Poly_Triangulation.hxx>
#include <TopExp.hxx>
#include <TopExp_Explorer.hxx>
#include <TopTools_ShapeMapHasher.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Edge.hxx>
#include <TopoDS_Face.hxx>
#include <TopoDS_Vertex.hxx>
#include <algorithm>
#include <utility>

#include "base/number_text.h"
#include "geometry/numerics.h"
#include "modeller/facets.h"
#include "modeller/foreign.h"
#include "modeller/kernel.h"
#include "modeller/measures.h"

namespace vanzet::modeller {
namespace {

// The time that the kernel takes grows faster than the facets; finer meshes would take hours.
constexpr double kFinestChord = 5e-3;
constexpr double kFinestAngle = 2;

// Where memory is short for a moment the kernel leaves out a face, and says so or not. The second attempt
// with the same tolerance gives the mesh that a run with enough memory gets.
constexpr int kAttempts = 2;

Result<void> Check(const MeshTolerance& tolerance) {
  const bool isGood = tolerance.chord >= kFinestChord && tolerance.chord <= 1e6 &&
                      tolerance.angle >= kFinestAngle && tolerance.angle <= 90;
  if (isGood) return {};
  return Fault{"a mesh cannot have the tolerances " + NumberText(tolerance.chord) + " mm, " +
               NumberText(tolerance.angle) + " degrees; they must be at least " + NumberText(kFinestChord) +
               " mm, " + NumberText(kFinestAngle) + " degrees"};
}

/// Classes of equal points, kept as trees: the root of a tree represents its points.
class SamePoints {
 public:
  int Add() {
    standIns_.push_back(static_cast<int>(standIns_.size()));
    return standIns_.back();
  }

  int StandIn(int point) {
    for (int next = At(point); next != point; next = At(point)) {
      At(point) = At(next);
      point = next;
    }
    return point;
  }

  void Join(int a, int b) { At(StandIn(a)) = StandIn(b); }

 private:
  int& At(int point) { return standIns_[static_cast<std::size_t>(point)]; }

  std::vector<int> standIns_;
};

template <class Value>
using ByShape = NCollection_DataMap<TopoDS_Shape, Value, TopTools_ShapeMapHasher>;

class Collector {
 public:
  void Add(const TopoDS_Face& face) {
    TopLoc_Location place;
    const auto triangulation = BRep_Tool::Triangulation(face, place);
    if (triangulation.IsNull()) return;
    const int first = AddPoints(*triangulation, place);
    AddTriangles(*triangulation, first, face.Orientation() == TopAbs_REVERSED);
    for (TopExp_Explorer edges(face, TopAbs_EDGE); edges.More(); edges.Next()) {
      const TopoDS_Edge edge = TopoDS::Edge(edges.Current());
      const auto polygon = BRep_Tool::PolygonOnTriangulation(edge, triangulation, place);
      if (!polygon.IsNull()) JoinAlong(edge, PointsOf(*polygon, first));
    }
  }

  Mesh JoinedMesh() && {
    std::vector<int> numbers(mesh_.points.size(), -1);
    std::vector<geometry::Point3d> joined;
    joined.reserve(mesh_.points.size());
    auto next = mesh_.triangles.begin();
    for (std::array<int, 3> triangle : mesh_.triangles) {
      for (int& corner : triangle) corner = same_.StandIn(corner);
      const auto [a, b, c] = triangle;
      if (a == b || b == c || c == a) continue;
      for (int& corner : triangle) corner = Number(corner, numbers, joined);
      *next++ = triangle;
    }
    mesh_.triangles.erase(next, mesh_.triangles.end());
    mesh_.points = std::move(joined);
    return std::move(mesh_);
  }

 private:
  int AddPoints(const Poly_Triangulation& triangulation, const TopLoc_Location& place) {
    const gp_Trsf motion = place.Transformation();
    const std::size_t first = mesh_.points.size();
    mesh_.points.resize(first + static_cast<std::size_t>(triangulation.NbNodes()));
    for (int i = 1; i <= triangulation.NbNodes(); ++i) {
      const gp_Pnt p = triangulation.Node(i).Transformed(motion);
      mesh_.points[first + static_cast<std::size_t>(i) - 1] = {p.X(), p.Y(), p.Z()};
      same_.Add();
    }
    return static_cast<int>(first);
  }

  void AddTriangles(const Poly_Triangulation& triangulation, int first, bool reversed) {
    const std::size_t before = mesh_.triangles.size();
    mesh_.triangles.resize(before + static_cast<std::size_t>(triangulation.NbTriangles()));
    for (int i = 1; i <= triangulation.NbTriangles(); ++i) {
      std::array<int, 3>& corners = mesh_.triangles[before + static_cast<std::size_t>(i) - 1];
      triangulation.Triangle(i).Get(corners[0], corners[1], corners[2]);
      if (reversed) std::swap(corners[1], corners[2]);
      for (int& corner : corners) corner += first - 1;
    }
  }

  /// The points along an edge, in the order of the edge's own parameter.
  static std::vector<int> PointsOf(const Poly_PolygonOnTriangulation& polygon, int first) {
    std::vector<int> points;
    for (int i = 1; i <= polygon.NbNodes(); ++i) points.push_back(polygon.Node(i) + first - 1);
    return points;
  }

  void JoinAlong(const TopoDS_Edge& edge, const std::vector<int>& points) {
    if (BRep_Tool::Degenerated(edge)) {
      for (const int point : points) same_.Join(point, points.front());
    }
    TopoDS_Vertex begin, end;
    TopExp::Vertices(TopoDS::Edge(edge.Oriented(TopAbs_FORWARD)), begin, end);
    if (!begin.IsNull()) JoinVertex(begin, points.front());
    if (!end.IsNull()) JoinVertex(end, points.back());
    if (!edges_.IsBound(edge)) {
      edges_.Bind(edge, points);
      return;
    }
    const std::vector<int>& others = edges_.Find(edge);
    if (others.size() != points.size()) return;
    for (std::size_t i = 0; i < points.size(); ++i) same_.Join(points[i], others[i]);
  }

  void JoinVertex(const TopoDS_Vertex& vertex, int point) {
    if (vertices_.IsBound(vertex)) {
      same_.Join(point, vertices_.Find(vertex));
    } else {
      vertices_.Bind(vertex, point);
    }
  }

  int Number(int point, std::vector<int>& numbers, std::vector<geometry::Point3d>& joined) {
    int& number = numbers[static_cast<std::size_t>(point)];
    if (number < 0) {
      number = static_cast<int>(joined.size());
      joined.push_back(mesh_.points[static_cast<std::size_t>(point)]);
    }
    return number;
  }

  Mesh mesh_;
  SamePoints same_;
  ByShape<std::vector<int>> edges_;
  ByShape<int> vertices_;
};

bool IsSamePlace(const gp_Trsf& a, const gp_Trsf& b) {
  for (int row = 1; row <= 3; ++row) {
    for (int column = 1; column <= 4; ++column) {
      if (a.Value(row, column) != b.Value(row, column)) return false;
    }
  }
  return true;
}

/// The mesh that an equal solid got at this place before, or null. At another place its last digits differ.
const Mesh* FormerMesh(const Shape& shape, const MeshTolerance& tolerance) {
  if (shape.meshes == nullptr) return nullptr;
  const gp_Trsf& place = shape.shape.Location().Transformation();
  const auto found = std::ranges::find_if(*shape.meshes, [&](const MadeMesh& made) {
    return made.tolerance == tolerance && IsSamePlace(made.place, place);
  });
  return found == shape.meshes->end() ? nullptr : &found->mesh;
}

void KeepMesh(const Shape& shape, const MeshTolerance& tolerance, const Mesh& mesh) {
  constexpr std::size_t kMostMeshes = 8, kMostTriangles = 20'000;
  if (shape.meshes == nullptr || mesh.triangles.size() > kMostTriangles) return;
  if (shape.meshes->size() == kMostMeshes) shape.meshes->clear();
  shape.meshes->push_back({tolerance, shape.shape.Location().Transformation(), mesh});
}

Fault Unmeshed() {
  return {.text = "a face of the body could not be meshed", .kind = FaultKind::kSystem};
}

/// Whether the kernel left a face without triangles.
bool HasBareFace(const TopoDS_Shape& shape) {
  for (TopExp_Explorer faces(shape, TopAbs_FACE); faces.More(); faces.Next()) {
    TopLoc_Location place;
    if (BRep_Tool::Triangulation(TopoDS::Face(faces.Current()), place).IsNull()) return true;
  }
  return false;
}

/// Meshes one of our own solids, which have no holes. The kernel passes over a face that it fails at, also
/// for lack of memory, and says so or not.
Result<Mesh> WholeMeshOf(const TopoDS_Shape& solid, const MeshTolerance& tolerance) {
  if (!Triangulate(solid, tolerance)) return Unmeshed();
  Mesh mesh = FacetsOf(solid);
  if (mesh.triangles.empty() ? HasBareFace(solid) : !IsClosed(mesh)) return Unmeshed();
  return mesh;
}

/// The mesh of one of our own solids.
Result<Mesh> MeshOfSolid(const Shape& shape, const MeshTolerance& tolerance) {
  // The facets along the two circles of a ring that is narrower than the tolerance can cross each other.
  constexpr int kTolerances = 4;
  MeshTolerance finer = tolerance;
  auto mesh = WholeMeshOf(shape.shape, finer);
  for (int i = 1; i < kTolerances * kAttempts && !mesh; ++i) {
    if (i % kAttempts == 0) finer.chord = std::max(finer.chord / 4, kFinestChord);
    mesh = WholeMeshOf(shape.shape, finer);
  }
  if (mesh) KeepMesh(shape, tolerance, *mesh);
  return mesh;
}

/// The shape with all surfaces turned into splines, or the same shape when the kernel fails at that.
TopoDS_Shape AsSplines(const TopoDS_Shape& shape) {
  try {
    return BRepBuilderAPI_NurbsConvert(shape, Standard_True).Shape();
  } catch (const Standard_Failure&) {
    return shape;
  }
}

/// Whether the facets of a shape have no hole that its surfaces do not have. Surfaces alone may have any.
bool IsWhole(const TopoDS_Shape& surfaces, const TopoDS_Shape& meshed) {
  if (!TopExp_Explorer(surfaces, TopAbs_SOLID).More() || IsClosed(FacetsOf(meshed))) return true;
  return HasFreeEdge(surfaces) && !HasBareFace(meshed);
}

/// Meshes all faces.
bool TriangulatesAll(const TopoDS_Shape& shape, const MeshTolerance& tolerance,
                     const Message_ProgressRange& progress) {
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    static_cast<void>(Triangulate(shape, tolerance, progress));
    if (!HasBareFace(shape) && IsWhole(shape, shape)) return true;
  }
  return false;
}

Result<Mesh> NotEmpty(Mesh mesh) {
  if (mesh.triangles.empty()) return Fault{"the body has no faces"};
  return mesh;
}

}  // namespace

Result<Mesh> MeshOf(const Body& body, const MeshTolerance& tolerance) {
  VANZET_DO(Check(tolerance));
  return CatchKernelFailures([&]() -> Result<Mesh> {
    const Shape& shape = body.shape();
    if (IsForeign(shape)) return MeshOfForeign(shape, tolerance);
    if (shape.fromStl) return NotEmpty(FacetsOf(shape.shape));
    if (const Mesh* const former = FormerMesh(shape, tolerance)) return *former;
    VANZET_TRY(auto mesh, MeshOfSolid(shape, tolerance));
    return NotEmpty(std::move(mesh));
  });
}

Result<TopoDS_Shape> TriangulateSurfaces(const TopoDS_Shape& shape, const MeshTolerance& tolerance,
                                         const Message_ProgressRange& progress) {
  if (TriangulatesAll(shape, tolerance, progress)) return shape;
  // The kernel fails at the parameters of some faces, cones above all; as splines they have others.
  const TopoDS_Shape splines = AsSplines(shape);
  static_cast<void>(Triangulate(splines, tolerance));
  if (IsWhole(shape, splines)) return splines;
  return Fault{"a face of the solid cannot be meshed"};
}

Result<Mesh> MeshOfSurfaces(const Body& body, const MeshTolerance& tolerance,
                            const Message_ProgressRange& progress) {
  VANZET_DO(Check(tolerance));
  return CatchKernelFailures([&]() -> Result<Mesh> {
    VANZET_TRY(const auto shape, TriangulateSurfaces(body.shape().shape, tolerance, progress));
    return NotEmpty(FacetsOf(shape));
  });
}

Mesh FacetsOf(const TopoDS_Shape& shape) {
  Collector collector;
  for (TopExp_Explorer faces(shape, TopAbs_FACE); faces.More(); faces.Next()) {
    collector.Add(TopoDS::Face(faces.Current()));
  }
  return std::move(collector).JoinedMesh();
}

TopoDS_Face FaceOf(const Mesh& mesh) {
  const Handle(Poly_Triangulation) triangulation = new Poly_Triangulation(
      static_cast<int>(mesh.points.size()), static_cast<int>(mesh.triangles.size()), false);
  int number = 0;
  for (const auto& point : mesh.points) triangulation->SetNode(++number, {point.x, point.y, point.z});
  number = 0;
  for (const auto& [a, b, c] : mesh.triangles) triangulation->SetTriangle(++number, {a + 1, b + 1, c + 1});
  TopoDS_Face face;
  BRep_Builder().MakeFace(face, triangulation);
  return face;
}

bool HasFacetsOnly(const TopoDS_Shape& shape) {
  for (TopExp_Explorer faces(shape, TopAbs_FACE); faces.More(); faces.Next()) {
    if (!BRep_Tool::Surface(TopoDS::Face(faces.Current())).IsNull()) return false;
  }
  return true;
}

bool Triangulate(const TopoDS_Shape& shape, const MeshTolerance& tolerance,
                 const Message_ProgressRange& progress) {
  // Triangles of an earlier mesh would be kept if they are finer.
  BRepTools::Clean(shape);
  IMeshTools_Parameters wanted;
  wanted.Deflection = tolerance.chord;
  wanted.Angle = tolerance.angle * geometry::RADIANS_PER_DEGREE;
  const BRepMesh_IncrementalMesh made(shape, wanted, progress);
  return (made.GetStatusFlags() & IMeshData_Failure) == 0;
}

}  // namespace vanzet::modeller
