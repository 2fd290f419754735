#pragma once

#include <QObject>
#include <QString>

#include "window/texts.h"

namespace vanzet::window {

/// The texts of the window in the language of the moment. Whoever shows some says them anew at `Changed`.
class Words final : public QObject {
  Q_OBJECT
 public:
  Language language() const { return language_; }
  void Speak(Language language);

  QString operator()(Text text) const { return TextIn(language_, text); }

 signals:
  void Changed();

 private:
  Language language_ = Language::kEnglish;
};

}  // namespace vanzet::window
