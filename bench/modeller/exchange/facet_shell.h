#pragma once

#include <TopoDS_Shape.hxx>

namespace vanzet::modeller {

/// A body of facets with a plane face for each triangle, for formats that know no triangles: a solid when it
/// is closed, else a shell. Triangles without area are left out.
TopoDS_Shape FacetShell(const TopoDS_Shape& facets);

}  // namespace vanzet::modeller
