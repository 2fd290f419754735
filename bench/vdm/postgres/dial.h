#pragma once

#include <memory>
#include <string>

#include "base/result.h"
#include "vdm/postgres/libpq.h"

namespace vanzet::vdm {

/// The name of a connection on the server begins with this; the user follows: "vanzet jo@shop-3".
inline constexpr std::string_view kConnectionName = "vanzet ";

/// A connection of the client library, as one attempt to connect has left it.
struct Dialled {
  std::unique_ptr<PGconn, decltype(&PQfinish)> connection;
  std::string failure = {};  ///< the library's words in one line; empty: it is connected
  /// The failure is one that time mends: the server starts or recovers, the connection was cut, and where the
  /// text names several hosts, none of them takes changes now.
  bool mayPass = false;
};

/// Connects to the first host of the connection text that answers. Keep-alives let a dead machine at the
/// other end be noticed within a minute where the text does not say otherwise.
Result<Dialled> Dial(const Libpq& pq, const std::string& connectionText);

/// The library's text in one line, whose parts are the hosts that were tried.
std::string Sentence(std::string_view text);

}  // namespace vanzet::vdm
