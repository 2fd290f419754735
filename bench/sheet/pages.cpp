#include "sheet/pages.h"

#include "process/own_library.h"
#include "sheet/pages_library.h"

namespace vanzet::sheet {
namespace {

Result<const PagesLibrary*> LoadedLibrary() {
  VANZET_TRY(const void* const found, process::LoadOwnLibrary(kPagesLibrary, kPagesFunction));
  return static_cast<const PagesLibrary*>(found);
}

}  // namespace

Result<std::string> PdfOf(const Sheet& sheet) {
  VANZET_TRY(const auto* const library, LoadedLibrary());
  return library->pdf(sheet);
}

Result<std::string> FirstPageSvgOf(const Sheet& sheet) {
  VANZET_TRY(const auto* const library, LoadedLibrary());
  return library->firstPage(sheet);
}

}  // namespace vanzet::sheet
