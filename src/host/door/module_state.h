#pragma once

#include "platform/message_box.h"
#include "view/view_choice.h"

namespace vanzet {

/// The module as an object of the process: what survives between two calls of its exports.
class CvanzetApp {
 public:
  /// Always true: there is nothing to prepare.
  static bool InitInstance() { return true; }

  view::ViewChoice views;
};

/// The one instance, made when the module is loaded.
extern CvanzetApp theApp;

/// The state of the module while one of its exports runs; the caller's comes back on every way out.
class ModuleStateGuard {
 public:
  ModuleStateGuard() : presenter_(theApp.views.Choose()) {}

 private:
  platform::PresenterScope presenter_;
};

}  // namespace vanzet
