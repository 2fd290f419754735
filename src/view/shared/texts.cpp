#include "view/shared/texts.h"

#include "base/files/environment.h"
#include "base/numbers.h"
#include "base/places.h"
#include "platform/symbols.h"

namespace vanzet::view {
namespace {

constexpr const char* kSection = "view";

constexpr std::string_view kPlaces = "123456789";

/// The texts of the language that was wanted last. State of the process: the environment names the language.
struct LoadedTexts {
  std::string wanted;
  std::string language;
  Translations translations;
};
LoadedTexts loadedTexts;

SystemLocale systemLocale = {[] { return std::string(); }, [](const std::string&) { return '.'; }};

std::string WantedLanguage() {
  const std::string named = files::EnvironmentText("VANZET_LANGUAGE");
  return LanguageOfLocale(named.empty() ? systemLocale.name() : named);
}

/// English for a language without a catalogue or with a broken one.
const LoadedTexts& TextsOfTheMoment() {
  const std::string wanted = WantedLanguage();
  if (wanted == loadedTexts.wanted) return loadedTexts;
  auto loaded = LoadTranslations(ShareFolder(platform::OwnFolder()), wanted);
  loadedTexts = loaded ? LoadedTexts{wanted, wanted, std::move(*loaded)} : LoadedTexts{wanted, "en", {}};
  return loadedTexts;
}

}  // namespace

void SetLocale(const SystemLocale& locale) {
  systemLocale = locale;
}

std::string Translate(const char* english) {
  return std::string(TextsOfTheMoment().translations.Translate(kSection, english));
}

std::string LanguageOfTexts() {
  return TextsOfTheMoment().language;
}

char DecimalSign() {
  return systemLocale.decimalSign(LanguageOfTexts());
}

std::string Filled(std::string_view text, std::initializer_list<std::string_view> values) {
  std::string filled;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isSign = text[i] == '%' && i + 1 < text.size();
    const std::size_t place = isSign ? kPlaces.find(text[i + 1]) : values.size();
    if (place < values.size()) {
      filled += values.begin()[place];
      ++i;
    } else {
      filled += text[i];
    }
  }
  return filled;
}

std::string Joined(const std::vector<std::string>& texts, std::string_view between) {
  std::string joined;
  for (const std::string& text : texts) {
    if (&text != &texts.front()) joined += between;
    joined += text;
  }
  return joined;
}

std::string Trimmed(std::string_view text) {
  while (!text.empty() && IsWhiteSpace(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsWhiteSpace(text.back())) text.remove_suffix(1);
  return std::string(text);
}

}  // namespace vanzet::view
