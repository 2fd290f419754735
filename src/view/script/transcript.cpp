#include "view/script/transcript.h"

#include <cerrno>
#include <fstream>
#include <iostream>

#include "base/files/system_fault.h"
#include "platform/files.h"
#include "platform/host_extensions.h"
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

Fault CannotBeWritten(const std::string& file, int error) {
  constexpr const char* kWhat = "the transcript cannot be written";
  if (file.empty()) return {.text = "standard output cannot be written", .kind = FaultKind::kSystem};
  if (error == 0) return {.text = kWhat, .file = file, .kind = FaultKind::kSystem};
  return files::SystemFault(kWhat, error, file);
}

}  // namespace

Transcript::Transcript(const std::string& file) {
  if (file.empty()) return;
  errno = 0;
  auto stream = std::make_unique<std::ofstream>(platform::FileOf(file), std::ios::binary);
  if (stream->is_open()) {
    name_ = file;
    file_ = std::move(stream);
    return;
  }
  platform::ReportFault(CannotBeWritten(file, errno));
  std::cerr << file + ": the transcript cannot be written there; it goes to standard output\n";
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
  if (!isComplete_) return;
  std::ostream& stream = file_ ? *file_ : std::cout;
  errno = 0;
  stream << object + "\n" << std::flush;
  if (stream) return;
  isComplete_ = false;
  platform::ReportFault(CannotBeWritten(name_, errno));
}

}  // namespace vanzet::view
