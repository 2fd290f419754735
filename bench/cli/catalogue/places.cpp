#include "cli/catalogue/places.h"

#include <filesystem>
#include <system_error>

#include "base/near_words.h"
#include "base/path_map.h"
#include "base/quote.h"
#include "cli/standard_input.h"
#include "project/catalogue.h"
#include "project/settings_file.h"

namespace vanzet::cli {
namespace {

namespace fs = std::filesystem;

constexpr const char* kStandardInput = "-";

/// A word that ends like a catalogue, or names a file of any other ending.
bool IsCatalogueFile(const std::string& word) {
  const fs::path path = PathMap::OfProcess().Resolve(word);
  std::error_code error;
  if (fs::is_directory(path, error)) return false;
  return word == kStandardInput || path.extension() == ".cld" || fs::exists(path, error);
}

}  // namespace

SplitWords SplitCatalogue(const std::vector<std::string>& words, std::size_t count) {
  if (words.size() != count + 1) return {".", words};
  if (IsCatalogueFile(words.front())) return {words.front(), {words.begin() + 1, words.end()}};
  if (IsCatalogueFile(words.back())) return {words.back(), {words.begin(), words.end() - 1}};
  return SplitOperands(words, count);
}

bool IsCatalogue(const std::string& word) {
  std::error_code error;
  return IsCatalogueFile(word) || fs::is_directory(PathMap::OfProcess().Resolve(word), error);
}

Result<catalogue::ShopPlace> ShopPlaceOf(const std::string& word, const Context& context) {
  if (word == kStandardInput) return Fault{"standard input cannot be changed; name a file or a project"};
  if (IsCatalogueFile(word)) return catalogue::ShopPlace{PathMap::OfProcess().Resolve(word)};
  VANZET_TRY(const auto project, project::Project::Open(word, context.places.share));
  VANZET_TRY(const auto setting, project::SettingsFile(project.folder()).Value(project::kCatalogueSetting));
  return catalogue::PlaceOf(project, setting);
}

Result<catalogue::Shop> LoadShop(const std::string& word, const Context& context) {
  if (word == kStandardInput)
    return catalogue::ShopOfText(ReadStandardInput("the catalogue"), "standard input");
  VANZET_TRY(const auto place, ShopPlaceOf(word, context));
  return catalogue::ReadShop(place);
}

Result<LengthUnit> UnitOf(std::optional<LengthUnit> given, const std::string& word, const Context& context) {
  if (given) return *given;
  if (IsCatalogueFile(word)) return LengthUnit::kMillimetre;
  VANZET_TRY(const auto project, project::Project::Open(word, context.places.share));
  return project::LengthUnitOf(project);
}

Result<const catalogue::Entry*> FindDevice(const catalogue::Shop& shop, const std::string& name) {
  if (const catalogue::Entry* const entry = shop.catalogue.Find(name)) return entry;
  return Fault{.text = "the catalogue does not have the device " + Quoted(name) +
                       DidYouMean(name, shop.catalogue.Names()),
               .file = shop.file.string(),
               .kind = FaultKind::kMissing};
}

}  // namespace vanzet::cli
