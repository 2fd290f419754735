#pragma once

#include <filesystem>
#include <string>

namespace vanzet::sheet {

/// The address of a folder or file of this machine: "file:///work/lathe%202". A name that is relative counts
/// from the current folder; links are followed.
std::string AddressOf(const std::filesystem::path& file);

/// A name as part of an address: bytes that are neither letters, digits nor one of "-._~" become "%20".
std::string EscapedForAddress(std::string_view name);

}  // namespace vanzet::sheet
