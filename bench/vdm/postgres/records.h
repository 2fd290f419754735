#pragma once

#include <map>
#include <memory>
#include <vector>

#include "vdm/postgres/session.h"
#include "vdm/vdm.h"

namespace vanzet::vdm {

/// Fetches records of one VDM from a server, many in one round trip: the one that is asked for, and those
/// that come after it. Others may load the same record again.
class PostgresRecords {
 public:
  /// `keys` are the records in their order.
  PostgresRecords(std::shared_ptr<PostgresSession> session, Number number, std::vector<RecordKey> keys);

  Result<Record> Load(RecordKey key);

 private:
  Result<void> FetchFrom(std::size_t index);

  std::shared_ptr<PostgresSession> session_;
  Number number_;
  std::vector<RecordKey> keys_;
  std::map<RecordKey, std::size_t> indices_;
  std::map<RecordKey, Result<Record>> fetched_;
};

}  // namespace vanzet::vdm
