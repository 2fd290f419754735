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
#include "scene/body_names.h"
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
  bool isPerspective = false, isSection = false;
  std::vector<std::string> fitted, leftOut;
  bool isStrict = false;
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

/// The names of the bodies of a scene that are meant by these.
Result<std::set<std::string>> NamesOf(const std::vector<std::string>& names, const scene::Scene& scene) {
  VANZET_TRY(const auto found, scene::FindBodies(scene, names));
  std::set<std::string> all;
  for (const std::size_t body : found) all.insert(scene.bodies[body].name);
  return all;
}

/// A width or height that is not given follows from the ratio 3 to 2.
scene::PictureOptions OptionsOf(const PictureArguments& arguments) {
  scene::PictureOptions options;
  options.view = arguments.camera.value_or(options.view);
  options.isPerspective = arguments.isPerspective;
  const auto& [window, layers, width, height] = arguments.options;
  if (height) options.width = *height * 3 / 2;
  if (width) options.width = *width;
  options.height = height ? *height : std::max(drawing::kSmallestPicture, options.width * 2 / 3);
  return options;
}

/// The model of the equipment that is drawn; bodies that are missing are on the panel.
Result<scene::Model> ModelToDraw(const PictureArguments& arguments, scene::Scene scene,
                                 project::MessagePanel& panel) {
  VANZET_TRY(const auto leftOut, NamesOf(arguments.leftOut, scene));
  std::erase_if(scene.bodies, [&](const scene::SceneBody& body) { return leftOut.contains(body.name); });
  VANZET_TRY(auto model, scene::ModelOf(scene, arguments.isSection));
  for (const Fault& fault : model.missing) panel.Tell(fault);
  if (model.bodies.empty() && !model.missing.empty()) return ReportedFault();
  return model;
}

/// Draws the equipment as PNG.
Result<std::string> DrawEquipment(const PictureArguments& arguments, const project::Project& project,
                                  project::MessagePanel& panel) {
  if (!IsPng(arguments.out) && !IsStandardOutput(arguments.out))
    return Fault{"a picture of the equipment can only be a .png file", arguments.out};
  VANZET_TRY(auto scene,
             results::EquipmentOf(project, arguments.spur.value_or(0), ExchangeWithProgress(), panel));
  scene::PictureOptions options = OptionsOf(arguments);
  VANZET_TRY(options.fitted, NamesOf(arguments.fitted, scene));
  VANZET_TRY(const auto model, ModelToDraw(arguments, std::move(scene), panel));
  return results::PngOf(scene::Draw(model, options));
}

Result<std::string> BytesOf(const PictureArguments& arguments, const project::Project& project,
                            project::MessagePanel& panel) {
  return arguments.IsOfEquipment() ? DrawEquipment(arguments, project, panel) : Draw(arguments, project);
}

Result<void> Picture(const PictureArguments& arguments, const Context& context) {
  VANZET_TRY(const auto project, project::Project::Open(arguments.project, context.places.share));
  if (IsStandardOutput(arguments.out)) {
    VANZET_TRY(const auto bytes, BytesOf(arguments, project, context.panel));
    VANZET_DO(Print(bytes));
    return OutcomeOfMissing(arguments.isStrict, context);
  }
  const std::filesystem::path file = PathMap::OfProcess().Resolve(arguments.out);
  VANZET_DO(CheckIsNoInput(file, InputsOf(project)));
  VANZET_TRY(const auto bytes, BytesOf(arguments, project, context.panel));
  VANZET_DO(files::ReplaceFile(file, bytes));
  VANZET_DO(PrintWrittenFiles({{file, {}}}, {.isJson = arguments.isJson}));
  return OutcomeOfMissing(arguments.isStrict, context);
}

/// Refuses the options of the other view.
void CheckOptions(const PictureArguments& arguments) {
  const struct {
    const char* name;
    bool isGiven, isOfEquipment;
  } options[] = {
      {"--window", arguments.window.has_value(), false},
      {"--layers", !arguments.options.layers.empty(), false},
      {"--spur", arguments.spur.has_value(), true},
      {"--camera", arguments.camera.has_value(), true},
      {"--perspective", arguments.isPerspective, true},
      {"--section", arguments.isSection, true},
      {"--fit", !arguments.fitted.empty(), true},
      {"--without", !arguments.leftOut.empty(), true},
      {"--strict", arguments.isStrict, true},
  };
  for (const auto& [name, isGiven, isOfEquipment] : options) {
    if (!isGiven || isOfEquipment == arguments.IsOfEquipment()) continue;
    throw WrongUsage{name, "has no effect with --view " + arguments.view};
  }
  CheckListing(arguments.out, "--json", arguments.isJson);
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
  command.AddFlag("--perspective", "equipment: draw in perspective", arguments.isPerspective);
  command.AddFlag("--section", "equipment: cut open along the plane of the drawing", arguments.isSection);
  command
      .AddOption("--fit", "NAME,...",
                 "equipment: these bodies fill the picture, such as chuck or 'main jaw 1'", arguments.fitted)
      .SeparatedBy(',');
  command.AddOption("--without", "NAME,...", "equipment: leave these bodies out", arguments.leftOut)
      .SeparatedBy(',');
  AddStrict(command, arguments.isStrict);
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
