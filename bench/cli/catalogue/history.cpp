#include "base/one_line.h"
#include "base/quote.h"
#include "catalogue/comparison.h"
#include "cli/catalogue/family.h"
#include "cli/catalogue/places.h"
#include "cli/catalogue/print.h"

/// The command on the former states of a device.
namespace vanzet::cli {
namespace {

using catalogue::PastDevice;
using catalogue::Shop;

struct Arguments {
  std::vector<std::string> words;
  SplitWords read;
  bool isJson = false;
  std::optional<LengthUnit> unit;

  const std::string& Name() const { return read.words.front(); }
};

/// A state of a device with the one before it.
struct Step {
  const PastDevice& device;
  Shop before, now;  ///< without devices: none
  bool isOldestKept = false;
};

Result<Shop> ShopOf(const std::optional<catalogue::DeviceRow>& row, LengthUnit unit) {
  if (!row) return Shop();
  VANZET_TRY(const auto shop, catalogue::ShopOfRows({*row}, row->name));
  return shop.ShownIn(unit);
}

/// The states with those before them, the newest first.
Result<std::vector<Step>> StepsOf(const std::vector<PastDevice>& states, LengthUnit unit) {
  std::vector<Step> steps;
  for (std::size_t i = 0; i < states.size(); ++i) {
    const bool hasFormer = i + 1 < states.size();
    Step step{states[i], {}, {}, states[i].isChange && !hasFormer};
    VANZET_TRY(step.now, ShopOf(states[i].row, unit));
    VANZET_TRY(step.before, ShopOf(hasFormer ? states[i + 1].row : std::nullopt, unit));
    steps.push_back(std::move(step));
  }
  return steps;
}

const catalogue::Entry* EntryOf(const Shop& shop) {
  return shop.catalogue.entries().empty() ? nullptr : &shop.catalogue.entries().front();
}

const char* WordOf(const Step& step) {
  if (!step.device.row) return "removed";
  if (step.isOldestKept) return "kept";
  return step.device.isChange ? "changed" : "added";
}

/// The changes letter by letter, and those of the maker data.
std::vector<std::string> ChangesOf(const Step& step, const std::string& name) {
  const catalogue::Entry *const before = EntryOf(step.before), *const now = EntryOf(step.now);
  if (before != nullptr && now != nullptr) return DeviceChanges(step.before, name, step.now, name);
  return catalogue::FigureChangesOf(step.before.maker.Find(name), step.now.maker.Find(name));
}

std::string LineOf(const Step& step, const std::string& name) {
  const vdm::Generation& made = step.device.generation;
  std::string line = "generation " + std::to_string(made.number) + "  " + made.time + "  " + made.user + "@" +
                     made.host + "  " + made.occasion + ": " + WordOf(step);
  if (!step.device.row) return line;
  if (!step.device.isChange || step.isOldestKept) {
    const catalogue::Entry* const entry = EntryOf(step.now);
    return entry == nullptr ? line : line + "  " + cli::LineOf(*entry).substr(OneLine(name).size() + 2);
  }
  for (const std::string& change : ChangesOf(step, name)) {
    line += (line.ends_with(WordOf(step)) ? "  " : "; ") + change;
  }
  return line;
}

Json DeviceOrNull(const Shop& shop) {
  const catalogue::Entry* const entry = EntryOf(shop);
  return entry == nullptr ? Json() : JsonOf(shop, *entry);
}

Json JsonOf(const std::vector<Step>& steps, const std::string& name, LengthUnit unit) {
  Json list = Json::array();
  for (const Step& step : steps) {
    const vdm::Generation& made = step.device.generation;
    list.push_back({{"generation", made.number},
                    {"time", made.time},
                    {"user", made.user},
                    {"host", made.host},
                    {"occasion", made.occasion},
                    {"change", WordOf(step)},
                    {"changes", ChangesOf(step, name)},
                    {"device", DeviceOrNull(step.now)}});
  }
  Json json = UnitJson(unit);
  json["name"] = name;
  json["generations"] = std::move(list);
  return json;
}

Result<std::vector<PastDevice>> StatesOf(const Arguments& arguments, const catalogue::ShopPlace& place) {
  if (!place.IsOnServer()) {
    return Fault{"a catalogue has a history when the store of its project is on a server; this one is a file",
                 place.file.string()};
  }
  VANZET_TRY(auto states, place.Server().History(arguments.Name()));
  if (!states.empty()) return states;
  // The near names are those of the devices of now.
  VANZET_TRY(const auto shop, ReadShop(place));
  VANZET_DO(FindDevice(shop, arguments.Name()));
  return states;
}

Result<void> History(const Arguments& arguments, const Context& context) {
  VANZET_TRY(const auto place, ShopPlaceOf(arguments.read.project.string(), context));
  VANZET_TRY(const auto unit, UnitOf(arguments.unit, arguments.read.project.string(), context));
  VANZET_TRY(const auto states, StatesOf(arguments, place));
  VANZET_TRY(const auto steps, StepsOf(states, unit));
  if (arguments.isJson) return PrintJson(JsonOf(steps, arguments.Name(), unit));
  std::string lines;
  for (const Step& step : steps) lines += OneLine(LineOf(step, arguments.Name())) + "\n";
  return Print(lines.empty() ? "no generation was stored yet\n" : lines);
}

}  // namespace

void AddCatalogueHistory(Command& catalogue, Context& context) {
  const auto arguments = std::make_shared<Arguments>();
  Command& command = catalogue.AddCommand(
      "history", "Lists the changes of a device, the newest first: when, who, and each letter that changed.");
  command.AddOperands("[PROJECT] NAME", kCatalogueHelp, arguments->words).Required().Count(1, 2);
  command.AddFlag("--json", "print JSON", arguments->isJson);
  AddUnit(command, arguments->unit);
  command.notes =
      "A catalogue on the server of a shared store has a history; one in files does not. The setting 'keep' "
      "in\nbench.ini says how many states of a device stay.";
  command.examples = {"vanzet catalogue history lathe 'Chuck 160'"};
  command.check = [=] { arguments->read = SplitCatalogue(arguments->words, 1); };
  command.work = [=, &context] { return History(*arguments, context); };
}

}  // namespace vanzet::cli
