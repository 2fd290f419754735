#include <optional>

#include "base/one_line.h"
#include "base/quote.h"
#include "catalogue/comparison.h"
#include "catalogue/kinds.h"
#include "cli/catalogue/assignments.h"
#include "cli/catalogue/family.h"
#include "cli/catalogue/places.h"
#include "cli/catalogue/print.h"

/// The commands that change single devices of a catalogue.
namespace vanzet::cli {
namespace {

using catalogue::Shop;

struct Arguments {
  std::vector<std::string> words;
  SplitWords read;
  std::string kind;
  std::vector<Assignment> letters, figures;
  bool replaces = false, isJson = false;
  std::optional<LengthUnit> unit;

  const std::string& Name() const { return read.words.front(); }
};

/// Prints the device that was changed.
Result<void> PrintChanged(const Shop& shop, LengthUnit unit, const Arguments& arguments,
                          const std::string& line) {
  const Shop shown = shop.ShownIn(unit);
  if (arguments.isJson) return PrintJson(JsonOf(shown, {shown.catalogue.Find(arguments.Name())}, unit));
  return Print(line + "\n");
}

/// The fault with the file that it is about.
Fault WithFile(Fault fault, const std::filesystem::path& file) {
  if (fault.file.empty()) fault.file = file.string();
  return fault;
}

/// A change of a shop; it returns the line to be printed.
using Change = std::function<Result<std::string>(const Edit&)>;

/// Changes the catalogue and prints the device as it is then.
Result<void> ChangeAndPrint(const Arguments& arguments, const Context& context, const std::string& occasion,
                            const Change& change) {
  VANZET_TRY(const auto place, ShopPlaceOf(arguments.read.project.string(), context));
  VANZET_TRY(const auto unit, UnitOf(arguments.unit, arguments.read.project.string(), context));
  Shop changed;
  std::string line;
  VANZET_DO(catalogue::ChangeShop(place, occasion, [&](Shop& shop) -> Result<bool> {
    const auto text = change({shop, unit});
    if (!text) return WithFile(text.fault(), place.file);
    line = *text;
    changed = shop;
    return true;
  }));
  return PrintChanged(changed, unit, arguments, line);
}

Result<std::string> AddTo(const Edit& edit, const Arguments& arguments) {
  const std::string& name = arguments.Name();
  const bool isThere = edit.shop.catalogue.Find(name) != nullptr;
  if (isThere && !arguments.replaces)
    return Fault{"the catalogue already has the device " + Quoted(name) + "; --replace replaces it"};
  const DeviceParams empty{.type = catalogue::TypesOfWord(arguments.kind).front()};
  VANZET_DO(PutDevice(edit, name, empty, arguments.letters));
  VANZET_DO(SetFigures(edit, name, arguments.figures));
  return (isThere ? "replaced " : "added ") + edit.LineOf(*edit.shop.catalogue.Find(name));
}

Result<std::string> SetIn(const Edit& edit, const Arguments& arguments) {
  VANZET_TRY(const auto* const entry, FindDevice(edit.shop, arguments.Name()));
  const std::string name = entry->name;
  const Shop old = edit.shop.ShownIn(edit.unit);
  if (!arguments.letters.empty()) VANZET_DO(PutDevice(edit, name, entry->params, arguments.letters));
  VANZET_DO(SetFigures(edit, name, arguments.figures));
  const Shop now = edit.shop.ShownIn(edit.unit);
  std::string line;
  // NOLINTNEXTLINE(readability-suspicious-call-argument): from the old shop to the one of now
  for (const std::string& change : catalogue::DeviceChanges(old, name, now, name)) {
    line += (line.empty() ? "" : "; ") + change;
  }
  return OneLine(name + ": " + (line.empty() ? "nothing was changed" : line));
}

Result<void> Remove(const Arguments& arguments, const Context& context) {
  VANZET_TRY(const auto place, ShopPlaceOf(arguments.read.project.string(), context));
  VANZET_TRY(const auto unit, UnitOf(arguments.unit, arguments.read.project.string(), context));
  Json removed;
  std::string line;
  VANZET_DO(catalogue::ChangeShop(place, "catalogue remove", [&](Shop& shop) -> Result<bool> {
    VANZET_TRY(const auto* const entry, FindDevice(shop, arguments.Name()));
    const Shop shown = shop.ShownIn(unit);
    removed = JsonOf(shown, {shown.catalogue.Find(arguments.Name())}, unit);
    line = "removed " + Edit{shop, unit}.LineOf(*entry);
    shop.catalogue.Remove(arguments.Name());
    const bool hasAnother = shop.catalogue.Find(arguments.Name()) != nullptr;
    if (hasAnother) line += "; the catalogue has another device of that name";
    if (!hasAnother) shop.maker.Put(arguments.Name(), nullptr);
    return true;
  }));
  return arguments.isJson ? PrintJson(removed) : Print(line + "\n");
}

/// Splits the words of `set`: [PROJECT] NAME KEY=VALUE...; the first word with a sign that follows a name is
/// the first value.
void ReadSetWords(Arguments& arguments) {
  std::vector<std::string>& words = arguments.words;
  std::size_t names = 1;
  if (words.size() > 2 && (words[1].find('=') == std::string::npos)) names = 2;
  arguments.read = SplitCatalogue({words.begin(), words.begin() + static_cast<std::ptrdiff_t>(names)}, 1);
  for (std::size_t i = names; i < words.size(); ++i) {
    Assignment assignment = AssignmentOf("KEY=VALUE", words[i]);
    (assignment.IsLetter() ? arguments.letters : arguments.figures).push_back(std::move(assignment));
  }
}

Command& AddEdit(Command& catalogue, const char* name, const char* help, const char* operands,
                 const std::shared_ptr<Arguments>& arguments) {
  Command& command = catalogue.AddCommand(name, help);
  command.AddOperands(operands, kCatalogueHelp, arguments->words).Required().Count(1, 2);
  command.AddFlag("--json", "print the device as JSON", arguments->isJson);
  AddUnit(command, arguments->unit);
  command.check = [=] { arguments->read = SplitCatalogue(arguments->words, 1); };
  return command;
}

}  // namespace

void AddCatalogueAdd(Command& catalogue, Context& context) {
  const auto arguments = std::make_shared<Arguments>();
  Command& command =
      AddEdit(catalogue, "add", "Adds a device to a catalogue, which is made where it is missing.",
              "[PROJECT] NAME", arguments);
  command.AddOption("--kind", "KIND", "the kind of the device", StoreText(arguments->kind))
      .Required()
      .OneOf(catalogue::ParametricWords());
  command
      .AddOption("--letter", "A=VALUE", "the value of a letter, a length or degrees; without it 0",
                 StoreLetter(arguments->letters))
      .Repeatable();
  command
      .AddOption("--maker", "KEY=VALUE", "a figure of the maker, as 'set' takes it",
                 [=](const std::string& name, const std::string& word) {
                   arguments->figures.push_back(AssignmentOf(name, word));
                 })
      .Repeatable();
  command.AddFlag("--replace", "replace a device of that name", arguments->replaces);
  command.notes = "Values that make no solid are refused.";
  command.examples = {
      "vanzet catalogue add lathe 'Chuck 250' --kind chuck --letter A=125 --letter B=105 --letter C=35",
      "vanzet catalogue add lathe 'Chuck 160' --kind chuck --letter A=80 --letter B=92 --letter C=26 "
      "--replace"};
  command.work = [=, &context] {
    return ChangeAndPrint(*arguments, context, "catalogue add",
                          [&](const Edit& edit) { return AddTo(edit, *arguments); });
  };
}

void AddCatalogueSet(Command& catalogue, Context& context) {
  const auto arguments = std::make_shared<Arguments>();
  Command& command =
      catalogue.AddCommand("set", "Changes letters and maker data of a device of a catalogue.");
  command.AddOperands("[PROJECT] NAME KEY=VALUE...", kCatalogueHelp, arguments->words).Required();
  command.AddFlag("--json", "print the device as JSON", arguments->isJson);
  AddUnit(command, arguments->unit);
  command.notes =
      "KEY is a letter, or one of the maker data, which are in clampdevice.json beside the catalogue:\n"
      "clamp_outside and clamp_inside (a range of diameters, such as 20..160), through_hole, stroke and "
      "max_bar_length\n(lengths), max_speed (1/min), max_force (kN), max_pressure (bar), mass and max_mass "
      "(kg),\norder, link and note (texts). An empty value removes a figure.";
  command.examples = {
      "vanzet catalogue set lathe 'Chuck 160' B=92",
      "vanzet catalogue set lathe 'Chuck 160' max_speed=4500 clamp_outside=20..160 order=KF-160"};
  command.check = [=] {
    if (arguments->words.size() < 2) throw WrongUsage{"KEY=VALUE", "is missing"};
    ReadSetWords(*arguments);
  };
  command.work = [=, &context] {
    return ChangeAndPrint(*arguments, context, "catalogue set",
                          [&](const Edit& edit) { return SetIn(edit, *arguments); });
  };
}

void AddCatalogueRemove(Command& catalogue, Context& context) {
  const auto arguments = std::make_shared<Arguments>();
  Command& command = AddEdit(catalogue, "remove", "Removes a device and its maker data from a catalogue.",
                             "[PROJECT] NAME", arguments);
  command.examples = {"vanzet catalogue remove lathe 'Collet D20'"};
  command.work = [=, &context] { return Remove(*arguments, context); };
}

}  // namespace vanzet::cli
