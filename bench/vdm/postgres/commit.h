#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "vdm/postgres/statement.h"
#include "vdm/store_engine.h"

namespace vanzet::vdm {

/// A record as a row keeps it.
struct NewRecord {
  std::string content;
  std::int64_t items = 0;
  std::int64_t checksum = 0;
};

/// A place of a VDM that is to be written: a record of the store, one that was edited since, or a new one.
struct NewPlace {
  std::optional<RecordKey> key;
  std::optional<NewRecord> record;  ///< nothing: as the store has it
};

/// The places of VDMs that are to be written; nothing: the VDM is removed.
using NewOrders = std::map<Number, std::optional<std::vector<NewPlace>>>;

/// Reads the contents; those of a VDM in memory are not touched.
NewOrders OrdersOf(const Changes& vdms);

/// The number of records that may have to be added.
std::int64_t CountNew(const NewOrders& orders);

/// The checksums of these records.
std::vector<std::int64_t> ChecksumsOf(const NewOrders& orders);

/// A place of a VDM before a commit.
struct FormerPlace {
  RecordKey key;
  std::int64_t items = 0;
  std::int64_t checksum = 0;
  std::optional<std::string> content;  ///< known where a new record has the same checksum
};
using FormerOrders = std::map<Number, std::vector<FormerPlace>>;

/// The rows that a commit adds and ends, gathered so that few statements write them all. The rows of the
/// state before stay, for the generations before. Records whose content is not new are not written again.
class PostgresCommit {
 public:
  /// `lastRecord` is the largest key that the project has used.
  PostgresCommit(std::int64_t project, std::int64_t generation, std::int64_t lastRecord)
      : project_(project), generation_(generation), lastRecord_(lastRecord) {}

  /// Replaces the content of a VDM. False when it keeps records that are not among the former ones. Returns
  /// the keys in their order through `keys`, where it is not null.
  bool Write(Number number, const std::vector<NewPlace>& after, const std::vector<FormerPlace>& before,
             std::vector<RecordKey>* keys = nullptr);
  void Remove(Number number, const std::vector<FormerPlace>& before);

  /// Notes that the states of a VDM before this generation are not kept.
  void Cut(Number number) { cut_.push_back(static_cast<std::int64_t>(number)); }

  std::int64_t lastRecord() const { return lastRecord_; }

  /// The statements. The records must stay as they are until these were run.
  std::vector<PostgresStatement> Statements() const;

 private:
  class Former;

  RecordKey KeyOf(const NewPlace& place, Former& former);
  void ChangeOrder(Number number, const std::vector<FormerPlace>& before,
                   const std::vector<RecordKey>& after);
  /// Places that follow each other, with records that do, are one run: the server makes their rows in half
  /// the time that rows of arrays take.
  void AddPlace(std::int64_t vdm, std::int64_t position, std::int64_t record);
  void AddRecords(std::vector<PostgresStatement>& statements) const;

  std::int64_t project_, generation_, lastRecord_;
  std::vector<std::int64_t> ended_, added_, cut_;                             ///< VDMs
  std::vector<std::int64_t> endedVdms_, endedPositions_;                      ///< places
  std::vector<std::int64_t> runVdms_, runPositions_, runRecords_, runSizes_;  ///< new places
  std::vector<std::int64_t> keys_;
  std::vector<const NewRecord*> records_;
};

/// Adds the row of a generation, with the token by which its commit is recognised.
PostgresStatement StatementThatAdds(std::int64_t project, const Generation& generation,
                                    std::string_view token);

}  // namespace vanzet::vdm
