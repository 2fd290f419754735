#pragma once

#include <string>

#include "base/result.h"
#include "scene/picture.h"

/// The functions of this folder that need Qt. They are in a library of their own, which the first PNG file
/// loads: Qt takes longer to load than most commands to run.
namespace vanzet::results {

inline constexpr const char* kPngLibrary = "libvanzet-png.so";

/// The name of the library's function that returns a `const PngLibrary*`.
inline constexpr const char* kPngFunction = "vanzetPng";

struct PngLibrary {
  Result<std::string> (*ofSvg)(const std::string& svg);
  Result<std::string> (*ofPicture)(const scene::Picture& picture);
};

}  // namespace vanzet::results
