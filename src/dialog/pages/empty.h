#pragma once

#include "dialog/pages/page.h"
#include "view/ids.h"

namespace vanzet::dialog {

/// The page of every node that has nothing to edit.
class CPageEmpty final : public Page {
 public:
  explicit CPageEmpty(PageOwner& owner) : Page(owner, kTemplate) {}

  static constexpr PageTemplate kTemplate = {"CPageEmpty", page_template::kEmpty, {}, {}};
};

}  // namespace vanzet::dialog
