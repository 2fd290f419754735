#include "base/files/whole_file.h"
#include "base/letter_case.h"
#include "base/path_map.h"
#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/output.h"
#include "cli/output_files.h"
#include "cli/progress_line.h"
#include "cli/written_files.h"
#include "drawing/board.h"
#include "drawing/picture.h"
#include "project/project.h"
#include "results/equipment.h"
#include "results/png.h"
#include "scene/picture.h"

/// The command that draws a project.
namespace vanzet::cli {
namespace {

constexpr const char* kEquipment = "equipment";

struct PictureArguments {
  std::string project = ".";
  std::string out;
  std::string view = "drawing";
  drawing::PictureOptions options;
  std::optional<drawing::Window> window;
  std::optional<std::int32_t> spur;
  std::optional<scene::View> camera;
  scene::PictureOptions equipment;
  bool isJson = false;

  bool IsOfEquipment() const { return view == kEquipment; }
};

/// True for the name of a PNG file, false for one of an SVG file and for standard output; any other ending
/// is wrong usage.
bool IsPng(const std::string& file) {
  if (IsStandardOutput(file)) return false;
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
  drawing::PictureOptions options = arguments.options;
  options.window = arguments.window.value_or(options.window);
  auto svg = drawing::PictureSvg(board.drawing(), options);
  return svg && IsPng(arguments.out) ? results::PngOf(*svg) : svg;
}

/// Draws the equipment as PNG. A width or height that is not given follows from the ratio 3 to 2.
Result<std::string> DrawEquipment(const PictureArguments& arguments, const project::Project& project) {
  if (!IsPng(arguments.out) && !IsStandardOutput(arguments.out))
    return Fault{"a picture of the equipment can only be a .png file", arguments.out};
  scene::PictureOptions options = arguments.equipment;
  options.view = arguments.camera.value_or(options.view);
  const auto& [window, layers, width, height] = arguments.options;
  if (height) options.width = *height * 3 / 2;
  if (width) options.width = *width;
  options.height = height ? *height : std::max(drawing::kSmallestPicture, options.width * 2 / 3);
  VANZET_TRY(const auto scene,
             results::EquipmentOf(project, arguments.spur.value_or(0), ExchangeWithProgress()));
  VANZET_TRY(const auto picture, scene::Draw(scene, options));
  return results::PngOf(picture);
}

Result<std::string> BytesOf(const PictureArguments& arguments, const project::Project& project) {
  return arguments.IsOfEquipment() ? DrawEquipment(arguments, project) : Draw(arguments, project);
}

Result<void> Picture(const PictureArguments& arguments, const Context& context) {
  VANZET_TRY(const auto project, project::Project::Open(arguments.project, context.places.share));
  if (IsStandardOutput(arguments.out)) {
    VANZET_TRY(const auto bytes, BytesOf(arguments, project));
    return Print(bytes);
  }
  const std::filesystem::path file = PathMap::OfProcess().Resolve(arguments.out);
  VANZET_DO(CheckIsNoInput(file, InputsOf(project)));
  VANZET_TRY(const auto bytes, BytesOf(arguments, project));
  VANZET_DO(files::ReplaceFile(file, bytes));
  return PrintWrittenFiles({{file, {}}}, arguments.isJson);
}

/// Refuses the options of the other view.
void CheckOptions(const PictureArguments& arguments) {
  const scene::PictureOptions& equipment = arguments.equipment;
  const struct {
    const char* name;
    bool isGiven, isOfEquipment;
  } options[] = {
      {"--window", arguments.window.has_value(), false},
      {"--layers", !arguments.options.layers.empty(), false},
      {"--spur", arguments.spur.has_value(), true},
      {"--camera", arguments.camera.has_value(), true},
      {"--perspective", equipment.isPerspective, true},
      {"--section", equipment.isSection, true},
  };
  for (const auto& [name, isGiven, isOfEquipment] : options) {
    if (!isGiven || isOfEquipment == arguments.IsOfEquipment()) continue;
    throw WrongUsage{name, "has no effect with --view " + arguments.view};
  }
  CheckListing(arguments.out, arguments.isJson);
}

void AddDrawingOptions(Command& command, PictureArguments& arguments) {
  drawing::PictureOptions& options = arguments.options;
  command
      .AddOption("--window", "WINDOW", "drawing: the window; default: display",
                 [&](const std::string&, const std::string& word) {
                   arguments.window =
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
      .AddOption(
          "--camera", "VIEW", "equipment: the direction of view; default: iso",
          [&](const std::string&, const std::string& word) { arguments.camera = *scene::ViewNamed(word); })
      .OneOf({scene::ViewWords().begin(), scene::ViewWords().end()});
  command.AddFlag("--perspective", "equipment: draw in perspective", arguments.equipment.isPerspective);
  command.AddFlag("--section", "equipment: cut open along the plane of the drawing",
                  arguments.equipment.isSection);
}

}  // namespace

void AddPicture(Command& vanzet, Context& context) {
  const auto arguments = std::make_shared<PictureArguments>();
  Command& command = vanzet.AddCommand("picture", "Draws the project as its window shows it.");
  AddProject(command, arguments->project);
  command
      .AddOption("--out", "FILE", "the picture, a .svg or .png file; '-': standard output",
                 [=](const std::string& name, const std::string& word) {
                   arguments->out = FileOf(name, word);
                   IsPng(word);
                 })
      .Required();
  command.AddOption("--view", "VIEW", "what to draw; default: drawing", StoreText(arguments->view))
      .OneOf({"drawing", kEquipment});
  AddDrawingOptions(command, *arguments);
  AddEquipmentOptions(command, *arguments);
  command.AddFlag("--json", "print JSON", arguments->isJson);
  command.notes =
      "Prints the file that was written. On standard output a drawing is SVG, and the equipment PNG.";
  command.check = [=] { CheckOptions(*arguments); };
  command.examples = {"vanzet picture lathe --out billet.svg --layers Billet_Spindel_1",
                      "vanzet picture lathe --view equipment --out equipment.png --section"};
  command.work = [=, &context] { return Picture(*arguments, context); };
}

}  // namespace vanzet::cli
