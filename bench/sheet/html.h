#pragma once

#include <filesystem>
#include <string>

#include "base/result.h"
#include "sheet/sheet.h"
#include "sheet/words.h"

namespace vanzet::sheet {

/// The files that a page has in it.
struct Assets {
  std::string style;    ///< sheet.css
  std::string script;   ///< space.js
  std::string library;  ///< three.min.js
  std::string search;   ///< search.js, for the index of a folder

  /// Reads them from the folder `sheet` of the workbench's own files.
  static Result<Assets> Read(const std::filesystem::path& share);
};

/// A sheet as one HTML file that loads nothing: it can be turned in 3D where the browser can, and else shows
/// the picture. A sheet without 3D has no script.
std::string HtmlOf(const Sheet& sheet, const Assets& assets, const Words& words);

}  // namespace vanzet::sheet
