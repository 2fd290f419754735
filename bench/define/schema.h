#pragma once

#include "define/json.h"

namespace vanzet::define {

/// The JSON schema of the form, draft 2020-12, made from the tables of the form and of the devices. It
/// refuses as much as can be known without a machine, a catalogue and files; `CheckForm` refuses that, too.
Json FormSchema();

}  // namespace vanzet::define
