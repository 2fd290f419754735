#pragma once

#include <vector>

#include "base/result.h"
#include "modeller/body.h"

namespace vanzet::modeller {

/// What is left of bodies, joined to one, when others are taken away from them. Refused for no bodies, for
/// bodies of facets, and when nothing is left.
Result<Body> Cut(const std::vector<Body>& bodies, const std::vector<Body>& away);

/// Bodies as one, each where it is; one of facets when all are. Refused for none.
Result<Body> Joined(const std::vector<Body>& bodies);

}  // namespace vanzet::modeller
