#include <nlohmann/json.hpp>

#include "base/number_text.h"
#include "base/path_map.h"
#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/output.h"
#include "cli/progress_line.h"
#include "contour/contour_file.h"
#include "contour/library.h"
#include "modeller/body.h"
#include "modeller/measures.h"
#include "scene/device_text.h"
#include "scene/equipment.h"
#include "scene/own_device.h"
#include "vdm/vdm_file.h"

namespace vanzet::cli {
namespace {

namespace fs = std::filesystem;

struct MakeArguments {
  std::string deviceClass, body, outline, out;
  std::string looking = "x";
  double first = 0, second = 0;
  std::optional<double> face;
};

/// A direction of the model, and the turn about an axis that leads it to x.
struct Looking {
  std::string_view word;
  geometry::Vector3d axis;
  double degrees;
};
const Looking kLooking[] = {
    {"x", {0, 0, 1}, 0},   {"-x", {0, 0, 1}, 180}, {"y", {0, 0, 1}, -90},
    {"-y", {0, 0, 1}, 90}, {"z", {0, 1, 0}, 90},   {"-z", {0, 1, 0}, -90},
};

/// The model as a definition has it: its face looks along x and is at x = 0.
Result<modeller::Body> Laid(const modeller::Body& model, const MakeArguments& arguments) {
  const Looking& looking = *std::ranges::find(kLooking, arguments.looking, &Looking::word);
  VANZET_TRY(const auto turned, modeller::Turned(model, {{0, 0, 0}, looking.axis}, looking.degrees));
  return modeller::Moved(turned, {-arguments.face.value_or(0), 0, 0});
}

/// A model that does not end where devices do most likely lies otherwise: what to do about it. Clamp devices
/// and centers lie behind their face, jaws stand on their foot. Who tells where the face is knows better:
/// pins may stand out of it.
Result<void> CheckPlace(const modeller::Body& body, const MakeArguments& arguments) {
  constexpr double kNear = 0.05;  // millimetres
  constexpr int kDigits = 6;
  if (arguments.face) return {};
  VANZET_TRY(const auto box, modeller::Extents(body));
  const bool isJaw = arguments.deviceClass == "jaw";
  const double face = isJaw ? box.min.x : box.max.x;
  if (std::abs(face) <= kNear) return {};
  return Fault{"its " + std::string(isJaw ? "foot" : "face") + " is not at 0 but at " +
                   NumberText(face, kDigits) + " mm; '--face' tells where it is, and " +
                   "'--looking' where it looks to",
               arguments.body};
}

/// The one contour of a file.
Result<geometry::Kurve> OutlineOf(const std::string& file) {
  VANZET_TRY(const auto content, contour::ReadContourFile(file, {}));
  if (content.contours.size() != 1) {
    return Fault{"an outline is one contour; this file has " + std::to_string(content.contours.size()), file};
  }
  return geometry::Kurve(content.contours.front().curve);
}

Result<void> Make(const MakeArguments& arguments) {
  contour::UseMillimetres();
  const PathMap paths = PathMap::OfProcess();
  VANZET_TRY(const auto body, modeller::ImportBody(paths.Resolve(arguments.body), ToldExchange()));
  VANZET_TRY(const auto outline, OutlineOf(arguments.outline));
  const auto laid = Laid(body, arguments);
  if (!laid) return Fault{laid.fault().text, arguments.body};
  VANZET_DO(CheckPlace(*laid, arguments));
  const auto content = scene::MakeOwnDevice(
      {*scene::DeviceClassNamed(arguments.deviceClass), arguments.first, arguments.second, *laid, outline});
  if (!content) return Fault{content.fault().text, arguments.body};
  return vdm::WriteVdmFile(paths.Resolve(arguments.out), *content);
}

/// What a file of an own device holds.
struct Shown {
  scene::OwnDeviceValues values;
  scene::DeviceText device;
  modeller::Measures measures;
  geometry::Box3d box;
  std::size_t elements;  ///< of the outline
};

Result<Shown> ReadShown(const project::Definition& content) {
  VANZET_TRY(const auto values, scene::ReadOwnDeviceValues(content));
  VANZET_TRY(const auto device, scene::ReadDeviceText(content, scene::kOwnDeviceOperation, ToldExchange()));
  if (!device) return Fault{"holds no body"};
  VANZET_TRY(const auto measures, modeller::MeasuresOf(device->body));
  VANZET_TRY(const auto box, modeller::Extents(device->body));
  return Shown{values, *device, measures, box, scene::ItemsOf(content, scene::kOwnDeviceOperation, 3).size()};
}

Json PointOf(const geometry::Point3d& point) {
  return Json::array({point.x, point.y, point.z});
}

Result<void> Show(const std::string& file, bool isJson) {
  contour::UseMillimetres();
  const fs::path path = PathMap::OfProcess().Resolve(file);
  VANZET_TRY(const auto content, vdm::ReadVdmFile(path));
  VANZET_TRY(const auto definition, project::ReadDefinition(content));
  const auto shown = ReadShown(definition);
  if (!shown) return Fault{shown.fault().text, path.string()};
  const Json json = {{"class", scene::WordOf(shown->values.deviceClass)},
                     {"first", shown->values.first},
                     {"second", shown->values.second},
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

void AddDeviceMake(Command& device) {
  const auto arguments = std::make_shared<MakeArguments>();
  Command& command = device.AddCommand("make", "Makes an own device of a model.");
  command
      .AddOption("--class", "CLASS", "chuck (all that a spindle holds), jaw or center",
                 StoreText(arguments->deviceClass))
      .Required()
      .OneOf({"chuck", "jaw", "center"});
  command.AddOption("--body", "FILE", "the model: .step, .stl or .brep", StoreFile(arguments->body))
      .Required();
  command
      .AddOption("--outline", "FILE", "the outline for the simulation: a contour, or .dxf",
                 StoreFile(arguments->outline))
      .Required();
  command.AddOption("-o,--out", "FILE", "the device, .vdm", StoreFile(arguments->out)).Required();
  command.AddOption("--first", "MM", "how far behind its face a chuck is held, in millimetres",
                    StoreReal(arguments->first));
  command.AddOption("--second", "MM", "the same of a center", StoreReal(arguments->second));
  command.AddOption("--face", "MM",
                    "where the working face is in the model, or a jaw's foot, in the direction that it looks "
                    "to; without it the model has to end at 0",
                    StoreReal(arguments->face));
  command
      .AddOption("--looking", "AXIS", "where the working face looks to in the model; without it x",
                 StoreText(arguments->looking))
      .OneOf({"x", "-x", "y", "-y", "z", "-z"});
  command.examples = {
      "vanzet device make --class chuck --body maker.step --outline outline.txt --first 80 -o chuck.vdm"};
  command.work = [=] { return Make(*arguments); };
}

void AddDeviceShow(Command& device) {
  struct Arguments {
    std::string file;
    bool isJson = false;
  };
  const auto arguments = std::make_shared<Arguments>();
  Command& command = device.AddCommand("show", "Shows what an own device holds.");
  command.AddOperand("FILE", "the device, .vdm", StoreText(arguments->file)).Required();
  command.AddFlag("--json", "for programs", arguments->isJson);
  command.examples = {"vanzet device show chuck.vdm"};
  command.work = [=] { return Show(arguments->file, arguments->isJson); };
}

}  // namespace

void AddDevice(Command& vanzet, Context&) {
  Command& device = vanzet.AddCommand("device", "Own devices: models that the dialog can select.");
  AddDeviceMake(device);
  AddDeviceShow(device);
}

}  // namespace vanzet::cli
