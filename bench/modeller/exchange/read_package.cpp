#include "modeller/exchange/read_package.h"

#include "base/letter_case.h"
#include "base/quote.h"
#include "modeller/exchange/properties.h"
#include "modeller/exchange/zip_file.h"

namespace vanzet::modeller {
namespace {

namespace fs = std::filesystem;

/// The kind of the files with an ending.
struct EndingRow {
  std::string_view ending;
  Result<PackageItem> (*read)(std::string_view text);  ///< null: a model
};
constexpr EndingRow kEndings[] = {
    {".p21", ItemOfPart21}, {".xml", ItemOfXml}, {".step", nullptr}, {".stp", nullptr}};

const EndingRow* RowOf(const std::string& name) {
  const std::string ending = fs::path(name).extension().string();
  for (const EndingRow& row : kEndings) {
    if (EqualWithoutCase(row.ending, ending)) return &row;
  }
  return nullptr;
}

/// The fault of a file in the package, whose line it keeps.
Fault InFile(const Fault& fault, const std::string& name) {
  const std::string line = fault.line > 0 ? ", line " + std::to_string(fault.line) : "";
  return Fault{"its file " + Quoted(name) + line + ": " + fault.text};
}

}  // namespace

Result<DevicePackage> ReadPackage(const fs::path& file) {
  if (!fs::is_regular_file(file)) {
    if (fs::exists(file)) return Fault{"not a regular file"};
    return Fault{.text = "does not exist", .kind = FaultKind::kMissing};
  }
  VANZET_TRY(auto zip, ZipFile::Open(file));
  DevicePackage package;
  for (const std::string& name : zip.names()) {
    const EndingRow* const row = RowOf(name);
    if (row == nullptr) continue;
    VANZET_TRY(auto content, zip.Content(name));
    if (row->read == nullptr) {
      package.models.push_back({name, std::move(content)});
      continue;
    }
    auto item = row->read(content);
    if (!item) return InFile(item.fault(), name);
    item->file = name;
    // A package also has files about itself.
    if (!item->properties.empty()) package.items.push_back(std::move(*item));
  }
  if (package.items.empty()) return Fault{"holds no properties of a device, in a .p21 or .xml file"};
  return package;
}

}  // namespace vanzet::modeller
