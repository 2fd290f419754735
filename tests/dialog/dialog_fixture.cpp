#include "dialog/dialog_fixture.h"

#include <algorithm>
#include <sstream>

#include "store/billet_vdm.h"

namespace vanzet::test {
namespace {

using nlohmann::json;

std::string ShortBox(const json& event) {
  const std::string caption = event["caption"];
  std::string text = "box " + event["type"].dump() + " ";
  if (!caption.empty()) text += "[" + caption + "] ";
  text += std::string(event["text"]);
  return event["answer"] == 1 ? text : text + " -> " + event["answer"].dump();
}

std::string ShortPopup(const json& event) {
  std::string text = "popup " + event["node"].dump();
  for (const json& entry : event["entries"]) {
    text += " " + entry["command"].dump() + " " + std::string(entry["text"]);
  }
  return text + " -> " + event["chosen"].dump();
}

std::string ShortFile(const json& event) {
  const json& result = event["result"];
  return std::string(event["kind"]) + " " + (result.is_null() ? "-" : std::string(result));
}

std::string Short(const json& event) {
  const std::string kind = event["event"];
  if (kind == "box") return ShortBox(event);
  if (kind == "popup") return ShortPopup(event);
  if (kind == "file-dialog") return ShortFile(event);
  if (kind == "visible") return event["value"] ? "show" : "hide";
  if (kind == "focus") return "focus " + event["control"].dump() + (event["select_all"] ? " all" : "");
  if (kind == "closed") return "closed " + std::string(event["by"]);
  return "error " + event["line"].dump() + " " + std::string(event["text"]);
}

}  // namespace

std::vector<int> Ran::Bold() const {
  std::vector<int> bold;
  for (const json& node : State()["tree"]) {
    if (node["bold"]) bold.push_back(node["id"]);
  }
  return bold;
}

DialogWorld::DialogWorld() {
  host.environment = {{"ppdefini", (folder / "machine.ini").string()},
                      {"clampmdb", catalogue.string()},
                      {"TMP", folder.path().string()}};
  host.integers = {{"i_billet_vdm", 1000},
                   {"i_billet_vdm_spispur", 2000},
                   {"i_tool_collect_vdm", 1900},
                   {"i_return", 0},
                   {"i_return2", 0},
                   {"i_ret", 0}};
  host.reals = {{"w_return", 0}, {"w_return2", 0}};
  host.texts = {{"$_return", ""},   {"$_misc", ""},    {"$_helptopic", ""},
                {"$_root_dir", ""}, {"$_COUNTRY", ""}, {"$_USER_DATA_SETTINGS", "/settings"}};
  host.layers = {"0"};
  host.onCommand = [this](const std::string& line) { OnCommand(line); };
  host.onMacro = [this](const std::string& name, const std::string&) { OnMacro(name); };
  WriteBytes(catalogue, "");
  SetMachine({});
}

void DialogWorld::SetMachine(const Machine& machine) {
  WriteBytes(folder / "machine.ini", "[COMMON]\nNR_SPINDEL_SPUR=" + std::to_string(machine.spurs) + "\n");
  host.environment["SubSpindleAvailable"] = machine.sub ? "1" : "0";
  host.environment["TailStockAvailable"] = machine.tail ? "1" : "0";
  host.environment["LunAvailable"] = machine.lun ? "1" : "0";
  host.vdms.clear();
  NewDefinition(1000);
  for (int spur = 1; spur < machine.spurs; ++spur) NewDefinition(1999U + static_cast<std::uint32_t>(spur));
}

void DialogWorld::NewDefinition(std::uint32_t vdm) {
  BilletVdm(vdm).ReOrg([](BilletVdm&, bool) {});
  host.TakeCalls();
}

Ran DialogWorld::Run(const std::string& script) {
  WriteBytes(folder / "script.txt", script);
  const std::filesystem::path transcript = folder / "run.jsonl";
  ServeDialog(folder / "script.txt", transcript, &window);
  Ran ran;
  std::istringstream lines(ReadBytes(transcript));
  for (std::string line; std::getline(lines, line);) {
    ran.transcript.push_back(line);
    json event = json::parse(line);
    if (event["event"] == "state") {
      ran.states.push_back(std::move(event));
    } else {
      ran.events.push_back(Short(event));
    }
  }
  return ran;
}

std::vector<std::string> DialogWorld::Stored(std::uint32_t vdm) const {
  FakeHost fresh;
  BilletVdm(1).ReOrg([](BilletVdm&, bool) {});
  const auto& old = fresh.vdms.at(1).records;
  std::vector<std::string> stored;
  const auto& records = host.vdms.at(vdm).records;
  for (std::size_t operation = 0; operation < records.size(); ++operation) {
    for (std::size_t item = 0; item < records[operation].size(); ++item) {
      const bool isOld = operation < old.size() && item < old[operation].size() &&
                         old[operation][item] == records[operation][item];
      if (isOld) continue;
      stored.push_back(std::to_string(operation) + "." + std::to_string(item) + " " +
                       records[operation][item]);
    }
  }
  return stored;
}

void DialogWorld::OnCommand(const std::string& line) {
  if (line.starts_with("dfm pick ")) {
    const FigurePick pick = figures.empty() ? FigurePick{27, 0} : figures.front();
    if (!figures.empty()) figures.pop_front();
    host.integers["i_return"] = pick.status;
    host.integers["i_return2"] = pick.number;
  } else if (line.starts_with("i1215=")) {
    host.integers["i1215"] = std::stoi(line.substr(6));
  } else if (line == "dfm inf i1215") {
    host.texts["$_misc"] = figureNames[host.integers["i1215"]];
  } else if (line == "$_return=$_misc") {
    host.texts["$_return"] = host.texts["$_misc"];
  } else if (line.starts_with("env '")) {
    const std::string key = line.substr(5, line.find('\'', 5) - 5);
    host.texts["$_return"] = host.environment[key];
  } else if (line.starts_with("vdm load '")) {
    LoadVdm(line);
  }
}

void DialogWorld::LoadVdm(const std::string& line) {
  const std::size_t quote = line.find('\'', 10);
  const auto file = files.find(line.substr(10, quote - 10));
  host.integers["i_ret"] = file == files.end() ? -1 : 0;
  if (file == files.end()) return;
  const std::string number = line.substr(line.rfind(' ') + 1);
  const bool isName = host.integers.contains(number);
  const int vdm = isName ? host.integers[number] : std::stoi(number);
  host.vdms[static_cast<std::uint32_t>(vdm)].records = file->second;
}

void DialogWorld::OnMacro(const std::string& name) {
  if (name != "vbpickel") return;
  const Position position = positions.empty() ? Position{27} : positions.front();
  if (!positions.empty()) positions.pop_front();
  host.integers["i_return"] = position.status;
  host.reals["w_return"] = position.axial;
  host.reals["w_return2"] = position.radial;
}

std::vector<std::string> DialogTest::CallsOf(const std::string& script) {
  host.TakeCalls();
  Run("");
  const std::size_t atStart = host.TakeCalls().size();
  Run(script);
  std::vector<std::string> calls = host.TakeCalls();
  calls.erase(calls.begin(), calls.begin() + static_cast<std::ptrdiff_t>(std::min(atStart, calls.size())));
  std::erase_if(calls, [](const std::string& call) {
    return call.starts_with("OrvoStrMessage") || call.starts_with("OrvoMacroVdm") ||
           call.starts_with("OrvoGetWnd");
  });
  return calls;
}

std::string Readable(const Ran& ran) {
  std::string text;
  for (const std::string& line : ran.transcript) {
    if (!line.starts_with("{\"event\":\"state\"")) {
      text += line + "\n";
      continue;
    }
    const std::size_t tree = line.find(",\"tree\":");
    text += line.substr(0, tree) + "\n";
    const json state = json::parse(line);
    for (const auto& [id, control] : state["controls"].items())
      text += "  " + id + " " + control.dump() + "\n";
  }
  return text;
}

}  // namespace vanzet::test
