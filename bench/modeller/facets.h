#pragma once

#include <TopoDS_Face.hxx>
#include <gp_Trsf.hxx>

#include "modeller/kernel.h"
#include "modeller/mesh.h"

namespace vanzet::modeller {

/// A mesh of a solid, and the place that the solid had.
struct MadeMesh {
  MeshTolerance tolerance;
  gp_Trsf place;
  Mesh mesh;
};

/// The triangles of the faces of a shape as one mesh. Faces share the points of the edges and vertices
/// between them, and a pole or the tip of a cone is one point; the shape, not the distance, decides which
/// points are the same. Triangles that lose their area that way are dropped.
Mesh FacetsOf(const TopoDS_Shape& shape);

/// The mesh as a face that has the triangles and no surface.
TopoDS_Face FaceOf(const Mesh& mesh);

/// Whether no face has a surface, as in a shape that was read from an STL file.
bool HasFacetsOnly(const TopoDS_Shape& shape);

/// Replaces the triangles of the faces of a shape. Returns false when the kernel failed at a face, which
/// then has none.
bool Triangulate(const TopoDS_Shape& shape, const MeshTolerance& tolerance);

/// The mesh of a body of surfaces, without the faces that the kernel fails at: files of other programs have
/// some.
Result<Mesh> MeshOfSurfaces(const Body& body, const MeshTolerance& tolerance);

}  // namespace vanzet::modeller
