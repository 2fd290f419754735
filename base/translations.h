#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/result.h"

/// The texts of our own programs in other languages. A text is written in English where it is used; that
/// English is the key of its translation, and what is shown where there is none.
///
/// Source   docs/formats/texts.md
namespace vanzet {

/// Marks an English text that is translated later, where it is shown. Tests collect the marked texts.
constexpr const char* Translatable(const char* english) {
  return english;
}

/// The texts of one language, in sections: one for each program or library that shows them.
///
/// Shape    section, English text, translation; "%1" and "%2" are the places of what is put in
class Translations {
 public:
  using Section = std::map<std::string, std::string, std::less<>>;
  using SectionTable = std::map<std::string, Section, std::less<>>;

  /// English: no text has a translation.
  Translations() = default;
  Translations(std::string languageName, SectionTable sections)
      : languageName_(std::move(languageName)), sections_(std::move(sections)) {}

  /// Reads a catalogue; `name` is the file's name for faults.
  /// Errors   the first line that breaks the format, with its number, column and source
  static Result<Translations> Read(std::string_view text, const std::string& name);

  /// The name of the language in that language: "Deutsch".
  const std::string& LanguageName() const { return languageName_; }

  /// The translation, or the English text itself.
  /// Lives as long as these translations and `english`.
  std::string_view Translate(std::string_view section, std::string_view english) const;

  const SectionTable& Sections() const { return sections_; }

 private:
  std::string languageName_ = "English";
  SectionTable sections_;
};

/// The language of a locale in small letters: "de" of "de_AT.UTF-8". Empty when it does not begin with one.
std::string LanguageOfLocale(std::string_view locale);

/// A language that texts can be shown in.
struct Language {
  std::string code;  ///< "de"
  std::string name;  ///< in that language: "Deutsch"
};

/// English, and every language that has a catalogue messages/texts.CODE.txt in the folder `share`, by code.
/// A catalogue that cannot be read does not count.
std::vector<Language> AvailableLanguages(const std::filesystem::path& share);

/// The texts of a language; English needs no catalogue.
/// Errors   kMissing for a language without a catalogue; its faults
Result<Translations> LoadTranslations(const std::filesystem::path& share, std::string_view code);

}  // namespace vanzet
