#include "define/events.h"

#include <map>

#include <nlohmann/json.hpp>

#include "base/number_text.h"
#include "define/tables.h"
#include "view/ids.h"

namespace vanzet::define {
namespace {

std::string Line(const char* word, std::int32_t id) {
  return std::string(word) + " " + std::to_string(id);
}

/// A word of a script in quotes.
std::string ScriptWord(const std::string& text) {
  std::string word = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') word += '\\';
    word += c;
  }
  return word + '"';
}

std::string SetLine(std::int32_t control, const Json& value) {
  const std::string set = Line("set", control) + " ";
  if (value.is_boolean()) return set + (value.get<bool>() ? "1" : "0");
  if (value.is_number()) return set + ExactText(value.get<double>());
  return set + ScriptWord(value.get<std::string>());
}

template <class Record>
void AddFields(const Json& record, std::span<const Field<Record>> fields, Step& step) {
  for (const Field<Record>& field : fields) {
    const std::string key(field.key);
    if (record.contains(key)) step.lines.push_back(SetLine(field.control, record[key]));
  }
}

void AddLetters(const Json& device, Step& step) {
  for (const auto& [letter, value] : device["letters"].items()) {
    step.lines.push_back(SetLine(control::EditOfLetter(letter.front()), value));
  }
}

/// Requires: the device has a name.
NamedDevice NamedDeviceOf(const Json& device, const DeviceRow& row) {
  const std::int32_t type = row.TypeOf(row.HasShapes() ? device["shape"].get<std::int32_t>() : 1);
  std::string values = std::to_string(type);
  // A type of the catalogue has letters from A on without a gap, as a value line has them.
  for (const devices::Letter& each : devices::LettersOf(type)) {
    values += " " + ExactText(device["letters"][std::string(1, each.letter)].get<double>());
  }
  return {device["name"].get<std::string>(), type, values};
}

/// The value of a key, or an object without keys.
const Json& At(const Json& place, const std::string& key) {
  static const Json kNone = Json::object();
  return place.contains(key) ? place[key] : kNone;
}

/// Makes the steps of one spur.
class SpurSteps {
 public:
  SpurSteps(std::string path, const Json& former, std::vector<Step>& steps)
      : path_(std::move(path)), former_(former), steps_(steps) {}

  void Enter(std::int32_t spur, bool hasSpurs) {
    Step& step = Begin(path_, node::kClampDevices);
    step.entersSpur = true;
    if (hasSpurs) step.lines.push_back(Line("choose", control::kSpurs) + " " + std::to_string(spur));
  }

  void Spindle(const Json& spur, std::size_t number) {
    const std::string key(kSpindleKeys[number]);
    const Json& spindle = At(spur, key);
    const std::string path = Below(path_, key);
    for (const DeviceRow& row : ClampRows()) Device(spindle, row, row.nodes[number], path);
    Device(spindle, JawRow(), JawRow().nodes[number], path);
    OneOf(spindle, BilletPart(), number, path);
    OneOf(spindle, FinishedPart(), number, path);
    const std::string billet(BilletPart().key);
    if (!spindle.contains(billet) && At(former_, key).contains(billet)) {
      Delete(Below(path, billet), BilletPart().deleteNodes[number]);
    }
  }

  void Center(const Json& spur) { Device(spur, CenterRow(), CenterRow().nodes[0], path_); }

  void SteadyRest(const Json& spur) {
    if (!spur.contains("steady_rest") || !spur["steady_rest"].get<bool>()) return;
    Step& step = Begin(Below(path_, "steady_rest"), node::kBezel);
    step.lines.push_back(SetLine(control::kUseBezel, true));
    step.lines.push_back(Line("press", control::kSelect));
  }

  void Datum(const Json& spur) {
    const std::string path = Below(path_, "datum");
    if (!spur.contains("datum")) return former_.contains("datum") ? Delete(path, node::kRootDatum) : void();
    Step& step = Begin(path, node::kDatum);
    for (std::size_t i = 0; i < std::size(kSpindleKeys); ++i) {
      const std::string key(kSpindleKeys[i]);
      if (spur["datum"].contains(key)) AddFields(spur["datum"][key], DatumFields(i), step);
    }
    step.lines.push_back(Line("press", control::kSelect));
  }

 private:
  Step& Begin(const std::string& path, std::int32_t node) {
    steps_.push_back({path, {Line("select", node)}});
    return steps_.back();
  }

  /// Deletes what was drawn of a former record.
  void Delete(const std::string& path, std::int32_t node) {
    steps_.push_back({path, {Line("context", node) + " " + std::to_string(command::kDeleteRecord)}});
  }

