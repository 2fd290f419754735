#pragma once

#include <map>
#include <set>
#include <string>

#include "base/translations.h"

namespace vanzet::test {

/// The catalogues of share/messages with the texts of our own programs, by the code of their language.
const std::map<std::string, Translations>& Catalogues();

/// The English texts that the sources below a folder mark: those in `Translatable("...")` and
/// `Translate("...")`. `folder` is counted from the sources' root: "src/view/qt".
std::set<std::string> MarkedTexts(const std::string& folder);

/// Expects that every catalogue translates these texts in its section, with the same places, and no others.
void ExpectTranslated(const std::string& section, const std::set<std::string>& texts);

}  // namespace vanzet::test
