#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"

namespace vanzet::results {

/// The list of the files that exports have written to a folder. It is kept there, so that the next export
/// can remove them, and nothing else.
///
/// Source   docs/formats/bodies.md
class ExportManifest {
 public:
  static constexpr const char* kFile = "vanzet-export.json";

  /// The list of a folder; without the file, or the folder, it is empty. Fails for a file that is not such a
  /// list.
  static Result<ExportManifest> Read(const std::filesystem::path& folder);

  /// Writes the list to the folder.
  Result<void> Write(const std::filesystem::path& folder) const;

  /// Adds a file by its name. A name can have several contents: which of them is in the folder is not known
  /// while an export is at work.
  void Add(const std::string& name, std::string_view content);
  void Add(const ExportManifest& other);

  bool Has(const std::string& name) const { return files_.contains(name); }

  /// Removes the files that `kept` does not have from the folder, and from the list. A file whose content is
  /// none of those of the list was changed by somebody: it stays in the folder, and is returned.
  Result<std::vector<std::filesystem::path>> RemoveAllBut(const ExportManifest& kept,
                                                          const std::filesystem::path& folder) const;

 private:
  struct Content {
    std::uint64_t size = 0;
    std::string checksum;
    bool operator==(const Content&) const = default;
  };
  static Content ContentOf(std::string_view bytes);

  std::multimap<std::string, Content> files_;
};

}  // namespace vanzet::results
