#include <algorithm>
#include <filesystem>
#include <optional>
#include <system_error>

#include "base/files/regular_file.h"
#include "base/files/whole_file.h"
#include "base/one_line.h"
#include "base/path_map.h"
#include "base/quote.h"
#include "catalogue/kinds.h"
#include "catalogue/package_symbols.h"
#include "cli/catalogue/assignments.h"
#include "cli/catalogue/family.h"
#include "cli/catalogue/places.h"
#include "cli/catalogue/print.h"
#include "cli/exchange_options.h"
#include "modeller/device_package.h"

/// The commands that read the packages of makers.
namespace vanzet::cli {
namespace {

namespace fs = std::filesystem;
using catalogue::PackageSymbols;
using modeller::DevicePackage;
using modeller::PackageItem;
using modeller::PackageModel;

constexpr const char* kModelsFolder = "models";
constexpr std::uintmax_t kLargestModel = std::uintmax_t{1} << 30U;

struct ShowArguments {
  std::string file;
  bool isJson = false;
  std::optional<std::int32_t> limit;
};

Json JsonOf(const PackageItem& item) {
  Json json = {{"file", item.file}, {"maker", item.maker}, {"order", item.order}, {"name", item.name}};
  json["properties"] = Json::array();
  for (const auto& property : item.properties) {
    json["properties"].push_back(
        {{"names", property.names}, {"value", property.value}, {"unit", property.unit}});
  }
  return json;
}

Json JsonOf(const DevicePackage& package) {
  Json json = Json::object();
  json["devices"] = Json::array();
  for (const PackageItem& item : package.items) json["devices"].push_back(JsonOf(item));
  json["models"] = Json::array();
  for (const PackageModel& model : package.models) json["models"].push_back(model.file);
  return json;
}

std::string OrDash(const std::string& text) {
  return text.empty() ? "-" : text;
}

std::string TextOf(const PackageItem& item, const Context& context) {
  std::vector<std::vector<std::string>> rows = {
      {context.Heading(Translatable("device")), OrDash(item.name), ""},
      {context.Heading(Translatable("order number")), OrDash(item.order), ""},
      {context.Heading(Translatable("maker")), OrDash(item.maker), ""}};
  for (const auto& property : item.properties) {
    std::string names;
    for (const std::string& name : property.names) names += (names.empty() ? "" : ", ") + name;
    rows.push_back({"  " + names, property.value, property.unit});
  }
  return OneLine(item.file) + "\n" + Columns(rows, "lll");
}

Result<void> ShowPackage(const ShowArguments& arguments, const Context& context) {
  VANZET_TRY(const auto package, modeller::ReadDevicePackage(PathMap::OfProcess().Resolve(arguments.file),
                                                             ExchangeWithProgress(arguments.limit)));
  if (arguments.isJson) return PrintJson(JsonOf(package));
  std::string text;
  for (const PackageItem& item : package.items) text += TextOf(item, context);
  for (const PackageModel& model : package.models) text += OneLine(model.file) + "\n";
  return Print(text);
}

struct ImportArguments {
  std::vector<std::string> words;
  std::string catalogue, package;  ///< once the words are read
  std::string kind, name, item, model, symbols;
  std::vector<Assignment> letters, figures;
  bool replaces = false, isJson = false;
  std::optional<LengthUnit> unit;
  std::optional<std::int32_t> limit;

