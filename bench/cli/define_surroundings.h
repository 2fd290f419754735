#pragma once

#include "api/host.h"
#include "define/check.h"

namespace vanzet::cli {

/// What a form is checked against in a project: its machine, its catalogue, its figures and bodies, and the
/// files of own devices, as a module would find them through the host, which has to outlive what is given.
/// A catalogue that is not there has no devices.
Result<define::Surroundings> SurroundingsOf(const project::Project& project, api::Host& host);

}  // namespace vanzet::cli
