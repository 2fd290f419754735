#include "view/qt/owner.h"

#include <QApplication>

namespace vanzet::view::qt {

QWidget* WidgetOf(void* handle) {
  // A handle of a host of another kind must not be looked into, so it is searched for.
  for (QWidget* const widget : QApplication::allWidgets()) {
    if (static_cast<void*>(widget) == handle) return widget;
  }
  return nullptr;
}

}  // namespace vanzet::view::qt
