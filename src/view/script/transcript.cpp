#include "view/script/transcript.h"

#include <fstream>
#include <iostream>

#include "platform/files.h"
#include "view/script/json.h"
#include "view/script/state_json.h"

namespace vanzet::view {
namespace {

JsonList Event(std::string_view name) {
  JsonList json;
  json.Text("event", name);
  return json;
}

std::string EntriesJson(const std::vector<PopupEntry>& entries) {
  JsonList array;
  for (const PopupEntry& entry : entries) {
    array.Element(JsonList().Number("command", entry.command).Text("text", entry.text).AsObject());
  }
  return array.AsArray();
}

}  // namespace

Transcript::Transcript(const std::string& file) {
  if (file.empty()) return;
  auto stream = std::make_unique<std::ofstream>(platform::FileOf(file), std::ios::binary);
  if (stream->is_open()) {
    file_ = std::move(stream);
  } else {
    std::cerr << file + ": the transcript cannot be written there; it goes to standard output\n";
  }
}

void Transcript::Box(const platform::MessageBox& message, std::int32_t answer) {
  Write(Event("box")
            .Text("caption", message.caption)
            .Text("text", message.text)
            .Number("type", message.type)
            .Number("answer", answer)
            .AsObject());
}

void Transcript::FileDialog(const platform::FileQuestion& question,
                            const std::optional<std::string>& result) {
  Write(Event("file-dialog")
            .Text("kind", question.kind == platform::FileQuestion::Kind::kOpen ? "open" : "save")
            .Text("filter", question.filter)
            .Text("default_extension", question.defaultExtension)
            .Text("start_folder", question.startFolder)
            .Text("suggested", question.suggested)
            .Json("result", result ? JsonString(*result) : "null")
            .AsObject());
}

void Transcript::Popup(std::int32_t node, const std::vector<PopupEntry>& entries,
                       std::optional<std::int32_t> chosen) {
  Write(Event("popup")
            .Number("node", node)
            .Json("entries", EntriesJson(entries))
            .Json("chosen", chosen ? std::to_string(*chosen) : "null")
            .AsObject());
}

void Transcript::Visible(bool isVisible) {
  Write(Event("visible").Truth("value", isVisible).AsObject());
}

void Transcript::Focus(std::int32_t control, bool selectsAll) {
  Write(Event("focus").Number("control", control).Truth("select_all", selectsAll).AsObject());
}

void Transcript::State(const DialogState& state) {
  Write(StateJson(state));
}

void Transcript::Closed(std::string_view by) {
  Write(Event("closed").Text("by", by).AsObject());
}

void Transcript::Error(int line, std::string_view text) {
  Write(Event("error").Number("line", line).Text("text", text).AsObject());
}

void Transcript::Write(const std::string& object) {
  (file_ ? *file_ : std::cout) << object + "\n" << std::flush;
}

}  // namespace vanzet::view
