#include <algorithm>
#include <memory>
#include <optional>

#include "base/files/whole_file.h"
#include "base/letter_case.h"
#include "base/path_map.h"
#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/exchange_options.h"
#include "cli/language.h"
#include "cli/length_unit.h"
#include "cli/output_files.h"
#include "cli/sheet_folder.h"
#include "cli/written_files.h"
#include "project/project.h"
#include "sheet/html.h"
#include "sheet/pages.h"
#include "sheet/project_sheet.h"

/// The command that makes the sheet for the person at the machine.
namespace vanzet::cli {
namespace {

struct SheetArguments {
  std::string project = ".";
  std::string all;  ///< the folder of projects; empty: one project
  std::string out, language, paper;
  std::optional<std::int32_t> spur;
  std::optional<LengthUnit> unit;
  bool isJson = false, isStrict = false;
};

/// Throws `WrongUsage` for a file whose ending says no format, and for options that do not go together.
void CheckSheet(const SheetArguments& arguments) {
  if (!arguments.all.empty()) {
    if (arguments.spur) throw WrongUsage{"--spur", "has no effect beside --all"};
    if (arguments.project != ".") throw WrongUsage{"--all", "takes the place of a project"};
    return;
  }
  const std::string& file = arguments.out;
  const std::string ending = std::filesystem::path(file).extension().string();
  for (const char* const known : {".html", ".pdf", ".svg"}) {
    if (EqualWithoutCase(ending, known)) return;
  }
  throw WrongUsage{"--out", "expected a file that ends with .html, .pdf or .svg, found '" + file + "'"};
}

/// The texts of a sheet: those of a language that is given, else those of the help.
struct SheetLanguage {
  std::string code;
  Translations texts;
};

Result<SheetLanguage> LanguageFor(const SheetArguments& arguments, const Context& context) {
  if (arguments.language.empty()) return SheetLanguage{LanguageOf(context), context.texts};
  VANZET_TRY(auto texts, LoadTranslations(context.places.share, arguments.language));
  return SheetLanguage{arguments.language, std::move(texts)};
}

sheet::Paper PaperNamed(const std::string& word) {
  const auto* const format = std::ranges::find(sheet::kPapers, word, &sheet::PaperFormat::word);
  return format == sheet::kPapers.end() ? sheet::Paper::kA4 : format->paper;
}

/// The bytes of the file, by its ending.
Result<std::string> BytesOf(const sheet::Sheet& made, const std::filesystem::path& file,
                            const sheet::Words& words, const Context& context) {
  const std::string ending = file.extension().string();
  if (EqualWithoutCase(ending, ".pdf")) return sheet::PdfOf(made);
  if (EqualWithoutCase(ending, ".svg")) return sheet::FirstPageSvgOf(made);
  VANZET_TRY(const auto assets, sheet::Assets::Read(context.places.share));
  return sheet::HtmlOf(made, assets, words);
}

Result<void> WriteSheets(const SheetArguments& arguments, Context& context) {
  VANZET_TRY(const auto language, LanguageFor(arguments, context));
  return WriteSheetFolder({.projects = PathMap::OfProcess().Resolve(arguments.all),
                           .out = PathMap::OfProcess().Resolve(arguments.out),
                           .options = {.spur = {},
                                       .paper = PaperNamed(arguments.paper),
                                       .language = language.code,
                                       .hasPicture = true},
                           .texts = language.texts,
                           .unit = arguments.unit,
                           .isJson = arguments.isJson,
                           .isStrict = arguments.isStrict},
                          context);
}

Result<void> WriteSheet(const SheetArguments& arguments, const Context& context) {
  VANZET_TRY(const auto project, project::Project::Open(arguments.project, context.places.share));
  const std::filesystem::path file = PathMap::OfProcess().Resolve(arguments.out);
  VANZET_DO(CheckIsNoInput(file, InputsOf(project)));
  VANZET_TRY(const auto language, LanguageFor(arguments, context));
  VANZET_TRY(const auto unit, UnitOf(arguments.unit, project));
  const sheet::Words words{language.texts, unit};
  VANZET_TRY(
      const auto made,
      sheet::MakeSheet(
          project, {.spur = arguments.spur, .paper = PaperNamed(arguments.paper), .language = language.code},
          words, ExchangeWithProgress(), context.panel));
  VANZET_TRY(const auto bytes, BytesOf(made.sheet, file, words, context));
  VANZET_DO(files::ReplaceFile(file, bytes));
  VANZET_DO(PrintWrittenFiles({{file, {}}}, {.isJson = arguments.isJson}));
  return OutcomeOfMissing(arguments.isStrict, context);
}

void AddSheetOptions(Command& command, SheetArguments& arguments) {
  command.AddOption("--spur", "N", "only this spur; the first is 0", StoreNumber(arguments.spur));
  command
      .AddOption("--language", "LANGUAGE", "the language of the sheet; default: that of the help",
                 StoreText(arguments.language))
      .OneOf({"en", "de"});
  command.AddOption("--paper", "PAPER", "the size of the paper; default: A4", StoreText(arguments.paper))
      .OneOf({"A4", "A3", "letter"});
  AddUnit(command, arguments.unit);
  AddStrict(command, arguments.isStrict);
  command.AddFlag("--json", "print JSON", arguments.isJson);
}

}  // namespace

void AddSheet(Command& vanzet, Context& context) {
  const auto arguments = std::make_shared<SheetArguments>();
  Command& command = vanzet.AddCommand(
      "sheet", "Writes the set-up sheet for the machine: half section, clamping, devices, findings.");
  AddProject(command, arguments->project);
  command
      .AddOption("--out", "FILE",
                 "the sheet, a .html, .pdf or .svg file; with --all the folder of the sheets",
                 StoreFile(arguments->out))
      .Required();
  command.AddOption("--all", "DIR", "the sheets of all projects in this folder, and an index of them",
                    StoreFile(arguments->all));
  AddSheetOptions(command, *arguments);
  command.notes =
      "Prints the file that was written. A .html file is a page that loads nothing: the equipment can be "
      "turned\n"
      "in 3D where the browser can, and is a picture elsewhere. An .svg file is the first page of the sheet "
      "on\n"
      "paper. The code on the sheet leads back to the folder of the project.\n\n"
      "--all writes index.html and the folder sheets, with a .html file for each project. A project whose "
      "sheet\n"
      "cannot be made is named, the others get theirs, and the status is 1.";
  command.examples = {"vanzet sheet lathe --out lathe.html",
                      "vanzet sheet lathe --out lathe.pdf --language de --paper A3",
                      "vanzet sheet --all jobs --out sheets"};
  command.check = [=] { CheckSheet(*arguments); };
  command.work = [=, &context] {
    return arguments->all.empty() ? WriteSheet(*arguments, context) : WriteSheets(*arguments, context);
  };
}

}  // namespace vanzet::cli
