#include "base/files/passing_file.h"
#include "base/files/whole_file.h"
#include "modeller/exchange_process.h"
#include "modeller/export.h"

namespace vanzet::modeller {
namespace {

struct FormatRow {
  std::string_view word;
  ExportFormat format;
  std::string_view ending;
};
constexpr FormatRow kFormats[] = {
    {"step", ExportFormat::kStep, ".step"}, {"stl", ExportFormat::kStl, ".stl"},
    {"wrl", ExportFormat::kWrl, ".wrl"},    {"gltf", ExportFormat::kGltf, ".glb"},
    {"obj", ExportFormat::kObj, ".obj"},    {"iges", ExportFormat::kIges, ".iges"},
    {"3mf", ExportFormat::k3mf, ".3mf"},
};

}  // namespace

const std::vector<std::string>& FormatWords() {
  static const auto words = [] {
    std::vector<std::string> all;
    for (const FormatRow& row : kFormats) all.emplace_back(row.word);
    return all;
  }();
  return words;
}

std::optional<ExportFormat> FormatNamed(std::string_view word) {
  for (const FormatRow& row : kFormats) {
    if (row.word == word) return row.format;
  }
  return std::nullopt;
}

std::string_view EndingOf(ExportFormat format) {
  for (const FormatRow& row : kFormats) {
    if (row.format == format) return row.ending;
  }
  return "";
}

Result<void> ExportVrml(const Body& body, const std::filesystem::path& file, const MeshTolerance& tolerance,
                        Lasting lasting) {
  const auto text = VrmlOf(body, tolerance);
  if (!text) return WithFile(text.fault(), file);
  return lasting == Lasting::kYes ? files::ReplaceFile(file, *text) : files::WritePassingFile(file, *text);
}

Result<void> ExportVrml(const BodyTable& table, std::int32_t number, const std::filesystem::path& file,
                        const MeshTolerance& tolerance, Lasting lasting) {
  const auto body = table.Get(number);
  if (!body) return WithFile(body.fault(), file);
  return ExportVrml(*body, file, tolerance, lasting);
}

}  // namespace vanzet::modeller
