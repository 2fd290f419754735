#pragma once

#include <string>
#include <string_view>

namespace vanzet::platform {

/// A text of our own, in UTF-8, as the host takes it. On Windows it is then in the process's code page,
/// where a character that this lacks becomes the one that looks most like it.
std::string HostText(std::string_view text);

/// The bytes of lines that end with LF as they are in a text file of the system: on Windows they end with CR
/// LF.
std::string TextFileBytes(std::string lines);

}  // namespace vanzet::platform
