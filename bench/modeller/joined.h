#pragma once

#include <vector>

#include "base/result.h"
#include "modeller/body.h"

namespace vanzet::modeller {

/// Bodies as one, each where it is; one of facets when all are. Refused for none.
Result<Body> Joined(const std::vector<Body>& bodies);

}  // namespace vanzet::modeller
