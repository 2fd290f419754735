#pragma once

#include "platform/message_box.h"

class QWidget;

namespace vanzet::view::qt {

/// Boxes on the display. One that is closed without a button gets the safe answer.
class Boxes final : public platform::BoxPresenter {
 public:
  std::int32_t Present(const platform::MessageBox& message) override;

  /// Stands behind boxes whose owner is no widget; null for none.
  QWidget* fallbackOwner = nullptr;
};

}  // namespace vanzet::view::qt
