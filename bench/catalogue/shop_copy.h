#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "catalogue/shop_place.h"

namespace vanzet::catalogue {

/// A catalogue that goes with a copy of its project.
struct ShopCopy {
  struct File {
    std::filesystem::path file;
    std::string text;
  };
  std::vector<File> files = {};         ///< that are still to be written
  std::vector<std::string> notes = {};  ///< what people should know, a sentence each
};

/// Copies a catalogue to the place of another one; to a server at once, to files by those that are returned.
/// A place without a catalogue gets the same bytes, and on a server the generations too. Where there is one,
/// a server gets the devices that it lacks and keeps its own values of others; files in `folder`, which is
/// the project's, are kept in another folder when they have other devices; files elsewhere belong to others
/// and stay.
Result<ShopCopy> CopyShop(const ShopPlace& from, const ShopPlace& to, const std::filesystem::path& folder);

/// The files of a catalogue, to be kept in a folder beside it, which is made.
Result<std::vector<ShopCopy::File>> FilesToKeep(const std::filesystem::path& file);

}  // namespace vanzet::catalogue
