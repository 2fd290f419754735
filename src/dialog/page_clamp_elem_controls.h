#pragma once

#include "dialog/page.h"

namespace vanzet::dialog {

extern const PageTemplate kClampElemTemplate;

}  // namespace vanzet::dialog
