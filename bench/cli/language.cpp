#include "cli/language.h"

namespace vanzet::cli {

std::string LanguageOf(const Context& context) {
  for (const Language& each : AvailableLanguages(context.places.share)) {
    if (each.name == context.texts.LanguageName()) return each.code;
  }
  return "en";
}

}  // namespace vanzet::cli
