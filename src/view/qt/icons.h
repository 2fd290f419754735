#pragma once

#include <QIcon>
#include <QString>
#include <cstdint>
#include <span>

/// The pictures of 16 by 16 that nodes of the tree and buttons bear, drawn at whatever size is asked for.
///
/// Source   share/icons: lines are of the colour of the text around them, so they are read on dark and light
namespace vanzet::view::qt {

/// What a bitmap of the tree is drawn as.
struct NodeIcon {
  std::int32_t bitmap;  ///< of a plain node; the next id is that of a selected one
  const char* file;     ///< its name in share/icons, without the ending
  bool isMirrored;      ///< the sub spindle looks the other way
};

/// The icons of the tree, by id.
std::span<const NodeIcon> NodeIcons();

/// The icon of a node, from its two bitmaps: the second shows while it is selected.
/// An id that is not in the table gives an icon without a picture.
QIcon IconOfNode(std::int32_t bitmap, std::int32_t selectedBitmap);

/// The icon of a file of share/icons.
QIcon IconOf(const char* file);

}  // namespace vanzet::view::qt
