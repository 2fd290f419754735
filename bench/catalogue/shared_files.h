#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "catalogue/shop_place.h"

/// The files of a catalogue that is on a server: what a module reads and writes.
namespace vanzet::catalogue {

/// Keeps the files of one catalogue and the server together around the work of a module. `Begin` brings the
/// devices of the server to the files, `Merge` takes there what was changed in the files since: device by
/// device, byte for byte, in one transaction. What a person has changed in the files before is merged by
/// `Begin`. Without a server nothing is done.
///
/// Shape    beside the catalogue, `.clampdevice.cld.shared` says which generation the files have
/// Errors   those of reading and writing both sides
class SharedFiles {
 public:
  explicit SharedFiles(ShopPlace place) : place_(std::move(place)) {}

  /// Returns what people should know, a sentence each: devices that both sides changed, where the last change
  /// counts and the other one is in the history; and files that had other devices than the server when they
  /// first met, which are kept in a folder of their own.
  Result<std::vector<std::string>> Begin();

  /// The same after the work. A server that has no catalogue yet gets one when the files were changed.
  Result<std::vector<std::string>> Merge(const std::string& occasion);

 private:
  struct Files;
  struct Stamp;
  using Notes = std::vector<std::string>;

  Result<Notes> Settle(const std::string& occasion);
  Result<Files> ReadFiles() const;
  Result<Notes> TakeToServer(const Stamp& stamp, const std::string& occasion) const;
  Result<void> BringFromServer(const Files& files) const;
  Result<Notes> SetAside(const Shop& shop) const;
  Result<std::optional<Stamp>> ReadStamp() const;
  std::filesystem::path StampFile() const;

  ShopPlace place_;
  std::uint64_t before_ = 0;  ///< the checksum of the files after `Begin`
};

}  // namespace vanzet::catalogue
