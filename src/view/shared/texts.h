#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "base/translations.h"

/// The texts of the drawn views, beside those of the state. All are UTF-8.
namespace vanzet::view {

/// The locale of the system, as a view's toolkit knows it.
struct SystemLocale {
  std::string (*name)();                             ///< "de_AT"
  char (*decimalSign)(const std::string& language);  ///< of numbers in texts of that language: '.' or ','
};

/// A view calls this before it asks for a text. Without a locale texts are English and decimals have a point.
void SetLocale(const SystemLocale& locale);

/// A text of the views' own in the language of the views: that of the environment variable VANZET_LANGUAGE,
/// else that of the locale.
///
/// Source   the section "view" of the catalogues in share/messages; English without a translation
std::string Translate(const char* english);

/// The code of the language that texts are shown in: "en", "de".
std::string LanguageOfTexts();

/// The decimal sign of that language.
char DecimalSign();

/// The text with the values in the places "%1", "%2" and so on.
std::string Filled(std::string_view text, std::initializer_list<std::string_view> values);

/// The texts with `between` between each two of them.
std::string Joined(const std::vector<std::string>& texts, std::string_view between);

/// The text without white space at its ends.
std::string Trimmed(std::string_view text);

}  // namespace vanzet::view
