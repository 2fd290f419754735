#include "cli/script_report.h"

#include <algorithm>
#include <cerrno>
#include <fstream>

#include <nlohmann/json.hpp>

#include "base/files/system_fault.h"
#include "base/one_line.h"
#include "base/quote.h"
#include "cli/output.h"
#include "define/write.h"
#include "results/definitions.h"
#include "scene/equipment.h"

namespace vanzet::cli {
namespace {

/// The report of a transcript on the messages and of the end of the dialog.
struct Played {
  std::size_t messages = 0;
  std::string first;  ///< the text of the first message
  std::string end;    ///< "ok"; empty: the dialog was not closed
};

/// How the dialog was closed.
struct Ending {
  std::string_view by;
  std::string_view words;
};
constexpr Ending kEndings[] = {
    {"ok", "closed by OK"},
    {"close", "closed without OK"},
    {"end-of-script", "closed by the end of the script, without OK"},
    {"", "the dialog was not opened"},
};

/// Reads the events of a transcript. States are many and long, and are passed over by their first bytes.
Result<Played> EventsOf(const std::filesystem::path& transcript) {
  Played played;
  std::ifstream lines(transcript);
  if (!lines.is_open()) return files::SystemFault("cannot be read", errno, transcript);
  for (std::string line; std::getline(lines, line);) {
    const bool isBox = line.starts_with(R"({"event":"box")");
    if (!isBox && !line.starts_with(R"({"event":"closed")")) continue;
    const Json event = Json::parse(line, nullptr, false);
    if (!event.is_object()) continue;
    if (!isBox) {
      played.end = event.value("by", "");
    } else if (played.messages++ == 0) {
      played.first = event.value("text", "");
    }
  }
  if (lines.bad()) return files::SystemFault("cannot be read", errno, transcript);
  return played;
}

std::string MessagesText(const Played& played) {
  if (played.messages == 0) return "no messages";
  const char* const first = played.messages == 1 ? ": " : ", the first: ";
  return Counted(played.messages, "message") + first + OneLine(Quoted(played.first));
}

std::string_view EndText(const Played& played) {
  return std::ranges::find(kEndings, played.end, &Ending::by)->words;
}

}  // namespace

Result<ScriptReport> ScriptReport::Begin(const project::Project& project, const vdm::VdmStore& store) {
  ScriptReport report(project, store);
  VANZET_TRY(report.before_, report.Equipment());
  return report;
}

Result<std::vector<std::string>> ScriptReport::Equipment() const {
  VANZET_TRY(const auto spurs, results::ReadHeads(*project_, *store_));
  std::vector<std::string> forms;
  for (const results::SpurDefinition& spur : spurs) {
    const auto equipment = spur.definition ? scene::ReadEquipment(*spur.definition) : scene::Equipment();
    define::Refusals leftOut;
    forms.push_back(define::SpurForm(spur.spur, equipment, "$", leftOut)
                        .dump(-1, ' ', false, Json::error_handler_t::replace));
  }
  return forms;
}

Result<std::string> ScriptReport::Changes() const {
  VANZET_TRY(const auto after, Equipment());
  std::string spurs;
  for (std::size_t i = 0; i < std::min(after.size(), before_.size()); ++i) {
    if (after[i] != before_[i]) spurs += (spurs.empty() ? "" : ", ") + std::to_string(i);
  }
  if (spurs.empty()) return std::string("changed no spur");
  const bool isOne = spurs.find(',') == std::string::npos;
  return (isOne ? "changed spur " : "changed spurs ") + spurs;
}

Result<std::string> ScriptReport::Line(const std::string& script,
                                       const std::filesystem::path& transcript) const {
  VANZET_TRY(const auto changes, Changes());
  std::string line = OneLine(script) + ": " + changes;
  std::error_code unknown;
  if (std::filesystem::is_regular_file(transcript, unknown)) {
    VANZET_TRY(const auto played, EventsOf(transcript));
    line += "; " + MessagesText(played) + "; " + std::string(EndText(played));
  }
  return line + "\n";
}

}  // namespace vanzet::cli
