#pragma once

#include <QString>
#include <QTranslator>

#include "view/shared/texts.h"

namespace vanzet::view::qt {

/// A text of the views' own for a widget.
QString Translate(const char* english);

/// Gives the texts the locale of Qt: that of the system where the host has set no other.
void UseLocaleOfQt();

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

}  // namespace vanzet::view::qt
