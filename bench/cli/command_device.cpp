#include <iostream>

#include <nlohmann/json.hpp>

#include "base/number_text.h"
#include "base/one_line.h"
#include "base/path_map.h"
#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/exchange_options.h"
#include "cli/length_unit.h"
#include "cli/output.h"
#include "cli/output_files.h"
#include "contour/contour_file.h"
#include "contour/library.h"
#include "modeller/body.h"
#include "modeller/doubts.h"
#include "modeller/laying.h"
#include "modeller/measures.h"
#include "modeller/mesh.h"
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
  std::optional<double> first, second, face;  ///< millimetres, once all words are read
  std::optional<LengthUnit> unit;
  std::optional<std::int32_t> limit;
  Fineness fineness;

  /// Called when all words are read. Throws `WrongUsage`.
  void ToMillimetres() {
    if (unit && !first && !second && !face)
      throw WrongUsage{"", "--unit has no effect without --first, --second or --face"};
    for (std::optional<double>* const length : {&first, &second, &face}) {
      if (*length && unit) *length = InMillimetres(**length, *unit);
    }
  }
};

/// Places the model as definitions need it: its face points along x and is at x = 0.
Result<modeller::Body> PlaceModel(const modeller::Body& model, const MakeArguments& arguments) {
  modeller::Laying laying;
  laying.looking = *modeller::DirectionNamed(arguments.looking);
  laying.face = arguments.face.value_or(0);
  return modeller::LayBody(model, laying);
}

/// Fails when the model does not end at 0, where the face of a clamp device or center and the foot of a jaw
/// have to be: most likely it has another position or direction. An explicit --face wins, because pins may
/// protrude from a face.
Result<void> CheckPlace(const modeller::Body& body, const MakeArguments& arguments) {
  constexpr double kNear = 0.05;  // millimetres
  constexpr int kDigits = 6;
  if (arguments.face) return {};
  VANZET_TRY(const auto box, modeller::Extents(body));
  const bool isJaw = arguments.deviceClass == "jaw";
  const double face = isJaw ? box.min.x : box.max.x;
  if (std::abs(face) <= kNear) return {};
  const LengthUnit unit = arguments.unit.value_or(LengthUnit::kMillimetre);
  return Fault{"its " + std::string(isJaw ? "foot" : "face") + " is at " +
                   NumberText(InUnit(face, unit), kDigits) + " " + std::string(WordOf(unit)) +
                   ", not at 0; give its position with '--face' and its direction with '--looking'",
               arguments.body};
}

/// Reports on standard error what a person should look at before the device is used.
Result<void> ReportDoubts(const modeller::Body& placed, const MakeArguments& arguments) {
  VANZET_TRY(const auto mesh, modeller::MeshOf(placed, arguments.fineness.Tolerance()));
  const auto role = arguments.deviceClass == "jaw" ? modeller::Role::kJaw : modeller::Role::kTurned;
  const LengthUnit unit = arguments.unit.value_or(LengthUnit::kMillimetre);
  for (const std::string& doubt : modeller::DoubtsAbout(placed, mesh, role, unit)) {
    std::cerr << "vanzet: " + OneLine(arguments.body + ": " + doubt) + "\n";
  }
  return {};
}

/// Reads the only contour of a file. What is not read as it is drawn is reported on standard error.
Result<geometry::Kurve> OutlineOf(const std::string& file) {
  VANZET_TRY(const auto content, contour::ReadContourFile(file, {}));
  for (const contour::Remark& remark : content.remarks) std::cerr << "vanzet: " + OneLine(remark.text) + "\n";
  if (content.contours.size() != 1) {
    return Fault{"expected one contour for the outline, found " + std::to_string(content.contours.size()),
                 file};
  }
  return geometry::Kurve(content.contours.front().curve);
}

Result<void> Make(const MakeArguments& arguments) {
  contour::UseMillimetres();
  const PathMap paths = PathMap::OfProcess();
  VANZET_DO(CheckIsNoInput(paths.Resolve(arguments.out), {paths.Resolve(arguments.body), arguments.outline}));
  const modeller::Foresight foresight = {.extents = !arguments.face, .mesh = !arguments.fineness.IsGiven()};
  VANZET_TRY(const auto body, modeller::ImportBody(paths.Resolve(arguments.body),
                                                   ExchangeWithProgress(arguments.limit), foresight));
  VANZET_TRY(const auto outline, OutlineOf(arguments.outline));
  const auto placed = PlaceModel(body, arguments);
  if (!placed) return Fault{placed.fault().text, arguments.body};
  VANZET_DO(CheckPlace(*placed, arguments));
  const auto content =
      scene::MakeOwnDevice({*scene::DeviceClassNamed(arguments.deviceClass), arguments.first.value_or(0),
                            arguments.second.value_or(0), *placed, outline, arguments.fineness.Tolerance()});
  if (!content) return Fault{content.fault().text, arguments.body};
  VANZET_DO(vdm::WriteVdmFile(paths.Resolve(arguments.out), *content));
  return ReportDoubts(*placed, arguments);
}

/// The content of an own device.
struct DeviceFacts {
  scene::OwnDeviceValues values;
  scene::DeviceText device;
  modeller::Measures measures;
  geometry::Box3d box;
  std::size_t elements;  ///< of the outline
};

Result<DeviceFacts> ReadDeviceFacts(const project::Definition& content) {
  VANZET_TRY(const auto values, scene::ReadOwnDeviceValues(content));
  VANZET_TRY(const auto device,
             scene::ReadDeviceText(content, scene::kOwnDeviceOperation, ExchangeWithProgress()));
  if (!device) return Fault{"contains no body"};
  VANZET_TRY(const auto measures, modeller::MeasuresOf(device->body));
  VANZET_TRY(const auto box, modeller::Extents(device->body));
  return DeviceFacts{values, *device, measures, box, content.Items(scene::kOwnDeviceOperation, 3).size()};
}

