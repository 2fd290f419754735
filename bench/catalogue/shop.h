#pragma once

#include <filesystem>
#include <functional>

#include "base/result.h"
#include "catalogue/catalogue.h"
#include "catalogue/maker_data.h"

/// The devices of a shop: the files of its catalogue.
namespace vanzet::catalogue {

/// A catalogue with the maker data beside it.
// NOLINTNEXTLINE(bugprone-exception-escape): a JSON value moves without throwing, and does not say so
struct Shop {
  std::filesystem::path file = {};  ///< of the catalogue
  Catalogue catalogue = {};
  MakerData maker = {};

  /// The file of the maker data, in the folder of the catalogue.
  std::filesystem::path MakerFile() const;

  /// The same with all lengths in a unit in which people read them, not to be written.
  Shop ShownIn(LengthUnit unit) const;
};

/// Reads a catalogue, and the maker data if it has some.
/// Errors   kMissing for a catalogue that does not exist; a catalogue or maker data that cannot be read
Result<Shop> ReadShop(const std::filesystem::path& file);

/// The same with the text of a catalogue that has no file, and no maker data; `name` stands for the file.
Shop ShopOfText(const std::string& text, const std::string& name);

/// Writes those of the files whose texts are no longer these, all or none.
/// Errors   those of writing; maker data whose comments would be lost
Result<void> WriteChanges(const Shop& shop, const std::string& catalogueBefore,
                          const std::string& makerBefore);

/// The folder that a file is in, or the one that a link leads to: the lock of a catalogue is that of its
/// folder.
std::filesystem::path FolderOf(const std::filesystem::path& file);

/// Reads the files, has `change` change them, and writes those that it changed. No other process can do the
/// same meanwhile. A catalogue that does not exist is made. Nothing is written when `change` fails or returns
/// false.
/// Errors   those of reading and writing; a file that is not a catalogue; a process that keeps the folder
///          locked for 10 seconds
Result<void> ChangeShop(const std::filesystem::path& file, const std::function<Result<bool>(Shop&)>& change);

}  // namespace vanzet::catalogue
