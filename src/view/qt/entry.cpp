#include "view/qt/entry.h"

#include <exception>
#include <string>

#include "view/qt/application.h"
#include "view/qt/qt_view.h"

using vanzet::view::ViewAnswer;

namespace {

ViewAnswer Refused(const std::string& why) {
  static std::string reason;
  reason = why;
  return {nullptr, reason.c_str()};
}

ViewAnswer Answer(std::int32_t version) {
  if (version != vanzet::view::kViewVersion) {
    return Refused("the Qt view and the module are of different versions, " +
                   std::to_string(vanzet::view::kViewVersion) + " and " + std::to_string(version));
  }
  const auto application = vanzet::view::qt::EnsureApplication();
  if (!application) return Refused(application.fault().Message());
  return {new vanzet::view::qt::QtView, nullptr};
}

}  // namespace

ViewAnswer vanzetQtView(std::int32_t version) {
  try {
    return Answer(version);
  } catch (const std::exception& error) {
    return Refused(error.what());
  }
}
