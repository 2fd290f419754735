#pragma once

#include <string>
#include <string_view>

#include "base/result.h"

namespace vanzet::project {

/// The text of an ini file with an entry: the value that counts is replaced, or an entry is added to the
/// section; every other byte stays, and new lines end as those of the text do. Fails for a key or value that
/// a line cannot hold.
Result<std::string> WithIniEntry(const std::string& text, std::string_view section, std::string_view key,
                                 std::string_view value);

}  // namespace vanzet::project
