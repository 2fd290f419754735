#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "base/result.h"

namespace vanzet::project {

/// The texts of one language by message id.
using MessageCatalogue = std::map<std::int32_t, std::string>;

/// Reads the text of a catalogue: lines "id = text" in the form of an ini without sections.
/// Errors   a fault with line, column and source: another line, an id that is not a number from 0 up, an id
///          that has a text already, an empty text
Result<MessageCatalogue> ReadMessageCatalogue(const std::string& text, const std::string& name);

}  // namespace vanzet::project
