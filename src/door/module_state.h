#pragma once

#include <memory>

#include "geometry/host_matrix_vdm.h"
#include "platform/file_dialog.h"
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
  ModuleStateGuard() : view_(theApp.views.Choose()), boxes_(view_->Boxes()), files_(view_->Files()) {}

  /// Whoever shows a dialog now; null when nobody can.
  view::DialogView* ViewForDialog() { return view_->ForDialog(); }

 private:
  std::unique_ptr<view::View> view_;
  platform::PresenterScope boxes_;
  platform::FilePresenterScope files_;
};

}  // namespace vanzet
