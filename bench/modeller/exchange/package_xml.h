#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"

/// XML texts as plain elements, as far as properties need them.
namespace vanzet::modeller {

/// An element; attributes are passed over.
struct XmlElement {
  std::string name;    ///< without its prefix
  std::string text;    ///< its own, without that of its elements and without blanks around it
  std::size_t parent;  ///< its position; that of the root is its own
};

/// Reads the elements in the order of the text.
/// Errors   a fault with the line: not XML, without its end, an end that is not that of the element, a
///          document type (a small text could make a huge one by it), a character that does not exist,
///          elements within elements more than 100 levels deep
Result<std::vector<XmlElement>> ReadXmlElements(std::string_view text);

}  // namespace vanzet::modeller
