#pragma once

#include <string>
#include <vector>

#include "base/result.h"
#include "modeller/exchange.h"

namespace vanzet::modeller {

/// A face set of a VRML text, as a body of facets.
struct VrmlBody {
  std::string name;  ///< of the nearest named node that it stands in
  Body body;
};

/// The face sets of a VRML 2.0 text, in its order, where its transforms put them; millimetres. Read by the
/// exchange program. A text without any has no bodies.
///
/// Errors   a fault without a place: what is no VRML, faces and points that cannot be, the limits
Result<std::vector<VrmlBody>> ImportVrml(const std::string& text, const Exchange& exchange);

}  // namespace vanzet::modeller
