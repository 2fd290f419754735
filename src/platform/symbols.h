#pragma once

namespace vanzet::platform {

/// The address of the exported symbol `name` in `module`, or null.
/// A null `module` is the running program, the host.
void* FindSymbol(void* module, const char* name);

}  // namespace vanzet::platform
