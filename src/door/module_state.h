#pragma once

#include <memory>

#include "geometry/host_matrix_vdm.h"
#include "platform/file_dialog.h"
#include "platform/message_box.h"
#include "view/view_choice.h"

namespace vanzet {

/// The module as an object of the process: the state that survives from one call of its exports to the next.
class CvanzetApp {
 public:
  /// From now on the geometry keeps matrices in the host's VDMs.
  CvanzetApp() { geometry::UseHostForMatrixVdm(); }

  view::ViewChoice views;
};

/// The only instance, made when the module is loaded, before any export runs.
extern CvanzetApp theApp;

/// The state of the module while one of its exports runs. The destructor restores the caller's.
class ModuleStateGuard {
 public:
  ModuleStateGuard() : view_(theApp.views.Choose()), boxes_(view_->Boxes()), files_(view_->Files()) {}

  /// The view that can show a dialog now, or null.
  view::DialogView* ViewForDialog() { return view_->ForDialog(); }

 private:
  std::unique_ptr<view::View> view_;
  platform::PresenterScope boxes_;
  platform::FilePresenterScope files_;
};

}  // namespace vanzet
