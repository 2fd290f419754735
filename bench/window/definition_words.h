#pragma once

#include <QString>
#include <functional>
#include <string_view>

#include "base/translations.h"

/// The names of what a definition holds as the window shows them, in its language. Commands and stores have
/// the names that they are made of.
namespace vanzet::window {

/// The section of the translations that holds them.
inline constexpr const char* kDefinitionSection = "definition";

/// "main jaw 1" is "Backe 1, Hauptspindel" in German. A name of another form stays as it is.
QString BodyText(const Translations& texts, const QString& name);

/// Gives the text of a body by its name. A view without one shows the names themselves.
using BodyNamer = std::function<QString(const QString& name)>;

/// "Luenette", the stored label of an operation, is "Steady rest", or "Lünette" in German. A label that no
/// definition has stays as it is.
QString OperationText(const Translations& texts, std::string_view label);

}  // namespace vanzet::window
