#pragma once

#include <istream>

#include "modeller/parcel.h"

namespace vanzet::modeller {

/// The face sets of a VRML 2.0 text as bodies of facets, in the order of the text, where its transforms put
/// them; each has the name of the nearest named node that it stands in. Other geometry is passed over.
/// Refused when the text is no VRML, when a face has a point that is not there, and when a point is not
/// within `kLargestCoordinate`.
Result<std::vector<ParcelBody>> ReadVrml(std::istream& text);

}  // namespace vanzet::modeller
