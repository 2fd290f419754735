#include <algorithm>
#include <iostream>
#include <nlohmann/json.hpp>

#include "base/letter_case.h"
#include "base/number_text.h"
#include "base/one_line.h"
#include "base/path_map.h"
#include "base/quote.h"
#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/exchange_options.h"
#include "cli/length_unit.h"
#include "cli/output.h"
#include "modeller/description.h"
#include "modeller/doubts.h"
#include "modeller/laying.h"

/// The commands that show the bodies of other programs, and say how they lie.
namespace vanzet::cli {
namespace {

namespace fs = std::filesystem;
using geometry::Point3d;
using geometry::Vector3d;

Json JsonOf(const Point3d& point, LengthUnit unit) {
  return Json::array(
      {RoundedInUnit(point.x, unit), RoundedInUnit(point.y, unit), RoundedInUnit(point.z, unit)});
}

/// A body that is not closed has no volume.
Json VolumeOf(const modeller::Measures& measures, LengthUnit unit) {
  return measures.closed ? Json(VolumeInUnit(measures.volume, unit)) : Json();
}

struct ShowArguments {
  std::string file;
  bool isJson = false;
  LengthUnit unit = LengthUnit::kMillimetre;
  std::optional<std::int32_t> limit;
};

Json JsonOf(const modeller::PartDescription& part, LengthUnit unit) {
  return {{"name", part.name},
          {"solid", part.isSolid},
          {"from", JsonOf(part.box.min, unit)},
          {"to", JsonOf(part.box.max, unit)},
          {"volume", VolumeOf(part.measures, unit)},
          {"closed", part.measures.closed}};
}

/// The content of a file, and where its body comes to be when it has a laying.
struct Shown {
  modeller::FileDescription file;
  std::optional<modeller::Laying> laying;
  std::optional<geometry::Box3d> laid;
};

Result<Shown> Look(const fs::path& path, const modeller::Exchange& exchange) {
  Shown shown;
  VANZET_TRY(shown.file, modeller::DescribeFile(path, exchange));
  VANZET_TRY(shown.laying, modeller::ReadLaying(path));
  if (!shown.laying) return shown;
  const modeller::Foresight foresight = {.extents = true};
  VANZET_TRY(const auto body, modeller::LayAsFileSays(modeller::ImportBody(path, exchange, foresight), path));
  VANZET_TRY(shown.laid, modeller::Extents(body));
  return shown;
}

Json JsonOf(const Shown& shown, LengthUnit unit) {
  Json json = {{"file_unit", shown.file.unit}, {"surfaces", shown.file.hasSurfaces}};
  json["parts"] = Json::array();
  for (const auto& part : shown.file.parts) json["parts"].push_back(JsonOf(part, unit));
  if (const auto& round = shown.file.round) {
    const Vector3d& along = round->axis.direction;
    json["round"] = {{"origin", JsonOf(round->axis.origin, unit)},
                     {"direction", {along.dx, along.dy, along.dz}},
                     {"radius", RoundedInUnit(round->radius, unit)}};
  }
  json["placements"] = Json::array();
  for (const auto& place : shown.file.places) {
    json["placements"].push_back({{"name", place.name},
                                  {"origin", JsonOf(place.origin, unit)},
                                  {"axis", {place.axis.dx, place.axis.dy, place.axis.dz}},
                                  {"upwards", {place.upwards.dx, place.upwards.dy, place.upwards.dz}}});
  }
  if (shown.laid)
    json["lies"] = {{"from", JsonOf(shown.laid->min, unit)}, {"to", JsonOf(shown.laid->max, unit)}};
  json["unit"] = WordOf(unit);
  return json;
}

std::string TextOf(const Point3d& point, LengthUnit unit) {
  return LengthText(point.x, unit) + ", " + LengthText(point.y, unit) + ", " + LengthText(point.z, unit);
}

std::string FromTo(const geometry::Box3d& box, LengthUnit unit) {
  return TextOf(box.min, unit) + " to " + TextOf(box.max, unit) + " " + std::string(WordOf(unit));
}

std::string VolumeText(const modeller::Measures& measures, LengthUnit unit) {
  constexpr int kDigits = 9;
  return measures.closed ? NumberText(VolumeInUnit(measures.volume, unit), kDigits) : "-";
}

std::string KindOf(const modeller::PartDescription& part, bool hasSurfaces) {
  if (!hasSurfaces) return Translatable("facets");
  if (!part.isSolid) return Translatable("no solid");
  return part.measures.closed ? Translatable("solid") : Translatable("open");
}

std::string PartRows(const modeller::FileDescription& file, LengthUnit unit, const Context& context) {
  std::vector<std::vector<std::string>> rows = {{context.Heading(Translatable("part")), "",
                                                 context.Heading(Translatable("volume")),
                                                 context.Heading(Translatable("from and to"))}};
  for (const auto& part : file.parts) {
    rows.push_back({part.name.empty() ? "-" : part.name, context.Heading(KindOf(part, file.hasSurfaces)),
                    VolumeText(part.measures, unit), FromTo(part.box, unit)});
  }
  return Columns(rows, "llrl");
}

std::string RoundText(const modeller::RoundAxis& round, LengthUnit unit) {
  return "about " + TextOf(round.axis.origin, unit) + " along " +
         modeller::DirectionText(round.axis.direction) + ", radius " + LengthText(round.radius, unit) + " " +
         std::string(WordOf(unit));
}

std::string PlaceText(const modeller::NamedPlace& place, LengthUnit unit) {
  return OneLine(place.name) + ": at " + TextOf(place.origin, unit) + " " + std::string(WordOf(unit)) +
         ", looking " + modeller::DirectionText(place.axis);
}

std::string TextOf(const Shown& shown, LengthUnit unit, const Context& context) {
  constexpr std::size_t kWidth = 11;
  const auto line = [&](const char* heading, const std::string& value) {
    return Left(context.Heading(heading), kWidth) + value + "\n";
  };
  std::string text = PartRows(shown.file, unit, context);
  text += line(Translatable("file unit"), shown.file.unit.empty() ? "-" : shown.file.unit);
  if (shown.file.round) text += line(Translatable("round"), RoundText(*shown.file.round, unit));
  for (const auto& place : shown.file.places) text += line(Translatable("placement"), PlaceText(place, unit));
  if (shown.laid) text += line(Translatable("lies"), FromTo(*shown.laid, unit));
  return text;
}

Result<void> Show(const ShowArguments& arguments, const Context& context) {
  VANZET_TRY(const auto shown,
             Look(PathMap::OfProcess().Resolve(arguments.file), ExchangeWithProgress(arguments.limit)));
  return arguments.isJson ? PrintJson(JsonOf(shown, arguments.unit))
                          : Print(TextOf(shown, arguments.unit, context));
}

struct LayArguments {
  std::string file, looking, axis;
  std::string placement;  ///< the name of one in the file; empty: none
  std::optional<double> face, turn;
  LengthUnit unit = LengthUnit::kMillimetre;
  bool isAutomatic = false;
  std::optional<std::int32_t> limit;

