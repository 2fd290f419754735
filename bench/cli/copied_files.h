#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "base/files/whole_file.h"
#include "catalogue/shop_place.h"
#include "project/store_place.h"

namespace vanzet::cli {

/// One end of a copy of a project.
struct CopyEnd {
  project::StorePlace store = {};
  catalogue::ShopPlace shop = {};
  std::filesystem::path folder = {};  ///< empty: the project is known on its server alone
  std::string word = {};              ///< as a person is shown it

  bool IsServer() const { return folder.empty(); }
};

/// The drawing and the catalogue that go with a copy of VDMs. A server has them at once, a folder with
/// `Commit`.
class CopiedFiles {
 public:
  /// Returns what people should know, a sentence each.
  Result<std::vector<std::string>> Prepare(const CopyEnd& from, const CopyEnd& to);

  Result<void> Commit();

  /// Removes the files that were not there before, for a copy that fails after `Commit`.
  void Withdraw();

 private:
  Result<void> PrepareDrawing(const CopyEnd& from, const CopyEnd& to);
  Result<void> Add(const std::filesystem::path& file, const std::string& text);

  std::vector<files::FileReplacement> files_;
  std::vector<std::filesystem::path> new_;
};

}  // namespace vanzet::cli