  void Device(const Json& spindle, const DeviceRow& row, std::int32_t node, const std::string& path) {
    const std::string key(row.Key());
    if (!spindle.contains(key)) return;
    const Json& device = spindle[key];
    Step& step = Begin(Below(path, key), node);
    if (row.Key() == JawRow().Key()) AddFields(device, JawFields(), step);
    if (device.contains("file")) {
      OwnDevice(device, row, step);
    } else {
      step.device = NamedDeviceOf(device, row);
      step.lines.push_back(Line("choose", control::kDeviceList) + " " + ScriptWord(step.device->name));
      AddLetters(device, step);
      step.lines.push_back(Line("press", control::kSelectParametric));
    }
  }

  /// The letters come from the file; only the first one of a center can be changed, after it was read.
  static void OwnDevice(const Json& device, const DeviceRow& row, Step& step) {
    constexpr const char* kChangeable = "A";
    step.lines.push_back(SetLine(control::kPath, device["file"]));
    step.lines.push_back(Line("press", control::kSelectOwn));
    if (row.Key() != CenterRow().Key() || !device.contains("letters")) return;
    if (!device["letters"].contains(kChangeable)) return;
    step.lines.push_back(SetLine(control::EditOfLetter('A'), device["letters"][kChangeable]));
    step.lines.push_back(Line("press", control::kSelectParametric));
  }

  template <class Record>
  void OneOf(const Json& spindle, const Part<Record>& part, std::size_t number, const std::string& path) {
    const std::string key(part.key);
    if (!spindle.contains(key)) return;
    const Json& record = spindle[key];
    const Kind<Record>& kind = *FindKind(part, record[kKind].get<std::string>());
    Step& step = Begin(Below(path, key), kind.nodes[number]);
    if (part.isPicked && record.contains("solid")) PickWhatIsLeftOut(record, step);
    AddFields(record, kind.fields, step);
    step.lines.push_back(Line("press", kind.select));
  }

  static void PickWhatIsLeftOut(const Json& billet, Step& step) {
    if (billet.contains("part_length") && billet.contains("clamp_diameter")) return;
    step.lines.push_back(Line("press", control::kPickSolid));
    step.picks.push_back("object " + billet["solid"].get<std::string>());
  }

  const std::string path_;
  const Json& former_;
  std::vector<Step>& steps_;
};

}  // namespace

std::vector<Step> StepsOf(const Json& form, const Json& former, bool hasSubSpindle, bool hasSpurs) {
  std::vector<Step> steps;
  const Json& spurs = form["spurs"];
  for (std::size_t i = spurs.size(); i-- > 0;) {
    const Json& spur = spurs[i];
    SpurSteps spurSteps("$.spurs[" + std::to_string(i) + "]", former["spurs"][i], steps);
    spurSteps.Enter(spur["spur"].get<std::int32_t>(), hasSpurs);
    for (std::size_t spindle = 0; spindle < (hasSubSpindle ? 2U : 1U); ++spindle)
      spurSteps.Spindle(spur, spindle);
    spurSteps.Center(spur);
    spurSteps.SteadyRest(spur);
    spurSteps.Datum(spur);
  }
  return steps;
}

std::vector<std::vector<Step>> PlaysOf(const std::vector<Step>& steps) {
  std::vector<std::vector<Step>> plays(1);
  std::map<std::string, std::int32_t> types;
  const Step* spur = nullptr;
  for (const Step& step : steps) {
    if (step.entersSpur) spur = &step;
    if (step.device &&
        types.try_emplace(step.device->name, step.device->type).first->second != step.device->type) {
      types = {{step.device->name, step.device->type}};
      plays.push_back({*spur});
    }
    plays.back().push_back(step);
  }
  return plays;
}

std::string CatalogueText(const std::vector<Step>& steps) {
  std::string text;
  for (const Step& step : steps) {
    if (step.device) text += step.device->name + "\n" + step.device->values + "\n";
  }
  return text;
}

Step OkStep() {
  return {"$", {Line("select", node::kClampDevices), Line("press", control::kOk)}};
}

Script ScriptOf(const std::vector<Step>& steps) {
  Script script{"", "", {0}};
  for (std::size_t i = 0; i < steps.size(); ++i) {
    script.text += "# " + steps[i].path + "\n";
    for (const std::string& line : steps[i].lines) script.text += line + "\n";
    for (const std::string& pick : steps[i].picks) script.picks += pick + "\n";
    script.stepOfLine.insert(script.stepOfLine.end(), steps[i].lines.size() + 1, i);
  }
  return script;
}

}  // namespace vanzet::define