  modeller::Exchange Exchange() const { return ExchangeWithProgress(limit); }
};

bool HasNoUnit(const fs::path& file) {
  return EqualWithoutCase(file.extension().string(), ".stl");
}

Result<modeller::RoundAxis> AxisFound(const fs::path& path, const modeller::Exchange& exchange) {
  VANZET_TRY(const auto description, modeller::DescribeFile(path, exchange));
  if (description.round) return *description.round;
  return Fault{"has no cylinder for '--auto'; give the axis with '--axis'", path.string()};
}

Result<modeller::NamedPlace> PlacementNamed(const std::string& name, const fs::path& path,
                                            const modeller::Exchange& exchange) {
  VANZET_TRY(const auto description, modeller::DescribeFile(path, exchange));
  const auto found = std::ranges::find(description.places, name, &modeller::NamedPlace::name);
  if (found != description.places.end()) return *found;
  std::string known;
  for (const auto& place : description.places) known += (known.empty() ? "" : ", ") + Quoted(place.name);
  return Fault{"has no placement " + Quoted(name) +
                   (known.empty() ? "; none of its coordinate systems has a name" : "; it has " + known),
               path.string()};
}

/// The largest position of a body along a direction.
Result<double> FrontOf(const fs::path& path, modeller::Laying laying, const modeller::Exchange& exchange) {
  laying.face = 0;
  VANZET_TRY(const auto body, modeller::ImportBody(path, exchange, {.extents = true}));
  VANZET_TRY(const auto laid, modeller::LayBody(body, laying));
  VANZET_TRY(const auto box, modeller::Extents(laid));
  return box.max.x;
}

/// The direction of the words, or of an axis that was found; a found axis looks where its largest coordinate
/// is positive.
Vector3d LookingOf(const LayArguments& arguments, const Vector3d& found) {
  return modeller::DirectionNamed(arguments.looking).value_or(found);
}

Result<modeller::Laying> LayingOf(const LayArguments& arguments, const fs::path& path) {
  modeller::Laying laying;
  laying.looking = LookingOf(arguments, {1, 0, 0});
  laying.turn = arguments.turn.value_or(0);
  if (HasNoUnit(path)) laying.unit = arguments.unit;
  if (!arguments.placement.empty()) {
    VANZET_TRY(const auto place, PlacementNamed(arguments.placement, path, arguments.Exchange()));
    return modeller::LayingAt(place, laying.turn);
  }
  if (arguments.isAutomatic) {
    VANZET_TRY(const auto round, AxisFound(path, arguments.Exchange()));
    laying.looking = LookingOf(arguments, round.axis.direction);
    laying.axis = round.axis.origin;
  } else if (!arguments.axis.empty()) {
    const Point3d typed = *modeller::AxisNamed(arguments.axis, laying.looking);
    laying.axis = {InMillimetres(typed.x, arguments.unit), InMillimetres(typed.y, arguments.unit),
                   InMillimetres(typed.z, arguments.unit)};
  }
  if (arguments.face) {
    laying.face = InMillimetres(*arguments.face, arguments.unit);
  } else if (arguments.isAutomatic) {
    VANZET_TRY(laying.face, FrontOf(path, laying, arguments.Exchange()));
  }
  return laying;
}

Result<void> Lay(const LayArguments& arguments) {
  const fs::path path = PathMap::OfProcess().Resolve(arguments.file);
  VANZET_TRY(const auto laying, LayingOf(arguments, path));
  const modeller::Foresight foresight = {.extents = true, .mesh = true};
  VANZET_TRY(const auto body, modeller::ImportBody(path, arguments.Exchange(), foresight));
  VANZET_TRY(const auto laid, modeller::LayBody(body, laying));
  VANZET_TRY(const auto box, modeller::Extents(laid));
  VANZET_TRY(const auto mesh, modeller::MeshOf(laid, {}));
  VANZET_DO(modeller::WriteLaying(path, laying));
  for (const std::string& doubt :
       modeller::DoubtsAbout(laid, mesh, modeller::Role::kTurned, arguments.unit)) {
    std::cerr << "vanzet: " + OneLine(arguments.file + ": " + doubt) + "\n";
  }
  return Print(modeller::LayingFileOf(arguments.file).string() + ": " + FromTo(box, arguments.unit) + "\n");
}

void CheckLaying(const LayArguments& arguments) {
  const bool isByHand = !arguments.axis.empty() || !arguments.looking.empty() || arguments.face;
  if (!arguments.placement.empty() && (isByHand || arguments.isAutomatic)) {
    throw WrongUsage{
        "",
        "--placement says how the body lies; --auto, --looking, --axis and --face have no effect "
        "beside it"};
  }
  if (arguments.isAutomatic && !arguments.axis.empty()) {
    throw WrongUsage{"", "--auto finds the axis; --axis has no effect beside it"};
  }
  const Vector3d looking = LookingOf(arguments, {1, 0, 0});
  if (!arguments.axis.empty() && !modeller::AxisNamed(arguments.axis, looking)) {
    throw WrongUsage{"--axis", "expected two numbers across --looking, or three, such as 12.5,-3; found '" +
                                   arguments.axis + "'"};
  }
}

void AddBodyShow(Command& body, const Context& context) {
  const auto arguments = std::make_shared<ShowArguments>();
  Command& command = body.AddCommand(
      "show", "Prints the parts of a file, their sizes, and the axis that it is round about.");
  command.AddOperand("FILE", "the body, a .step, .iges, .brep, .stl or .3mf file", StoreFile(arguments->file))
      .Required();
  command.AddFlag("--json", "print JSON", arguments->isJson);
  AddUnit(command, arguments->unit);
  AddLimit(command, arguments->limit);
  command.notes =
      "The axis is that of the cylinders with the largest area. Placements are the coordinate systems of a "
      "STEP file that have a name. Where a text beside the file says how the "
      "body "
      "lies, the last line has the place that it comes to.";
  command.examples = {"vanzet body show lathe/bodies/casting.step"};
  command.work = [=, &context] { return Show(*arguments, context); };
}

void AddBodyLay(Command& body) {
  const auto arguments = std::make_shared<LayArguments>();
  Command& command = body.AddCommand("lay", "Says how the body of a file lies in a project.");
  command.AddOperand("FILE", "the body, a .step, .iges, .brep, .stl or .3mf file", StoreFile(arguments->file))
      .Required();
  command
      .AddOption("--looking", "AXIS",
                 "the direction in which the front of the body points in the file; default: x",
                 StoreText(arguments->looking))
      .OneOf(modeller::DirectionWords());
  command.AddOption("--axis", "A,B",
                    "the place of its turning axis: the two coordinates across --looking (x and y of z), or "
                    "all three; default: 0,0",
                    StoreText(arguments->axis));
  command.AddOption("--face", "LENGTH", "the position of its front along --looking; default: 0",
                    StoreReal(arguments->face));
  command.AddOption("--turn", "DEGREES", "the turn about the axis after that; default: 0",
                    StoreReal(arguments->turn));
  command.AddFlag("--auto", "find the axis from the largest cylinder, and the front from where the body ends",
                  arguments->isAutomatic);
  command.AddOption(
      "--placement", "NAME",
      "lie as a coordinate system of a STEP file says: its z is the axis and looks to the front, "
      "its x is up, its origin is on the front",
      StoreText(arguments->placement));
  AddUnit(command, arguments->unit);
  AddLimit(command, arguments->limit);
  command.notes =
      "Writes a text beside the file, casting.lay beside casting.step, which every use of the project's body "
      "follows: its front comes to x = 0, its axis to the spindle's. Prints where the body then is. --unit "
      "is "
      "the unit of lengths here, and of an STL file, which has none of its own. Without the text the body "
      "lies as its file has it. A body that is then open, beside the axis, not at x = 0, or so small or "
      "large "
      "that its unit must be wrong is named on standard error.";
  command.examples = {
      "vanzet body lay lathe/bodies/casting.step --looking z --axis 12.5,-3 --face 130 --turn 30",
      "vanzet body lay lathe/bodies/casting.step --auto"};
  command.check = [=] { CheckLaying(*arguments); };
  command.work = [=] { return Lay(*arguments); };
}

}  // namespace

void AddBody(Command& vanzet, Context& context) {
  Command& body =
      vanzet.AddCommand("body", "Shows the bodies of other programs, and says how they lie in a project.");
  body.examples = {"vanzet body show lathe/bodies/casting.step"};
  AddBodyShow(body, context);
  AddBodyLay(body);
}

}  // namespace vanzet::cli
