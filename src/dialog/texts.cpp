#include "dialog/texts.h"

#include "host/bridge.h"
#include "host/host_functions.h"
#include "host/message_ids.h"
#include "host/messages.h"
#include "platform/message_box.h"

namespace vanzet::dialog {
namespace {

std::string_view DefaultOf(std::int32_t id, std::string_view given) {
  return given.empty() ? host::DefaultText(id) : given;
}

}  // namespace

std::string Text(std::int32_t id, std::string_view defaultText) {
  return host::hostFunctions.OrvoStrMessage(host::kMessageGroup, id, std::string(DefaultOf(id, defaultText)));
}

std::string TextByMessage(std::int32_t id, std::string_view defaultText) {
  std::string text;
  return host::TextMessage(id, DefaultOf(id, defaultText), text);
}

std::string SpindleHeader(std::int32_t spindle, std::int32_t title) {
  const std::string name = spindle == 1 ? TextByMessage(message::kSubSpindle, "Sub Spindle")
                                        : TextByMessage(message::kMainSpindle, "Main Spindle");
  return name + ": " + TextByMessage(title);
}

void Notice(const std::string& text) {
  host::HostMessageBox("", text, platform::box::kOk);
}

std::string ReplaceAll(std::string text, std::string_view mark, std::string_view by) {
  for (std::size_t at = text.find(mark); at != std::string::npos; at = text.find(mark, at + by.size())) {
    text.replace(at, mark.size(), by);
  }
  return text;
}

}  // namespace vanzet::dialog
