#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "catalogue/device_rows.h"
#include "vdm/postgres/session.h"
#include "vdm/postgres/transaction.h"

namespace vanzet::catalogue {

/// The devices of a catalogue on a server, after a generation.
struct ServerState {
  std::int64_t generation = 0;
  std::string token;  ///< of the generation: no other one of any server has it
  DeviceRows rows = {};
};

/// A state of a device, from the generation that made it.
struct PastDevice {
  vdm::Generation generation;
  std::optional<DeviceRow> row;  ///< nothing: the device was removed
  bool isChange = false;         ///< the device existed before
};

/// All that a server keeps of a catalogue.
struct ShopHistory {
  struct Made {
    vdm::Generation generation;
    std::string token;
  };
  struct State {
    DeviceRow row;
    std::int64_t first = 0, last = 0;  ///< the generations after which it holds
    bool isChange = false;             ///< the device existed before
  };
  std::vector<Made> generations = {};  ///< by number
  std::vector<State> states = {};
};

/// The catalogue of a shop on a PostgreSQL server, which any number of programs change at the same time.
///
/// Shape    the devices of now, and the states before them: `keep` of each device. A change is a generation
/// Errors   those of `PostgresSession`. A connection that breaks is made again, and the change begins again;
///          none is made twice
/// Threads  one
/// Source   docs/formats/store.md
class ServerShop {
 public:
  /// The name of a catalogue among the names of projects, which are those of folders.
  static std::string ProjectOf(const std::string& name) { return "catalogue/" + name; }

  /// `name` tells the catalogues of a database apart.
  ServerShop(std::string connectionText, const std::string& name, std::int64_t keep);

  /// The devices of now; nothing before the first change.
  Result<std::optional<ServerState>> Read();

  /// The same without the devices.
  Result<std::optional<ServerState>> ReadGeneration();

  /// The devices as they were after a generation, as far as they are kept; nothing when no generation has
  /// this number and token.
  Result<std::optional<DeviceRows>> ReadAt(const ServerState& state);

  /// The states of the device with this name, the newest first.
  Result<std::vector<PastDevice>> History(const std::string& name);

  /// The devices of now with all former states; nothing before the first change.
  Result<std::optional<ShopHistory>> ReadHistory();

  /// Takes over a catalogue of another server with its generations, in one transaction. Returns false, and
  /// does nothing, when this one is not empty.
  Result<bool> Fill(const ShopHistory& history);

  /// Reads the devices, has `change` change them, and writes what it changed, in one transaction. Nobody else
  /// changes them meanwhile. `change` gets nothing before the first change, and may be called again. Nothing
  /// is written when it fails, changes nothing or returns nothing.
  using Change = std::function<Result<std::optional<DeviceRows>>(const std::optional<DeviceRows>& rows)>;
  Result<void> ChangeRows(const std::string& occasion, const Change& change);

 private:
  using Outcome = vdm::PostgresTransaction::Outcome;

  Result<Outcome> TryChange(const std::string& occasion, const Change& change);
  Result<std::optional<vdm::PostgresTransaction>> Begin();
  Result<bool> ChangeIn(vdm::PostgresTransaction& transaction, const std::string& occasion,
                        const Change& change);
  std::vector<vdm::PostgresStatement> StatementsOf(const vdm::PostgresTransaction& transaction,
                                                   const RowChanges& changes,
                                                   const std::string& occasion) const;
  vdm::PostgresValue Name() const { return vdm::PostgresValue::Text(session_->project()); }

  std::shared_ptr<vdm::PostgresSession> session_;
  std::int64_t keep_;
};

}  // namespace vanzet::catalogue
