#pragma once

#include <vector>

#include "base/result.h"
#include "modeller/body.h"

namespace vanzet::modeller {

/// Returns `bodies` as one body without the material of `tools`. Fails for no bodies, for bodies of facets,
/// and when nothing is left.
Result<Body> CutBodies(const std::vector<Body>& bodies, const std::vector<Body>& tools);

/// Returns the bodies as one, each where it is; it is a body of facets when all of them are. Fails for no
/// bodies.
Result<Body> JoinBodies(const std::vector<Body>& bodies);

}  // namespace vanzet::modeller
