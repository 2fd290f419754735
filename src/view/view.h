#pragma once

#include "platform/file_dialog.h"
#include "platform/message_box.h"
#include "view/dialog_view.h"

namespace vanzet::view {

/// The user interface of one call: boxes, file dialogs, the dialog.
class View {
 public:
  virtual ~View() = default;

  virtual platform::BoxPresenter& Boxes() = 0;
  virtual platform::FilePresenter& Files() = 0;

  /// Null when this view cannot show a dialog.
  virtual DialogView* ForDialog() = 0;
};

}  // namespace vanzet::view
