#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Texts and boxes of the dialog.
namespace vanzet::dialog {

/// The text of message `id` in the user's language. The host is asked with a default of the id: the one
/// given, or the plain one.
std::string Text(std::int32_t id, std::string_view defaultText = {});

/// The same by host::TextMessage, which passes no default to the host.
std::string TextByMessage(std::int32_t id, std::string_view defaultText = {});

/// The header of a page, such as "Main Spindle: Billet from Solid": the spindle whose record it shows, and
/// the message of its title.
std::string SpindleHeader(std::int32_t spindle, std::int32_t title);

/// Shows a box with one button in front of the host's window.
void Notice(const std::string& text);

/// The text with every occurrence of `mark` replaced.
std::string ReplaceAll(std::string text, std::string_view mark, std::string_view by);

}  // namespace vanzet::dialog
