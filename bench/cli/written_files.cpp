#include "cli/written_files.h"

#include <nlohmann/json.hpp>

#include "base/number_text.h"
#include "cli/output.h"

namespace vanzet::cli {
namespace {

using results::WrittenBody;
using results::WrittenFile;

constexpr const char* kUnknown = "-";

Json JsonOf(const WrittenBody& body) {
  const auto& [volume, box, triangles] = body.facts;
  return {{"name", body.name},
          {"volume", volume ? Json(*volume) : Json()},
          {"box", {box.min.x, box.min.y, box.min.z, box.max.x, box.max.y, box.max.z}},
          {"triangles", triangles}};
}

Json JsonOf(const WrittenFile& file) {
  Json bodies = Json::array();
  for (const WrittenBody& body : file.bodies) bodies.push_back(JsonOf(body));
  return {{"path", file.path.string()}, {"bodies", std::move(bodies)}};
}

/// The volume of all bodies of a file; it is not known when that of one is not.
std::string VolumeText(const WrittenFile& file) {
  double volume = 0;
  for (const WrittenBody& body : file.bodies) {
    if (!body.facts.volume) return kUnknown;
    volume += *body.facts.volume;
  }
  return DecimalText(volume, 1) + " mm3";
}

/// "90.0 x 160.0 x 160.0 mm"
std::string SizeText(const WrittenFile& file) {
  geometry::Box3d box;
  for (const WrittenBody& body : file.bodies) {
    box.Insert(body.facts.box.min);
    box.Insert(body.facts.box.max);
  }
  const auto side = [](double low, double high) { return DecimalText(high - low, 1); };
  return side(box.min.x, box.max.x) + " x " + side(box.min.y, box.max.y) + " x " +
         side(box.min.z, box.max.z) + " mm";
}

}  // namespace

Result<void> PrintWrittenFiles(const std::vector<WrittenFile>& files, bool isJson) {
  if (isJson) {
    Json list = Json::array();
    for (const WrittenFile& file : files) list.push_back(JsonOf(file));
    return PrintJson({{"files", std::move(list)}});
  }
  std::vector<std::vector<std::string>> rows;
  std::string names;
  for (const WrittenFile& file : files) {
    if (file.bodies.empty()) {
      names += file.path.string() + "\n";
    } else {
      rows.push_back({file.path.string(), VolumeText(file), SizeText(file)});
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

void CheckListing(const std::string& out, bool isJson) {
  if (isJson && IsStandardOutput(out)) {
    throw WrongUsage{"--json", "has no effect when the file is written to standard output"};
  }
}

}  // namespace vanzet::cli