  fs::path Package() const { return PathMap::OfProcess().Resolve(package); }
};

Result<PackageSymbols> SymbolsOf(const ImportArguments& arguments, const Context& context) {
  const fs::path usual = context.places.share / "packages/symbols.ini";
  VANZET_TRY(const auto text, files::ReadWholeFile(usual));
  VANZET_TRY(auto symbols, PackageSymbols::Read(text, usual.string()));
  if (arguments.symbols.empty()) return symbols;
  const fs::path own = PathMap::OfProcess().Resolve(arguments.symbols);
  VANZET_TRY(const auto ownText, files::ReadWholeFile(own));
  VANZET_TRY(const auto added, PackageSymbols::Read(ownText, own.string()));
  symbols.Add(added);
  return symbols;
}

/// "'a.p21', 'b.p21'".
template <class Parts>
std::string FilesOf(const Parts& parts) {
  std::string names;
  for (const auto& part : parts) names += (names.empty() ? "" : ", ") + Quoted(part.file);
  return names;
}

Result<const PackageItem*> ItemOf(const DevicePackage& package, const ImportArguments& arguments) {
  if (arguments.item.empty()) {
    if (package.items.size() == 1) return &package.items.front();
    return Fault{"has several devices; name one with '--device': " + FilesOf(package.items),
                 arguments.package};
  }
  for (const PackageItem& item : package.items) {
    for (const std::string* const name : {&item.file, &item.order, &item.name}) {
      if (*name == arguments.item) return &item;
    }
  }
  return Fault{"does not have the device " + Quoted(arguments.item) + "; it has " + FilesOf(package.items),
               arguments.package};
}

/// The model of a device: the one that was named, else the first one whose name has its order number or the
/// name of its file, else the only one. Null where none is meant.
Result<const PackageModel*> ModelOf(const DevicePackage& package, const PackageItem& item,
                                    const ImportArguments& arguments) {
  const auto find = [&](const auto& isMeant) -> const PackageModel* {
    const auto found = std::ranges::find_if(package.models, isMeant);
    return found == package.models.end() ? nullptr : &*found;
  };
  if (!arguments.model.empty()) {
    const auto* const named = find([&](const PackageModel& model) { return model.file == arguments.model; });
    if (named != nullptr) return named;
    return Fault{"does not have the model " + Quoted(arguments.model) + "; it has " +
                     (package.models.empty() ? "none" : FilesOf(package.models)),
                 arguments.package};
  }
  for (const std::string& word : {item.order, fs::path(item.file).stem().string()}) {
    if (word.empty()) continue;
    const auto* const found = find([&](const PackageModel& model) {
      return fs::path(model.file).filename().string().find(word) != std::string::npos;
    });
    if (found != nullptr) return found;
  }
  return package.models.size() == 1 ? &package.models.front() : nullptr;
}

/// A name as one of a file: letters, digits, hyphens, points and underscores, not a point first.
std::string FileNameOf(const std::string& name) {
  std::string file;
  for (const char c : name) {
    const bool isPlain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
    const bool isSign = c == '-' || c == '_' || (c == '.' && !file.empty());
    file += isPlain || isSign ? c : '-';
  }
  return file + ".step";
}

/// A device of a package on its way into a shop.
struct Import {
  std::string name;
  DeviceParams params;
  std::vector<Assignment> figures;  ///< lengths in millimetres
  fs::path modelFile;               ///< relative to the folder of the catalogue; empty: without a model
  const PackageModel* model = nullptr;
};

Result<Import> ImportOf(const DevicePackage& package, const ImportArguments& arguments,
                        const Context& context) {
  VANZET_TRY(const auto* const item, ItemOf(package, arguments));
  VANZET_TRY(const auto symbols, SymbolsOf(arguments, context));
  Import import;
  import.name = arguments.name;
  if (import.name.empty()) import.name = item->name.empty() ? item->order : item->name;
  if (import.name.empty())
    return Fault{"its device has no name; give it one with '--name'", arguments.package};
  import.params.type = catalogue::TypesOfWord(arguments.kind).front();
  const auto values = symbols.ValuesOf(*item, import.params.type);
  if (!values) return Fault{Quoted(item->file) + ": " + values.fault().text, arguments.package};
  for (const auto& letter : values->letters) {
    VANZET_DO(SetLetters(import.params, {{letter.key, letter.text}}, LengthUnit::kMillimetre));
  }
  if (!item->order.empty()) import.figures.push_back({"order", item->order});
  if (!item->maker.empty()) import.figures.push_back({"note", item->maker});
  VANZET_TRY(import.model, ModelOf(package, *item, arguments));
  if (import.model != nullptr) {
    import.modelFile = fs::path(kModelsFolder) / FileNameOf(import.name);
    import.figures.push_back({"link", import.modelFile.string()});
  }
  for (const auto& figure : values->figures) import.figures.push_back({figure.key, figure.text});
  return import;
}

/// The file of a model, which is taken back unless the catalogue has its device.
class ModelFile {
 public:
  /// Fails where another model has the name.
  static Result<ModelFile> Write(const fs::path& file, const std::string& step, bool replaces) {
    ModelFile written(file);
    const auto former = files::ReadWholeFile(file, kLargestModel);
    if (!former && former.fault().kind != FaultKind::kMissing) return former.fault();
    if (former && *former != step && !replaces)
      return Fault{"is another model; --replace replaces it", file.string()};
    if (former) written.former_ = *former;
    std::error_code failure;
    fs::create_directories(file.parent_path(), failure);
    VANZET_DO(files::ReplaceFile(file, step));
    return written;
  }

  void TakeBack() const {
    std::error_code ignored;
    if (!former_) {
      fs::remove(file_, ignored);
      fs::remove(file_.parent_path(), ignored);  // unless it has other files
    } else if (const auto restored = files::ReplaceFile(file_, *former_); !restored) {
      return;
    }
  }

 private:
  explicit ModelFile(fs::path file) : file_(std::move(file)) {}

