#include "drawing/figure_folder.h"

#include <algorithm>
#include <system_error>

#include "base/near_words.h"
#include "contour/contour_file.h"
#include "contour/library.h"

namespace vanzet::drawing {

std::vector<std::filesystem::path> FigureFolder::Files() const {
  std::vector<std::filesystem::path> files;
  std::error_code error;
  for (auto entry = std::filesystem::directory_iterator(folder_, error);
       !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
    std::error_code unknown;
    const bool isHidden = entry->path().filename().string().starts_with('.');
    if (!isHidden && entry->is_regular_file(unknown)) files.push_back(entry->path());
  }
  std::ranges::sort(files);
  return files;
}

std::vector<std::string> FigureFolder::Names() const {
  std::vector<std::string> names;
  for (const std::filesystem::path& file : Files()) names.push_back(file.stem().string());
  std::ranges::sort(names);
  names.erase(std::unique(names.begin(), names.end()), names.end());
  return names;
}

Result<std::vector<geometry::Kurve>> FigureFolder::Read(const std::string& name) const {
  const std::vector<std::filesystem::path> files = Files();
  const auto file = std::ranges::find_if(files, [&](const auto& path) { return path.stem() == name; });
  if (file == files.end()) {
    return Fault{.text = "figure '" + name + "' does not exist" + DidYouMean(name, Names()),
                 .kind = FaultKind::kMissing};
  }
  contour::UseMillimetres();
  VANZET_TRY(const auto content, contour::ReadContourFile(file->string(), {}));
  std::vector<geometry::Kurve> curves;
  for (const contour::Contour& contour : content.contours) {
    geometry::Kurve& curve = curves.emplace_back();
    for (const geometry::Span& span : contour.curve.spans) curve.Add(span, false);
  }
  return curves;
}

}  // namespace vanzet::drawing
