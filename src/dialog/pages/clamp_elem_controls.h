#pragma once

#include "dialog/pages/page.h"

namespace vanzet::dialog {

extern const PageTemplate kClampElemTemplate;

}  // namespace vanzet::dialog
