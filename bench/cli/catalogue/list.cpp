#include "catalogue/kinds.h"
#include "catalogue/picture.h"
#include "catalogue/query.h"
#include "cli/catalogue/family.h"
#include "cli/catalogue/pictures.h"
#include "cli/catalogue/places.h"
#include "cli/catalogue/print.h"

/// The commands that find devices of a catalogue.
namespace vanzet::cli {
namespace {

using catalogue::Query;

constexpr const char* kSheetSvg = "draw the devices on a sheet, into this .svg file";
constexpr const char* kSheetPng = "draw the devices on a sheet, into this .png file";

struct Arguments {
  std::vector<std::string> words;
  SplitWords read;
  std::string kind;
  std::vector<catalogue::Condition> conditions;
  PictureFiles pictures;
  bool isJson = false;
  std::optional<LengthUnit> unit;
};

/// The devices of a catalogue with their lengths in a unit.
struct ShownShop {
  catalogue::Shop shop;
  LengthUnit unit;
};

Result<ShownShop> LoadShownShop(const std::string& word, std::optional<LengthUnit> given,
                                const Context& context) {
  VANZET_TRY(const auto unit, UnitOf(given, word, context));
  VANZET_TRY(auto shop, LoadShop(word, context));
  if (unit != LengthUnit::kMillimetre) shop = shop.ShownIn(unit);
  return ShownShop{std::move(shop), unit};
}

Query QueryFrom(const Arguments& arguments) {
  Query query;
  for (const std::string& text : arguments.read.words) {
    const Query found = catalogue::QueryOf(text);
    query.words.insert(query.words.end(), found.words.begin(), found.words.end());
    query.conditions.insert(query.conditions.end(), found.conditions.begin(), found.conditions.end());
  }
  query.types = catalogue::TypesOfWord(arguments.kind);
  query.conditions.insert(query.conditions.end(), arguments.conditions.begin(), arguments.conditions.end());
  return query;
}

Result<void> List(const Arguments& arguments, const Context& context) {
  VANZET_TRY(const auto loaded, LoadShownShop(arguments.read.project.string(), arguments.unit, context));
  const auto& [shop, unit] = loaded;
  const auto found = Search(shop, QueryFrom(arguments));
  if (arguments.pictures.AreAsked()) {
    VANZET_TRY(const auto sheet, catalogue::SheetOf(found));
    return WritePictures(arguments.pictures, shop, sheet, arguments.isJson);
  }
  if (arguments.isJson) return PrintJson(JsonOf(shop, found, unit));
  return Print(found.empty() ? "no device was found\n" : TableOf(found, context));
}

TakeWord StoreCondition(std::vector<catalogue::Condition>& conditions) {
  return [&conditions](const std::string& name, const std::string& word) {
    const auto condition = catalogue::ConditionOf(word);
    const bool isOfLetter = condition && condition->key.size() == 1;
    if (!isOfLetter) throw WrongUsage{name, "expected A=80 or A=70..90, found '" + word + "'"};
    conditions.push_back(*condition);
  };
}

/// Adds the options that choose devices, and the forms in which they are printed.
void AddChoice(Command& command, Arguments& arguments) {
  command.AddOption("--kind", "KIND", "only devices of this kind", StoreText(arguments.kind))
      .OneOf(catalogue::FilterWords());
  command
      .AddOption("--letter", "A=MIN..MAX",
                 "only devices with this letter in the range, such as A=70..90 or A=80",
                 StoreCondition(arguments.conditions))
      .Repeatable();
  command.AddFlag("--json", "print JSON", arguments.isJson);
  AddUnit(command, arguments.unit);
  AddPictureFiles(command, arguments.pictures, kSheetSvg, kSheetPng);
}

struct ShowArguments {
  std::vector<std::string> words;
  SplitWords read;
  PictureFiles pictures;
  bool isJson = false;
  std::optional<LengthUnit> unit;
};

Result<void> Show(const ShowArguments& arguments, const Context& context) {
  VANZET_TRY(const auto loaded, LoadShownShop(arguments.read.project.string(), arguments.unit, context));
  const auto& [shop, unit] = loaded;
  VANZET_TRY(const auto* const entry, FindDevice(shop, arguments.read.words.front()));
  if (arguments.pictures.AreAsked()) {
    VANZET_TRY(const auto picture, catalogue::PictureOf(*entry));
    return WritePictures(arguments.pictures, shop, picture, arguments.isJson);
  }
  if (arguments.isJson) return PrintJson(JsonOf(shop, {entry}, unit));
  return Print(PageOf(shop, *entry, unit, context));
}

/// Splits the words of the command line, of which that many are not the project.
template <class AllArguments>
void ReadWords(AllArguments& arguments, std::size_t count) {
  CheckPictureFiles(arguments.pictures, arguments.isJson);
  arguments.read = SplitCatalogue(arguments.words, count);
}

}  // namespace

void AddCatalogueList(Command& catalogue, Context& context) {
  const auto arguments = std::make_shared<Arguments>();
  Command& command = catalogue.AddCommand("list", "Lists the devices of a catalogue.");
  command.AddOperands("[PROJECT]", kCatalogueHelp, arguments->words).Count(0, 1);
  AddChoice(command, *arguments);
  command.examples = {"vanzet catalogue list lathe --kind jaw --letter A=40..45",
                      "vanzet catalogue list lathe/clampdevice.cld --json",
                      "vanzet catalogue list lathe --kind jaw --png jaws.png"};
  command.check = [=] { ReadWords(*arguments, 0); };
  command.work = [=, &context] { return List(*arguments, context); };
}

void AddCatalogueSearch(Command& catalogue, Context& context) {
  const auto arguments = std::make_shared<Arguments>();
  Command& command = catalogue.AddCommand(
      "search", "Lists the devices in whose name, kind or maker data all words of a text occur.");
  command.AddOperands("[PROJECT] TEXT", kCatalogueHelp, arguments->words).Required().Count(1, 2);
  AddChoice(command, *arguments);
  command.notes =
      "Capital letters are as small ones. A word such as A=70..90 or max_speed=4000.. is a range of a letter "
      "or of\na figure of the maker data.";
  command.examples = {"vanzet catalogue search lathe 'jaw 160'",
                      "vanzet catalogue search lathe 'chuck C=20..'"};
  command.check = [=] { ReadWords(*arguments, 1); };
  command.work = [=, &context] { return List(*arguments, context); };
}

void AddCatalogueShow(Command& catalogue, Context& context) {
  const auto arguments = std::make_shared<ShowArguments>();
  Command& command = catalogue.AddCommand("show", "Prints a device of a catalogue, with its maker data.");
  command.AddOperands("[PROJECT] NAME", kCatalogueHelp, arguments->words).Required().Count(1, 2);
  command.AddFlag("--json", "print JSON", arguments->isJson);
  AddUnit(command, arguments->unit);
  AddPictureFiles(command, arguments->pictures, "draw the device with its dimensions into this .svg file",
                  "draw the device with its dimensions into this .png file");
  command.examples = {"vanzet catalogue show lathe 'Chuck 160'",
                      "vanzet catalogue show lathe 'Chuck 160' --svg chuck.svg"};
  command.check = [=] { ReadWords(*arguments, 1); };
  command.work = [=, &context] { return Show(*arguments, context); };
}

}  // namespace vanzet::cli
