#pragma once

#include <QString>

#include "base/translations.h"

namespace vanzet::view::qt {

/// A text of the view's own, beside those of the state, in the language of the view: that of the environment
/// variable VANZET_LANGUAGE, else that of the application's locale, which is the system's where the host has
/// set no other.
///
/// Source   the section "view" of the catalogues in share/messages; English without a translation
QString Translate(const char* english);

/// The code of the language that texts are shown in: "en", "de".
QString LanguageOfTexts();

}  // namespace vanzet::view::qt
