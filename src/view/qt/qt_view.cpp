#include "view/qt/qt_view.h"

#include "view/qt/boxes.h"

namespace vanzet::view::qt {

QtView::~QtView() {
  delete window_.data();
}

std::int32_t QtView::Serve(Dialog& dialog, void* parent, std::int32_t /*flags*/) {
  window_ = new DialogWindow(dialog, WidgetOf(parent));
  boxes_.dialog = files_.fallbackOwner = window_;
  window_->Run();
  // The application may have ended the loop, or the parent may have taken the window along.
  if (dialog.IsOpen()) dialog.Close();
  boxes_.dialog = files_.fallbackOwner = nullptr;
  delete window_.data();
  return dialog.Result();
}

void QtView::StateChanged(const DialogState& state) {
  if (window_) window_->Show(state);
}

void QtView::SetVisible(bool isVisible) {
  if (!window_) return;
  if (isVisible) {
    window_->ShowAgain();
  } else {
    window_->Hide();
  }
}

void QtView::Focus(std::int32_t control, bool /*selectsAll*/) {
  if (window_) window_->FocusOn(control);
}

std::optional<std::int32_t> QtView::Popup(std::int32_t node, const std::vector<PopupEntry>& entries) {
  return window_ ? window_->Popup(node, entries) : std::nullopt;
}

void* QtView::Window() {
  return static_cast<QWidget*>(window_.data());
}

}  // namespace vanzet::view::qt
