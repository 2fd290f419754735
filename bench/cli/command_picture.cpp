#include "base/files/whole_file.h"
#include "base/letter_case.h"
#include "base/path_map.h"
#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/exchange_options.h"
#include "cli/length_unit.h"
#include "cli/output.h"
#include "cli/output_files.h"
#include "cli/section_picture.h"
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

constexpr const char *kDrawing = "drawing", *kEquipment = "equipment", *kSection = "section";

struct PictureArguments {
  std::string project = ".";
  std::string out;
  std::string view = kDrawing;
  drawing::PictureOptions options;
  std::optional<drawing::Window> window;
  std::optional<std::int32_t> spur;
  std::optional<scene::View> camera;
  bool isPerspective = false, isSection = false;
  std::vector<std::string> fitted, leftOut;
  bool isStrict = false;
  bool isJson = false;
  std::optional<LengthUnit> unit;

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

/// The half section of the equipment, and its picture.
struct DrawnSection {
  section::Section section;
  LengthUnit unit;
  std::string bytes;
};

Result<DrawnSection> DrawSection(const PictureArguments& arguments, const project::Project& project,
                                 const Context& context) {
  VANZET_TRY(const auto unit, UnitOf(arguments.unit, project));
  VANZET_TRY(auto section,
             results::SectionOf(project, arguments.spur.value_or(0), ExchangeWithProgress(), context.panel));
  const bool isPng = IsPng(arguments.out);
  section::PictureOptions options{.layers = arguments.options.layers,
                                  .width = arguments.options.width,
                                  .height = arguments.options.height,
                                  .unit = unit};
  if (isPng) options = OptionsForPng(options, section);
  VANZET_TRY(std::string svg, section::PictureSvg(section, options, context.texts));
  VANZET_TRY(std::string bytes, isPng ? results::PngOf(svg) : Result<std::string>(std::move(svg)));
  return DrawnSection{std::move(section), unit, std::move(bytes)};
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
  VANZET_TRY(auto model, scene::ModelOf(scene));
  if (arguments.isSection) model = scene::CutModel(model, {});
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

/// A picture, and the list of what is in it.
struct Drawn {
  std::string bytes;
  std::function<Result<void>(const std::filesystem::path& file)> printListing;
};

Result<Drawn> DrawView(const PictureArguments& arguments, const project::Project& project,
                       const Context& context) {
  const auto printFile = [isJson = arguments.isJson](const std::filesystem::path& file) {
    return PrintWrittenFiles({{file, {}}}, {.isJson = isJson});
  };
  if (arguments.view != kSection) {
    VANZET_TRY(std::string bytes, arguments.IsOfEquipment() ? DrawEquipment(arguments, project, context.panel)
                                                            : Draw(arguments, project));
    return Drawn{std::move(bytes), printFile};
  }
  VANZET_TRY(const DrawnSection drawn, DrawSection(arguments, project, context));
  if (!arguments.isJson) return Drawn{drawn.bytes, printFile};
  return Drawn{drawn.bytes, [drawn](const std::filesystem::path& file) {
                 return PrintListing(drawn.section, file, drawn.unit);
               }};
}

Result<void> Picture(const PictureArguments& arguments, const Context& context) {
  VANZET_TRY(const auto project, project::Project::Open(arguments.project, context.places.share));
  if (IsStandardOutput(arguments.out)) {
    VANZET_TRY(const auto drawn, DrawView(arguments, project, context));
    VANZET_DO(Print(drawn.bytes));
    return OutcomeOfMissing(arguments.isStrict, context);
  }
  const std::filesystem::path file = PathMap::OfProcess().Resolve(arguments.out);
  VANZET_DO(CheckIsNoInput(file, InputsOf(project)));
  VANZET_TRY(const auto drawn, DrawView(arguments, project, context));
  VANZET_DO(files::ReplaceFile(file, drawn.bytes));
  VANZET_DO(drawn.printListing(file));
  return OutcomeOfMissing(arguments.isStrict, context);
}

/// Refuses the options of other views.
void CheckOptions(const PictureArguments& arguments) {
  using Views = std::set<std::string_view>;
  const struct {
    const char* name;
    bool isGiven;
    Views views;
  } options[] = {
      {"--window", arguments.window.has_value(), {kDrawing}},
      {"--layers", !arguments.options.layers.empty(), {kDrawing, kSection}},
      {"--spur", arguments.spur.has_value(), {kEquipment, kSection}},
      {"--camera", arguments.camera.has_value(), {kEquipment}},
      {"--perspective", arguments.isPerspective, {kEquipment}},
      {"--section", arguments.isSection, {kEquipment}},
      {"--fit", !arguments.fitted.empty(), {kEquipment}},
      {"--without", !arguments.leftOut.empty(), {kEquipment}},
      {"--strict", arguments.isStrict, {kEquipment, kSection}},
      {"--unit", arguments.unit.has_value(), {kSection}},
  };
  for (const auto& [name, isGiven, views] : options) {
    if (!isGiven || views.contains(arguments.view)) continue;
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
  command
      .AddOption("--layers", "NAME,...", "drawing, section: only these layers, separated by commas",
                 options.layers)
      .SeparatedBy(',');
  command.AddOption("--width", "N", "width of the picture, in pixels", StoreSize(options.width));
  command.AddOption("--height", "N", "height of the picture, in pixels", StoreSize(options.height));
}

void AddEquipmentOptions(Command& command, PictureArguments& arguments) {
  command.AddOption("--spur", "N", "equipment, section: the spur; default: 0, the first",
                    StoreNumber(arguments.spur));
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
      .OneOf({kDrawing, kEquipment, kSection});
  AddDrawingOptions(command, *arguments);
  AddEquipmentOptions(command, *arguments);
  AddUnit(command, arguments->unit);
  command.AddFlag("--json", "print JSON", arguments->isJson);
  command.notes =
      "Prints the file that was written. On standard output a drawing or a section is SVG, and the "
      "equipment\n"
      "PNG. A section is the upper half of the set-up with its dimensions, true to scale. Its layers are "
      "devices,\n"
      "billet, part, datum, dimensions and legend; --json lists its bodies and dimensions.";
  command.check = [=] { CheckOptions(*arguments); };
  command.examples = {"vanzet picture lathe --out billet.svg --layers Billet_Spindel_1",
                      "vanzet picture lathe --view equipment --out equipment.png --section",
                      "vanzet picture lathe --view section --out set-up.svg"};
  command.work = [=, &context] { return Picture(*arguments, context); };
}

}  // namespace vanzet::cli
