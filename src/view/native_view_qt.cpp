#include <algorithm>
#include <filesystem>

#include "base/files/environment.h"
#include "platform/symbols.h"
#include "view/native_view.h"
#include "view/view_library.h"

namespace vanzet::view {
namespace {

using files::EnvironmentText;

constexpr const char* kQtLibrary = "libvanzet-view-qt.so";

bool HasDisplay() {
  constexpr const char* kVariables[] = {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};
  return std::ranges::any_of(kVariables, [](const char* name) { return !EnvironmentText(name).empty(); });
}

std::filesystem::path QtLibrary() {
  const std::string named = EnvironmentText("VANZET_VIEW_QT");
  return named.empty() ? platform::OwnFolder() / kQtLibrary : std::filesystem::path(named);
}

}  // namespace

Result<std::unique_ptr<View>> NativeView() {
  if (!HasDisplay()) return std::unique_ptr<View>();
  return ViewFromLibrary(QtLibrary());
}

}  // namespace vanzet::view
