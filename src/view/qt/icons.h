#pragma once

#include <QIcon>
#include <cstdint>

#include "view/shared/icon_table.h"

/// The icons of nodes and buttons, drawn at any size.
///
/// Source   share/icons: lines have the colour of the text around them, so that they are seen on dark and
///          light backgrounds
namespace vanzet::view::qt {

/// The icon of a node, from its two bitmaps: the second shows while it is selected.
/// An id that is not in the table gives an icon without a picture.
QIcon IconOfNode(std::int32_t bitmap, std::int32_t selectedBitmap);

/// The icon of a file of share/icons.
QIcon IconOf(const char* file);

}  // namespace vanzet::view::qt
