#pragma once

#include <string>

#include "base/result.h"
#include "sheet/sheet.h"

/// The functions of this folder that need Qt. They are in a library of their own, which the first sheet on
/// paper loads: Qt takes longer to load than most commands to run.
namespace vanzet::sheet {

inline constexpr const char* kPagesLibrary = "libvanzet-pages.so";

/// The name of the library's function that returns a `const PagesLibrary*`.
inline constexpr const char* kPagesFunction = "vanzetPages";

struct PagesLibrary {
  Result<std::string> (*pdf)(const Sheet& sheet);
  Result<std::string> (*firstPage)(const Sheet& sheet);
};

}  // namespace vanzet::sheet
