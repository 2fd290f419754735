#pragma once

#include <string>

#include "catalogue/shop.h"
#include "cli/commands.h"

namespace vanzet::cli {

/// The files of a picture that a command draws; empty: none. "-" is standard output.
struct PictureFiles {
  std::string svg, png;

  bool AreAsked() const { return !svg.empty() || !png.empty(); }
};

/// Adds the options --svg and --png.
void AddPictureFiles(Command& command, PictureFiles& files, const std::string& svgHelp,
                     const std::string& pngHelp);

/// Throws `WrongUsage` for --json beside a picture on standard output.
void CheckPictureFiles(const PictureFiles& files, bool isJson);

/// Writes the picture, and lists the files that were written. Fails for a file of the shop.
Result<void> WritePictures(const PictureFiles& files, const catalogue::Shop& shop, const std::string& svg,
                           bool isJson);

}  // namespace vanzet::cli
