#pragma once

#include <string>
#include <string_view>

namespace vanzet::sheet {

/// Bytes as letters, four for each three.
std::string Base64Of(std::string_view bytes);

}  // namespace vanzet::sheet
