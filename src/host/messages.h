#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

/// Every text that the user sees has an id; the host may have it in the user's language.
namespace vanzet::host {

/// The group of our texts in the host's catalogue.
inline constexpr std::int32_t kMessageGroup = 5;

/// A text for a host that has no translation of it. A star in front marks a text that is replaced
/// while the program runs; it is shown when nothing replaces it.
struct Message {
  std::int32_t id;
  std::string_view text;
};

/// All texts, by id. Some ids have several defaults, used at different places; the id decides in a
/// translated system. The first of an id is its plain one.
std::span<const Message> Messages();

/// The plain default of an id. Requires: the table has it.
std::string_view DefaultText(std::int32_t id);

/// Puts the user's text of `id` into `out`: the host's when it has one, else `defaultText`.
/// Returns the text of `out`, valid as long as that stays as it is.
const char* TextMessage(std::int32_t id, std::string_view defaultText, std::string& out);

}  // namespace vanzet::host
