#include <CLI/CLI.hpp>

#include "base/numbers.h"
#include "base/path_map.h"
#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/output.h"
#include "contour/contour_file.h"
#include "contour/library.h"
#include "modeller/measures.h"
#include "scene/device_text.h"
#include "scene/equipment.h"
#include "scene/own_device.h"
#include "vdm/vdm_file.h"

namespace vanzet::cli {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kDeviceOperation = 1;

struct MakeArguments {
  std::string deviceClass, body, outline, out;
  double first = 0, second = 0;
};

double LengthOf(const std::string& name, const std::string& word) {
  const auto value = WholeReal(word);
  if (value) return *value;
  throw CLI::ValidationError(name, "expected a number, found '" + word + "'");
}

/// The one contour of a file.
Result<geometry::Kurve> OutlineOf(const std::string& file) {
  const auto content = contour::ReadContourFile(file, {});
  if (!content) return content.fault();
  if (content->contours.size() != 1) {
    return Fault{"an outline is one contour; this file has " + std::to_string(content->contours.size()),
                 file};
  }
  return geometry::Kurve(content->contours.front().curve);
}

Result<void> Make(const MakeArguments& arguments) {
  contour::UseMillimetres();
  const PathMap paths = PathMap::OfProcess();
  const auto body = modeller::ImportBody(paths.Resolve(arguments.body), modeller::Exchange::OfProcess());
  if (!body) return body.fault();
  const auto outline = OutlineOf(arguments.outline);
  if (!outline) return outline.fault();
  const auto content = scene::MakeOwnDevice(
      {*scene::DeviceClassNamed(arguments.deviceClass), arguments.first, arguments.second, *body, *outline});
  if (!content) return Fault{content.fault().text, arguments.body};
  return vdm::WriteVdmFile(paths.Resolve(arguments.out), *content);
}

/// What a file of an own device holds.
struct Shown {
  scene::DeviceClass deviceClass;
  double first, second;
  scene::DeviceText device;
  modeller::Measures measures;
  geometry::Box3d box;
  std::size_t elements;  ///< of the outline
};

Result<Shown> ReadShown(const project::Definition& content) {
  constexpr std::int32_t kGroup = 3;
  const auto& values = scene::ItemsOf(content, kDeviceOperation, 2);
  if (values.empty()) return Fault{"holds no device: operation 1 has no values"};
  std::string_view rest = values.front();
  const auto group = IntegerPrefix(rest);
  rest.remove_prefix(group ? group->used : 0);
  const auto number = IntegerPrefix(rest);
  rest.remove_prefix(number ? number->used : 0);
  const auto deviceClass = static_cast<scene::DeviceClass>(number ? number->value : -1);
  if (!group || group->value != kGroup || scene::WordOf(deviceClass).empty()) {
    return Fault{"holds no chuck, jaw or center"};
  }
  const auto [first, second, none] = scene::ThreeReals(rest);
  const auto device = scene::ReadDeviceText(content, kDeviceOperation, modeller::Exchange::OfProcess());
  if (!device) return device.fault();
  if (!*device) return Fault{"holds no body"};
  const auto measures = modeller::MeasuresOf((*device)->body);
  if (!measures) return measures.fault();
  const auto box = modeller::Extents((*device)->body);
  if (!box) return box.fault();
  return Shown{deviceClass,
               first,
               second,
               **device,
               *measures,
               *box,
               scene::ItemsOf(content, kDeviceOperation, 3).size()};
}

Json PointOf(const geometry::Point3d& point) {
  return Json::array({point.x, point.y, point.z});
}

Result<void> Show(const std::string& file, bool isJson) {
  contour::UseMillimetres();
  const fs::path path = PathMap::OfProcess().Resolve(file);
  const auto content = vdm::ReadVdmFile(path);
  if (!content) return content.fault();
  const auto definition = project::ReadDefinition(*content);
  if (!definition) return definition.fault();
  const auto shown = ReadShown(*definition);
  if (!shown) return Fault{shown.fault().text, path.string()};
  const Json json = {{"class", scene::WordOf(shown->deviceClass)},
                     {"first", shown->first},
                     {"second", shown->second},
                     {"from", PointOf(shown->box.min)},
                     {"to", PointOf(shown->box.max)},
                     {"volume", shown->measures.volume},
                     {"closed", shown->measures.closed},
                     {"plug", PointOf(shown->device.plug)},
                     {"socket", PointOf(shown->device.socket)},
                     {"outline elements", shown->elements}};
  if (isJson) return PrintJson(json);
  std::string text;
  for (const auto& [key, value] : json.items()) {
    text += Left(key, 18) + (value.is_string() ? value.get<std::string>() : value.dump()) + "\n";
  }
  return Print(text);
}

void AddDeviceMake(CLI::App& device, Context& context) {
  const auto arguments = std::make_shared<MakeArguments>();
  CLI::App* const command = device.add_subcommand("make", "Makes an own device of a model.");
  command->add_option("--class", arguments->deviceClass, "chuck (all that a spindle holds), jaw or center")
      ->required()
      ->check(CLI::IsMember({"chuck", "jaw", "center"}))
      ->type_name("CLASS");
  struct File {
    const char* name;
    std::string MakeArguments::*value;
    const char* help;
  };
  for (const auto& [name, value, help] :
       {File{"--body", &MakeArguments::body, "the model: .step, .stl or .brep; the spindle's axis is x"},
        File{"--outline", &MakeArguments::outline, "the outline for the simulation: a contour, or .dxf"},
        File{"-o,--out", &MakeArguments::out, "the device, .vdm"}}) {
    command
        ->add_option_function<std::string>(
            name, [=](const std::string& word) { (*arguments).*value = FileOf(name, word); }, help)
        ->required()
        ->type_name("FILE");
  }
  for (const auto& [name, value, help] :
       {std::tuple{"--first", &MakeArguments::first,
                   "how far behind its face a chuck is held, in millimetres"},
        std::tuple{"--second", &MakeArguments::second, "the same of a center"}}) {
    command
        ->add_option_function<std::string>(
            name, [=](const std::string& word) { (*arguments).*value = LengthOf(name, word); }, help)
        ->type_name("MM");
  }
  command->footer(
      "Example:\n  vanzet device make --class chuck --body maker.step --outline outline.txt --first 80 -o "
      "chuck.vdm");
  command->callback([=, &context] { context.run = [=] { return Make(*arguments); }; });
}

void AddDeviceShow(CLI::App& device, Context& context) {
  struct Arguments {
    std::string file;
    bool isJson = false;
  };
  const auto arguments = std::make_shared<Arguments>();
  CLI::App* const command = device.add_subcommand("show", "Shows what an own device holds.");
  command->add_option("FILE", arguments->file, "the device, .vdm")->required();
  command->add_flag("--json", arguments->isJson, "for programs");
  command->footer("Example:\n  vanzet device show chuck.vdm");
  command->callback(
      [=, &context] { context.run = [=] { return Show(arguments->file, arguments->isJson); }; });
}

}  // namespace

void AddDevice(CLI::App& app, Context& context) {
  CLI::App* const command = app.add_subcommand("device", "Own devices: models that the dialog can select.");
  command->require_subcommand(1);
  AddDeviceMake(*command, context);
  AddDeviceShow(*command, context);
}

}  // namespace vanzet::cli
