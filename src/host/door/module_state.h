#pragma once

#include "geometry/host_matrix_vdm.h"
#include "platform/message_box.h"
#include "view/view_choice.h"

namespace vanzet {

/// The module as an object of the process: what survives between two calls of its exports.
class CvanzetApp {
 public:
  /// Made once, when the module is loaded: from then on matrices of the geometry go to the host's VDMs.
  CvanzetApp() { geometry::UseHostForMatrixVdm(); }

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
