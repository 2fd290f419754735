#pragma once

#include <string>
#include <string_view>

#include "sheet/sheet.h"

/// The parts of which the pages for a browser are put together. Texts are escaped here.
namespace vanzet::sheet {

/// ` name="value"`, with the blank before it.
std::string Attribute(std::string_view name, std::string_view value);

/// `<name attributes>text</name>`.
std::string Element(const std::string& name, std::string_view text, const std::string& attributes = "");

/// A picture that is in the page, in its size on paper.
std::string ImageOf(const Picture& picture, const std::string& attributes = "");

/// A page up to the beginning of its body. The page may use what is in it, and nothing else.
std::string PageHead(std::string_view language, std::string_view title, std::string_view style);

}  // namespace vanzet::sheet
