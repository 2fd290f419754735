#include "cli/written_files.h"

#include <nlohmann/json.hpp>

#include "base/number_text.h"
#include "cli/output.h"

namespace vanzet::cli {
namespace {

using results::WrittenBody;
using results::WrittenFile;

constexpr const char* kUnknown = "-";

Json JsonOf(const WrittenBody& body, LengthUnit unit) {
  const auto& [volume, box, triangles] = body.facts;
  Json sides = Json::array();
  for (const geometry::Point3d& corner : {box.min, box.max}) {
    for (const double length : {corner.x, corner.y, corner.z}) sides.push_back(RoundedInUnit(length, unit));
  }
  return {{"name", body.name},
          {"volume", volume ? Json(VolumeInUnit(*volume, unit)) : Json()},
          {"box", std::move(sides)},
          {"triangles", triangles}};
}

Json JsonOf(const WrittenFile& file, LengthUnit unit) {
  Json bodies = Json::array();
  for (const WrittenBody& body : file.bodies) bodies.push_back(JsonOf(body, unit));
  return {{"path", file.path.string()}, {"bodies", std::move(bodies)}};
}

/// Millimetres have no unit in the form for programs.
Json JsonOf(const std::vector<WrittenFile>& files, LengthUnit unit) {
  Json list = Json::array();
  for (const WrittenFile& file : files) list.push_back(JsonOf(file, unit));
  Json form = Json::object();
  if (unit != LengthUnit::kMillimetre) form["unit"] = WordOf(unit);
  form["files"] = std::move(list);
  return form;
}

int DecimalsOf(LengthUnit unit) {
  return unit == LengthUnit::kInch ? 4 : 1;
}

/// The volume of all bodies of a file; it is not known when that of one is not.
std::string VolumeText(const WrittenFile& file, LengthUnit unit) {
  double volume = 0;
  for (const WrittenBody& body : file.bodies) {
    if (!body.facts.volume) return kUnknown;
    volume += *body.facts.volume;
  }
  return DecimalText(VolumeInUnit(volume, unit), DecimalsOf(unit)) + " " + std::string(WordOf(unit)) + "3";
}

/// "90.0 x 160.0 x 160.0 mm"
std::string SizeText(const WrittenFile& file, LengthUnit unit) {
  geometry::Box3d box;
  for (const WrittenBody& body : file.bodies) {
    box.Insert(body.facts.box.min);
    box.Insert(body.facts.box.max);
  }
  const auto side = [&](double low, double high) {
    return DecimalText(InUnit(high - low, unit), DecimalsOf(unit));
  };
  return side(box.min.x, box.max.x) + " x " + side(box.min.y, box.max.y) + " x " +
         side(box.min.z, box.max.z) + " " + std::string(WordOf(unit));
}

}  // namespace

Result<void> PrintWrittenFiles(const std::vector<WrittenFile>& files, const Listing& listing) {
  const auto& [isJson, unit] = listing;
  if (isJson) return PrintJson(JsonOf(files, unit));
  std::vector<std::vector<std::string>> rows;
  std::string names;
  for (const WrittenFile& file : files) {
    if (file.bodies.empty()) {
      names += file.path.string() + "\n";
    } else {
      rows.push_back({file.path.string(), VolumeText(file, unit), SizeText(file, unit)});
    }
  }
  return Print(names + Columns(rows, "lrr"));
}

bool IsStandardOutput(const std::string& file) {
  return file == "-";
}

void AddStrict(Command& command, bool& isStrict) {
  command.AddFlag("--strict", "end with status 1 when a body is missing", isStrict);
}

Result<void> OutcomeOfMissing(bool isStrict, const Context& context) {
  return isStrict && context.panel.faults() > 0 ? ReportedFault() : Result<void>();
}

void CheckListing(const std::string& out, const std::string& option, bool isGiven) {
  if (isGiven && IsStandardOutput(out)) {
    throw WrongUsage{option, "has no effect when the file is written to standard output"};
  }
}

}  // namespace vanzet::cli
