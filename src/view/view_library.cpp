#include "view/view_library.h"

#include "platform/symbols.h"
#include "view/view_entry.h"

namespace vanzet::view {

Result<std::unique_ptr<View>> ViewFromLibrary(const std::filesystem::path& file) {
  VANZET_TRY(void* const library, platform::LoadLibraryFile(file));
  const auto entry = reinterpret_cast<ViewEntry>(platform::FindSymbol(library, kViewEntryName));
  if (entry == nullptr) return Fault{"not a library of a view", file.string()};
  const ViewAnswer answer = entry(kViewVersion);
  if (answer.view == nullptr) return Fault{answer.reason};
  return std::unique_ptr<View>(answer.view);
}

}  // namespace vanzet::view