Json PointOf(const geometry::Point3d& point, LengthUnit unit) {
  return Json::array(
      {RoundedInUnit(point.x, unit), RoundedInUnit(point.y, unit), RoundedInUnit(point.z, unit)});
}

struct ShowArguments {
  std::string file;
  bool isJson = false;
  LengthUnit unit = LengthUnit::kMillimetre;
};

/// A body that is not closed has no volume.
Json VolumeOf(const modeller::Measures& measures, LengthUnit unit) {
  return measures.closed ? Json(VolumeInUnit(measures.volume, unit)) : Json();
}

/// "-" for what is not known.
std::string TextOf(const Json& value) {
  if (value.is_null()) return "-";
  return value.is_string() ? value.get<std::string>() : value.dump();
}

Json FactsJson(const DeviceFacts& facts, LengthUnit unit) {
  Json json = {{Translatable("class"), scene::WordOf(facts.values.deviceClass)},
               {Translatable("first"), RoundedInUnit(facts.values.first, unit)},
               {Translatable("second"), RoundedInUnit(facts.values.second, unit)},
               {Translatable("from"), PointOf(facts.box.min, unit)},
               {Translatable("to"), PointOf(facts.box.max, unit)},
               {Translatable("volume"), VolumeOf(facts.measures, unit)},
               {Translatable("closed"), facts.measures.closed},
               {Translatable("plug"), PointOf(facts.device.plug, unit)},
               {Translatable("socket"), PointOf(facts.device.socket, unit)},
               {Translatable("outline elements"), facts.elements}};
  if (unit != LengthUnit::kMillimetre) json[Translatable("unit")] = WordOf(unit);
  return json;
}

Result<void> Show(const ShowArguments& arguments, const Context& context) {
  contour::UseMillimetres();
  const fs::path path = PathMap::OfProcess().Resolve(arguments.file);
  VANZET_TRY(const auto content, vdm::ReadVdmFile(path));
  VANZET_TRY(const auto definition, project::ReadDefinition(content));
  const auto facts = ReadDeviceFacts(definition);
  if (!facts) return Fault{facts.fault().text, path.string()};
  const Json json = FactsJson(*facts, arguments.unit);
  if (arguments.isJson) return PrintJson(json);
  std::string text;
  for (const auto& [key, value] : json.items()) {
    text += Left(context.Heading(key), 18) + TextOf(value) + "\n";
  }
  return Print(text);
}

void AddDeviceMake(Command& device) {
  const auto arguments = std::make_shared<MakeArguments>();
  Command& command = device.AddCommand("make", "Makes an own device from a model.");
  command
      .AddOption("--class", "CLASS",
                 "the kind of device: chuck (anything that a spindle holds), jaw or center",
                 StoreText(arguments->deviceClass))
      .Required()
      .OneOf({"chuck", "jaw", "center"});
  command
      .AddOption("--body", "FILE", "the model, a .step, .iges, .brep, .stl or .3mf file",
                 StoreFile(arguments->body))
      .Required();
  command
      .AddOption("--outline", "FILE", "the outline for the simulation, a contour file or a .dxf drawing",
                 StoreFile(arguments->outline))
      .Required();
  command.AddOption("-o,--out", "FILE", "the device to write, a .vdm file", StoreFile(arguments->out))
      .Required();
  command
      .AddOption("--first", "LENGTH", "distance from the face of a chuck to where it is held",
                 StoreReal(arguments->first))
      .Needs("--class", {"chuck"});
  command
      .AddOption("--second", "LENGTH", "distance from the face of a center to where it is held",
                 StoreReal(arguments->second))
      .Needs("--class", {"center"});
  command.AddOption("--face", "LENGTH",
                    "position of the working face, or of the foot of a jaw, along the direction of "
                    "--looking; without this option the model has to end at 0",
                    StoreReal(arguments->face));
  AddUnit(command, arguments->unit, "the unit of lengths; default: mm");
  command
      .AddOption("--looking", "AXIS",
                 "the direction in which the working face points in the model; default: x",
                 StoreText(arguments->looking))
      .OneOf(modeller::DirectionWords());
  AddFineness(command, arguments->fineness);
  AddLimit(command, arguments->limit);
  command.notes =
      "A model that is open, beside the axis, not at its face, or so small or large that its unit must be "
      "wrong is named on standard error, and the device is written all the same.";
  command.examples = {
      "vanzet device make --class chuck --body maker.step --face 60 --outline outline.txt --first 80 -o "
      "chuck.vdm"};
  command.check = [=] { arguments->ToMillimetres(); };
  command.work = [=] { return Make(*arguments); };
}

void AddDeviceShow(Command& device, const Context& context) {
  const auto arguments = std::make_shared<ShowArguments>();
  Command& command = device.AddCommand("show", "Prints the content of an own device.");
  command.AddOperand("FILE", "the device, a .vdm file", StoreText(arguments->file)).Required();
  command.AddFlag("--json", "print JSON", arguments->isJson);
  AddUnit(command, arguments->unit);
  command.examples = {"vanzet device show chuck.vdm"};
  command.work = [=, &context] { return Show(*arguments, context); };
}

}  // namespace

void AddDevice(Command& vanzet, Context& context) {
  Command& device =
      vanzet.AddCommand("device", "Makes and shows own devices: models that the dialog can select.");
  device.examples = {"vanzet device show chuck.vdm"};
  AddDeviceMake(device);
  AddDeviceShow(device, context);
}

}  // namespace vanzet::cli