  fs::path file_;
  std::optional<std::string> former_;
};

Result<std::string> AddTo(const Edit& edit, const Import& import, const ImportArguments& arguments) {
  const bool isThere = edit.shop.catalogue.Find(import.name) != nullptr;
  if (isThere && !arguments.replaces) {
    return Fault{"the catalogue already has the device " + Quoted(import.name) + "; --replace replaces it"};
  }
  const auto put = PutDevice(edit, import.name, import.params, arguments.letters);
  if (!put) {
    return Fault{
        import.name + ": " + put.fault().text +
        "; 'vanzet catalogue package' lists its properties, --symbols and --letter give the letters"};
  }
  VANZET_DO(SetFigures({edit.shop, LengthUnit::kMillimetre}, import.name, import.figures));
  VANZET_DO(SetFigures(edit, import.name, arguments.figures));
  return (isThere ? "replaced " : "added ") + edit.LineOf(*edit.shop.catalogue.Find(import.name));
}

Result<void> PrintImported(const catalogue::Shop& shop, const Import& import, const std::string& line,
                           LengthUnit unit, bool isJson) {
  const catalogue::Shop shown = shop.ShownIn(unit);
  if (isJson) return PrintJson(cli::JsonOf(shown, {shown.catalogue.Find(import.name)}, unit));
  return Print(line + (import.model == nullptr ? "" : "; its model is " + import.modelFile.string()) + "\n");
}

Result<void> RunImport(const ImportArguments& arguments, const Context& context) {
  VANZET_TRY(const auto place, ShopPlaceOf(arguments.catalogue, context));
  VANZET_TRY(const auto unit, UnitOf(arguments.unit, arguments.catalogue, context));
  const modeller::Exchange exchange = ExchangeWithProgress(arguments.limit);
  VANZET_TRY(const auto package, modeller::ReadDevicePackage(arguments.Package(), exchange));
  VANZET_TRY(const auto import, ImportOf(package, arguments, context));
  std::optional<ModelFile> model;
  if (import.model != nullptr) {
    VANZET_DO(modeller::CheckModel(*import.model, arguments.Package(), exchange));
    VANZET_TRY(model, ModelFile::Write(catalogue::FolderOf(place.file) / import.modelFile, import.model->step,
                                       arguments.replaces));
  }
  catalogue::Shop changed;
  std::string line;
  const auto changedShop =
      catalogue::ChangeShop(place, "catalogue import", [&](catalogue::Shop& shop) -> Result<bool> {
        const auto text = AddTo({shop, unit}, import, arguments);
        if (!text) return Fault{text.fault().text, place.file.string()};
        line = *text;
        changed = shop;
        return true;
      });
  if (!changedShop && model) model->TakeBack();
  if (!changedShop) return changedShop.fault();
  return PrintImported(changed, import, line, unit, arguments.isJson);
}

void ReadImportWords(ImportArguments& arguments) {
  arguments.package = arguments.words.back();
  arguments.catalogue = arguments.words.size() > 1 ? arguments.words.front() : ".";
}

}  // namespace

void AddCataloguePackage(Command& catalogue, Context& context) {
  const auto arguments = std::make_shared<ShowArguments>();
  Command& command = catalogue.AddCommand(
      "package", "Prints the devices of a maker's package, with their properties, and its models.");
  command.AddOperand("FILE", "the package, a ZIP file", StoreFile(arguments->file)).Required();
  command.AddFlag("--json", "print JSON", arguments->isJson);
  AddLimit(command, arguments->limit);
  command.examples = {"vanzet catalogue package KF-250.zip"};
  command.work = [=, &context] { return ShowPackage(*arguments, context); };
}

void AddCatalogueImport(Command& catalogue, Context& context) {
  const auto arguments = std::make_shared<ImportArguments>();
  Command& command = catalogue.AddCommand(
      "import", "Adds the device of a maker's package to a catalogue, with its maker data and its model.");
  command.AddOperands("[PROJECT] PACKAGE", kCatalogueHelp, arguments->words).Required().Count(1, 2);
  command.AddOption("--kind", "KIND", "the kind of the device", StoreText(arguments->kind))
      .Required()
      .OneOf(catalogue::ParametricWords());
  command.AddOption("--name", "NAME", "its name in the catalogue; default: the one in the package",
                    StoreText(arguments->name));
  command.AddOption("--device", "NAME",
                    "the device of a package with several: its name, order number or file there",
                    StoreText(arguments->item));
  command.AddOption("--model", "FILE", "its model in the package; default: the one that has its order number",
                    StoreText(arguments->model));
  command.AddOption("--symbols", "FILE", "a table of symbols, besides that of the program",
                    StoreFile(arguments->symbols));
  command
      .AddOption("--letter", "A=VALUE", "the value of a letter, instead of that in the package",
                 StoreLetter(arguments->letters))
      .Repeatable();
  command
      .AddOption("--maker", "KEY=VALUE", "a figure of the maker, instead of that in the package",
                 [=](const std::string& name, const std::string& word) {
                   arguments->figures.push_back(AssignmentOf(name, word));
                 })
      .Repeatable();
  command.AddFlag("--replace", "replace a device of that name, and its model", arguments->replaces);
  command.AddFlag("--json", "print the device as JSON", arguments->isJson);
  AddUnit(command, arguments->unit);
  AddLimit(command, arguments->limit);
  command.notes =
      "A package is a ZIP file with properties, as .p21 or .xml, and a model, as .step or .stp. A table of "
      "symbols says which property becomes which letter or figure; 'vanzet catalogue package' prints them. "
      "The model goes to the folder models beside the catalogue, and its name is the link of the device: "
      "'vanzet device make' makes an own device of it.";
  command.examples = {"vanzet catalogue import lathe KF-250.zip --kind chuck --letter C=35",
                      "vanzet catalogue import lathe KF-250.zip --kind chuck --letter C=35 --name 'KF 250'"};
  command.check = [=] { ReadImportWords(*arguments); };
  command.work = [=, &context] { return RunImport(*arguments, context); };
}

}  // namespace vanzet::cli
