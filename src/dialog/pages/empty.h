#pragma once

#include "dialog/pages/page.h"
#include "view/ids.h"

namespace vanzet::dialog {

/// The page of every node that has nothing to edit.
class CPageEmpty final : public Page {
 public:
  explicit CPageEmpty(CDlgMain& dialog) : Page(dialog, kTemplate) {}

  static constexpr PageTemplate kTemplate = {"CPageEmpty", page_template::kEmpty, {}, {}};
};

}  // namespace vanzet::dialog
