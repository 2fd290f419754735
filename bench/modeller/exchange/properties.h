#pragma once

#include <string_view>

#include "base/result.h"
#include "modeller/device_package.h"

/// The device that a file of properties describes; its `file` stays empty.
///
/// Errors   a fault with the line: a text of another format, or one that is broken
/// Source   docs/formats/device-package.md
namespace vanzet::modeller {

Result<PackageItem> ItemOfPart21(std::string_view text);
Result<PackageItem> ItemOfXml(std::string_view text);

}  // namespace vanzet::modeller
