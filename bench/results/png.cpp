#include "results/png.h"

#include "process/own_library.h"
#include "results/png_library.h"

namespace vanzet::results {
namespace {

Result<const PngLibrary*> LoadedLibrary() {
  VANZET_TRY(const void* const found, process::LoadOwnLibrary(kPngLibrary, kPngFunction));
  return static_cast<const PngLibrary*>(found);
}

}  // namespace

Result<std::string> PngOf(const std::string& svg) {
  VANZET_TRY(const auto* const library, LoadedLibrary());
  return library->ofSvg(svg);
}

Result<std::string> PngOf(const scene::Picture& picture) {
  VANZET_TRY(const auto* const library, LoadedLibrary());
  return library->ofPicture(picture);
}

}  // namespace vanzet::results
