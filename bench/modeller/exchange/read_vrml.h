#pragma once

#include <istream>

#include "modeller/parcel.h"

namespace vanzet::modeller {

/// Reads the face sets of a VRML 2.0 text as bodies of facets, in the order of the text, placed by its
/// transforms; each has the name of the nearest named node around it. Other geometry is skipped. Fails when
/// the text is not VRML, when a face has a point that does not exist, and when a point is not within
/// `kLargestCoordinate`.
Result<std::vector<ParcelBody>> ReadVrml(std::istream& text);

}  // namespace vanzet::modeller
