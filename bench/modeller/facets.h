#pragma once

#include <TopoDS_Face.hxx>

#include "modeller/kernel.h"
#include "modeller/mesh.h"

namespace vanzet::modeller {

/// The triangles that the faces of a shape carry, as one mesh. Faces share the points of the edges and
/// vertices between them, and a pole or the tip of a cone is one point; which points are the same is known
/// from the shape, not by their distance. Triangles without area that arise are dropped.
Mesh FacetsOf(const TopoDS_Shape& shape);

/// The mesh as a face that has no surface and carries the triangles.
TopoDS_Face FaceOf(const Mesh& mesh);

/// Whether no face has a surface, as in what an STL file becomes.
bool HasFacetsOnly(const TopoDS_Shape& shape);

/// Gives the faces of a shape new triangles.
void Triangulate(const TopoDS_Shape& shape, const MeshTolerance& tolerance);

}  // namespace vanzet::modeller
