#include "api/call.h"
#include "api/exports.h"

using namespace vanzet;
using namespace vanzet::api;

extern "C" {

OrvoNothing OrvoMissingAPI() {
  Answer("OrvoMissingAPI", {}, [](Host& host, Json&) {
    host.panel.Tell(Fault{"the module called a function that this host does not have"});
    return 0;
  });
  return {0, 0.0};
}

const char* OrvoEnvironment(const char* key) {
  const char* text = Answer("OrvoEnvironment", {TextOf(key)}, [&](Host& host, Json&) {
    return ReturnText(host, host.Environment(TextOf(key)));
  });
  return text == nullptr ? "" : text;
}

const char* OrvoStrMessage(std::int32_t group, std::int32_t id, const char* defaultText) {
  // The only group of texts.
  constexpr std::int32_t kGroup = 5;
  const char* text = Answer("OrvoStrMessage", {group, id, TextOf(defaultText)}, [&](Host& host, Json&) {
    const auto message = group == kGroup ? host.project.Message(id) : std::nullopt;
    return ReturnText(host, message.value_or(std::string(TextOf(defaultText))));
  });
  return text == nullptr ? "" : text;
}

void* OrvoGetStructPtr(const char* name) {
  // The part of the structure that modules use: its second member is the main window.
  static void* dllVars[2] = {};
  return Answer("OrvoGetStructPtr", {TextOf(name)}, [&](Host& host, Json&) -> void* {
    dllVars[1] = host.mainWindow;
    if (TextOf(name) == "DLLVARSXX") return static_cast<void*>(dllVars);
    host.panel.Tell(Fault{.text = "structure '" + std::string(TextOf(name)) + "' does not exist",
                          .kind = FaultKind::kMissing});
    return nullptr;
  });
}

void* OrvoGetWnd(std::int32_t selector) {
  // The host has at most one window; without it boxes have no parent.
  return Answer("OrvoGetWnd", {selector}, [](Host& host, Json&) { return host.mainWindow; });
}
}
