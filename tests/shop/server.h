#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "support/temporary_folder.h"

namespace vanzet::test {

/// A PostgreSQL server of a test's own: in a temporary folder, on a local socket there, waiting for the disk.
///
/// Owns     the server's processes and its folder; both go with the object, and the processes with the test
/// Errors   a failed step throws `std::runtime_error` with the command and the server's log
/// Threads  the one that makes the object starts the server and outlives it
class Server {
 public:
  /// The settings of postgresql.conf that a test adds: "synchronous_standby_names=*".
  using Settings = std::vector<std::string>;

  /// A new server with the database "vanzet" and its owner "vanzet", which runs.
  static std::unique_ptr<Server> Make(const Settings& settings = {});

  /// A server that follows another one, and runs.
  static std::unique_ptr<Server> MakeStandby(const Server& primary);

  ~Server();
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;

  void Start(const Settings& settings = {});

  /// Lets clients finish nothing, but writes all to the disk.
  void Stop();

  /// Ends all processes of the server at once, as a power failure would.
  void Kill();

  /// Makes a standby the primary, and waits until it is.
  void Promote();

  /// The connection text, as a role.
  std::string Text(const std::string& role = "vanzet") const;

  /// Runs statements as the owner; returns the rows, a line each.
  std::string Sql(const std::string& statements) const;

  /// Runs a shell's line as the user of the server, in its folder.
  void Run(const std::string& line) const;

  /// The report of the server so far.
  std::string Log() const;

  const std::filesystem::path& folder() const { return folder_.path(); }

 private:
  Server();

  const TemporaryFolder folder_;
  int process_ = 0;  ///< 0: it does not run
};

}  // namespace vanzet::test
