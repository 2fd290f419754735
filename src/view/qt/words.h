#pragma once

#include <QString>

/// What the view says besides the texts of the state, in both languages side by side.
namespace vanzet::view::qt {

/// UTF-8.
struct Words {
  const char* english;
  const char* german;
};

/// In the language of the view: that of VANZET_LANGUAGE ("en", "de"), else that of the application's locale,
/// which is the system's where a host has set no other; English for any other.
QString Said(const Words& words);

/// "%1" and "%2" replaced.
QString Said(const Words& words, const QString& first, const QString& second = {});

bool IsGerman();

}  // namespace vanzet::view::qt
