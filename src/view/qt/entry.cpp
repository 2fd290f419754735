#include <exception>
#include <string>

#include "view/qt/application.h"
#include "view/qt/qt_view.h"
#include "view/view_entry.h"

#if defined(_WIN32)
#define VANZET_VIEW_EXPORT __declspec(dllexport)
#else
#define VANZET_VIEW_EXPORT __attribute__((visibility("default")))
#endif

extern "C" {

/// The entry of view/view_entry.h: a view with windows of Qt.
VANZET_VIEW_EXPORT vanzet::view::ViewAnswer vanzetQtView(std::int32_t version);
}

using vanzet::view::ViewAnswer;

namespace {

ViewAnswer Refuse(const std::string& why) {
  static std::string reason;
  reason = why;
  return {nullptr, reason.c_str()};
}

ViewAnswer Answer(std::int32_t version) {
  if (version != vanzet::view::kViewVersion) {
    return Refuse("the versions of the Qt view and of the module differ: " +
                  std::to_string(vanzet::view::kViewVersion) + " and " + std::to_string(version));
  }
  const auto application = vanzet::view::qt::EnsureApplication();
  if (!application) return Refuse(application.fault().Message());
  return {new vanzet::view::qt::QtView, nullptr};
}

}  // namespace

ViewAnswer vanzetQtView(std::int32_t version) {
  try {
    return Answer(version);
  } catch (const std::exception& error) {
    return Refuse(error.what());
  }
}
