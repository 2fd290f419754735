#include "window/words.h"

namespace vanzet::window {

void Words::Speak(Language language) {
  if (language == language_) return;
  language_ = language;
  emit Changed();
}

}  // namespace vanzet::window
