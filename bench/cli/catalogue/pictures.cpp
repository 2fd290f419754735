#include "cli/catalogue/pictures.h"

#include "base/files/whole_file.h"
#include "base/path_map.h"
#include "cli/arguments.h"
#include "cli/output.h"
#include "cli/output_files.h"
#include "cli/written_files.h"
#include "results/png.h"

namespace vanzet::cli {
namespace {

namespace fs = std::filesystem;

fs::path PathOf(const std::string& file) {
  return file.empty() || IsStandardOutput(file) ? fs::path(file) : PathMap::OfProcess().Resolve(file);
}

/// Writes one of the pictures; one that is a file is added to those that are listed.
Result<void> WriteOne(const std::string& file, const std::string& bytes,
                      std::vector<results::WrittenFile>& written) {
  if (IsStandardOutput(file)) return Print(bytes);
  VANZET_DO(files::ReplaceFile(PathOf(file), bytes));
  written.push_back({PathOf(file), {}});
  return {};
}

}  // namespace

void AddPictureFiles(Command& command, PictureFiles& files, const std::string& svgHelp,
                     const std::string& pngHelp) {
  command.AddOption("--svg", "FILE", svgHelp, StoreFile(files.svg));
  command.AddOption("--png", "FILE", pngHelp, StoreFile(files.png));
}

void CheckPictureFiles(const PictureFiles& files, bool isJson) {
  for (const std::string& file : {files.svg, files.png}) CheckListing(file, "--json", isJson);
}

Result<void> WritePictures(const PictureFiles& files, const catalogue::Shop& shop, const std::string& svg,
                           bool isJson) {
  if (!files.svg.empty() && !files.png.empty())
    VANZET_DO(CheckAreTwoFiles(PathOf(files.svg), PathOf(files.png)));
  for (const std::string& file : {files.svg, files.png}) {
    VANZET_DO(CheckIsNoInput(PathOf(file), {shop.file, shop.MakerFile()}));
  }
  std::vector<results::WrittenFile> written;
  if (!files.svg.empty()) VANZET_DO(WriteOne(files.svg, svg, written));
  if (!files.png.empty()) {
    VANZET_TRY(const auto png, results::PngOf(svg));
    VANZET_DO(WriteOne(files.png, png, written));
  }
  return written.empty() ? Result<void>() : PrintWrittenFiles(written, {.isJson = isJson});
}

}  // namespace vanzet::cli
