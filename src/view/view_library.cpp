#include "view/view_library.h"

#include "platform/symbols.h"
#include "view/view_entry.h"

namespace vanzet::view {

Result<std::unique_ptr<View>> ViewFromLibrary(const std::filesystem::path& file) {
  const auto library = platform::LoadLibraryFile(file);
  if (!library) return library.fault();
  const auto entry = reinterpret_cast<ViewEntry>(platform::FindSymbol(*library, kViewEntryName));
  if (entry == nullptr) return Fault{"it is no library of a view", file.string()};
  const ViewAnswer answer = entry(kViewVersion);
  if (answer.view == nullptr) return Fault{answer.reason};
  return std::unique_ptr<View>(answer.view);
}

}  // namespace vanzet::view
