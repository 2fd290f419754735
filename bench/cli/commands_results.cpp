#include "base/files/whole_file.h"
#include "base/letter_case.h"
#include "base/path_map.h"
#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/output_files.h"
#include "cli/progress_line.h"
#include "drawing/board.h"
#include "drawing/picture.h"
#include "project/project.h"
#include "results/equipment.h"
#include "results/png.h"
#include "scene/picture.h"

/// The commands that make pictures and 3D files of a project.
namespace vanzet::cli {
namespace {

struct PictureArguments {
  std::string project = ".";
  std::string out;
  std::string view = "drawing";
  drawing::PictureOptions options;
  std::int32_t spur = 0;
  scene::PictureOptions equipment;
};

/// True for the name of a PNG file, false for one of an SVG file; any other ending is wrong usage.
bool IsPng(const std::string& file) {
  const std::string ending = std::filesystem::path(file).extension().string();
  if (EqualWithoutCase(ending, ".png")) return true;
  if (EqualWithoutCase(ending, ".svg")) return false;
  throw WrongUsage{"--out", "expected a file that ends with .svg or .png, found '" + file + "'"};
}

TakeWord StoreSize(std::optional<int>& size) {
  return StoreInteger(size, drawing::kSmallestPicture, drawing::kLargestPicture);
}

Result<std::string> Draw(const PictureArguments& arguments, const project::Project& project) {
  drawing::Board board(project.folder());
  VANZET_DO(board.Load());
  auto svg = drawing::PictureSvg(board.drawing(), arguments.options);
  return svg && IsPng(arguments.out) ? results::PngOf(*svg) : svg;
}

/// Draws the equipment as PNG. A width or height that is not given follows from the ratio 3 to 2.
Result<std::string> DrawEquipment(const PictureArguments& arguments, const project::Project& project) {
  if (!IsPng(arguments.out))
    return Fault{"a picture of the equipment can only be a .png file", arguments.out};
  scene::PictureOptions options = arguments.equipment;
  const auto& [window, layers, width, height] = arguments.options;
  if (height) options.width = *height * 3 / 2;
  if (width) options.width = *width;
  options.height = height ? *height : std::max(drawing::kSmallestPicture, options.width * 2 / 3);
  VANZET_TRY(const auto scene, results::EquipmentOf(project, arguments.spur, ExchangeWithProgress()));
  VANZET_TRY(const auto picture, scene::Draw(scene, options));
  return results::PngOf(picture);
}

Result<void> Picture(const PictureArguments& arguments, const Context& context) {
  VANZET_TRY(const auto project, project::Project::Open(arguments.project, context.places.share));
  const std::filesystem::path file = PathMap::OfProcess().Resolve(arguments.out);
  VANZET_DO(CheckIsNoInput(file, InputsOf(project)));
  VANZET_TRY(const auto bytes,
             arguments.view == "equipment" ? DrawEquipment(arguments, project) : Draw(arguments, project));
  return files::ReplaceFile(file, bytes);
}

void AddDrawingOptions(Command& command, drawing::PictureOptions& options) {
  command
      .AddOption("--window", "WINDOW", "drawing: the window; default: display",
                 [&](const std::string&, const std::string& word) {
                   options.window =
                       word == "display" ? drawing::Window::kDisplay : drawing::Window::kConstruction;
                 })
      .OneOf({"display", "construction"});
  command.AddOption("--layers", "NAME,...", "drawing: only these layers, separated by commas", options.layers)
      .SeparatedBy(',');
  command.AddOption("--width", "N", "width of the picture, in pixels", StoreSize(options.width));
  command.AddOption("--height", "N", "height of the picture, in pixels", StoreSize(options.height));
}

void AddEquipmentOptions(Command& command, PictureArguments& arguments) {
  command.AddOption("--spur", "N", "equipment: the spur; default: 0, the first", StoreNumber(arguments.spur));
  command
      .AddOption("--camera", "VIEW", "equipment: the direction of view; default: iso",
                 [&](const std::string&, const std::string& word) {
                   arguments.equipment.view = *scene::ViewNamed(word);
                 })
      .OneOf({scene::ViewWords().begin(), scene::ViewWords().end()});
  command.AddFlag("--perspective", "equipment: draw in perspective", arguments.equipment.isPerspective);
  command.AddFlag("--section", "equipment: cut open along the plane of the drawing",
                  arguments.equipment.isSection);
}

struct ExportArguments {
  std::string project = ".";
  std::string out;
  std::string format;
  std::int32_t spur = 0;
};

Result<void> ExportEquipment(const ExportArguments& arguments, const Context& context) {
  VANZET_TRY(const auto project, project::Project::Open(arguments.project, context.places.share));
  const std::filesystem::path folder = PathMap::OfProcess().Resolve(arguments.out);
  std::error_code unknown;
  if (std::filesystem::equivalent(folder, project.folder() / "bodies", unknown)) {
    return Fault{"cannot be the folder of the 3D files: the project reads its bodies there", arguments.out};
  }
  const auto exchange = ExchangeWithProgress();
  VANZET_TRY(const auto scene, results::EquipmentOf(project, arguments.spur, exchange));
  return results::WriteEquipment(scene, *modeller::FormatNamed(arguments.format), folder, exchange);
}

}  // namespace

void AddPicture(Command& vanzet, Context& context) {
  const auto arguments = std::make_shared<PictureArguments>();
  Command& command = vanzet.AddCommand("picture", "Draws the project as its window shows it.");
  AddProject(command, arguments->project);
  command
      .AddOption("--out", "FILE", "the picture, a .svg or .png file",
                 [=](const std::string& name, const std::string& word) {
                   arguments->out = FileOf(name, word);
                   IsPng(word);
                 })
      .Required();
  command.AddOption("--view", "VIEW", "what to draw; default: drawing", StoreText(arguments->view))
      .OneOf({"drawing", "equipment"});
  AddDrawingOptions(command, arguments->options);
  AddEquipmentOptions(command, *arguments);
  command.examples = {"vanzet picture lathe --out billet.svg --layers Billet_Spindel_1",
                      "vanzet picture lathe --view equipment --out equipment.png --section"};
  command.work = [=, &context] { return Picture(*arguments, context); };
}

void AddExport(Command& vanzet, Context& context) {
  const auto arguments = std::make_shared<ExportArguments>();
  Command& command = vanzet.AddCommand("export", "Writes the equipment of a spur as 3D files.");
  AddProject(command, arguments->project);
  command
      .AddOption("--out", "DIR", "the folder for the files; it is created if it does not exist",
                 StoreFile(arguments->out))
      .Required();
  command.AddOption("--format", "FORMAT", "the format of the files", StoreText(arguments->format))
      .Required()
      .OneOf({"wrl", "stl", "step", "gltf"});
  command.AddOption("--spur", "N", "the spur; default: 0, the first", StoreNumber(arguments->spur));
  command.examples = {"vanzet export lathe --out models --format step"};
  command.work = [=, &context] { return ExportEquipment(*arguments, context); };
}

}  // namespace vanzet::cli
