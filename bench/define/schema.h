#pragma once

#include "define/json.h"

namespace vanzet::define {

/// The JSON schema of the form, draft 2020-12, made from the tables of the form and of the devices. It refuses
/// what can be refused without a machine, a catalogue and files: `CheckForm` takes nothing that it refuses.
Json FormSchema();

}  // namespace vanzet::define
