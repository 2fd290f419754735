#pragma once

#include <Message_ProgressRange.hxx>
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
bool Triangulate(const TopoDS_Shape& shape, const MeshTolerance& tolerance,
                 const Message_ProgressRange& progress = {});

/// Whether an edge is met by one face alone, and by that only once; true without any edge.
bool HasFreeEdge(const TopoDS_Shape& shape);

/// Triangulates the surfaces of another program and returns the shape that has the triangles: the same one,
/// or where the kernel leaves out a face, the shape with all surfaces turned into splines. Fails for a solid
/// whose facets still have a hole. Of surfaces alone, faces may be missing.
Result<TopoDS_Shape> TriangulateSurfaces(const TopoDS_Shape& shape, const MeshTolerance& tolerance,
                                         const Message_ProgressRange& progress = {});

/// The mesh of such a body.
Result<Mesh> MeshOfSurfaces(const Body& body, const MeshTolerance& tolerance,
                            const Message_ProgressRange& progress = {});

}  // namespace vanzet::modeller
