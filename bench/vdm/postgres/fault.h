#pragma once

#include <string>
#include <string_view>

#include "base/result.h"

namespace vanzet::vdm {

/// The error of a statement, as the server reports it.
struct PostgresError {
  std::string_view state;    ///< SQLSTATE
  std::string_view message;  ///< in the language of the server
  std::string_view role;     ///< of the connection
};

/// True when the server ends the connection, or cannot serve anybody.
bool IsEndOfConnection(std::string_view state);

/// True when a server that answers so to a new connection may take one a little later.
bool IsOfUnreadyServer(std::string_view state);

/// The fault of a statement, without its place.
Fault FaultOf(const PostgresError& error);

}  // namespace vanzet::vdm
