#pragma once

#include <QString>
#include <QTranslator>

#include "base/translations.h"

namespace vanzet::view::qt {

/// A text of the view's own, beside those of the state, in the language of the view: that of the environment
/// variable VANZET_LANGUAGE, else that of the application's locale, which is the system's where the host has
/// set no other.
///
/// Source   the section "view" of the catalogues in share/messages; English without a translation
QString Translate(const char* english);

/// Qt's own texts, of file dialogs and of the menus of edits, in the language of the view while this is
/// alive. They stay English where the machine does not have them.
class TextsOfQt {
 public:
  TextsOfQt();
  ~TextsOfQt();
  TextsOfQt(const TextsOfQt&) = delete;
  TextsOfQt& operator=(const TextsOfQt&) = delete;

 private:
  QTranslator translator_;
};

/// The code of the language that texts are shown in: "en", "de".
QString LanguageOfTexts();

}  // namespace vanzet::view::qt
