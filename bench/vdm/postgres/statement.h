#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "vdm/postgres/libpq.h"

namespace vanzet::vdm {

/// A parameter of a statement, in the binary form of the server.
class PostgresValue {
 public:
  PostgresValue(std::int64_t value);

  static PostgresValue Text(std::string_view value);
  static PostgresValue Bytes(std::string_view value);
  static PostgresValue NullInteger();
  static PostgresValue Integers(std::span<const std::int64_t> values);
  static PostgresValue ManyBytes(std::span<const std::string_view> values);

  Oid type() const { return type_; }
  bool IsNull() const { return isNull_; }
  const std::string& bytes() const { return bytes_; }

 private:
  PostgresValue(Oid type, std::string bytes) : type_(type), bytes_(std::move(bytes)) {}

  Oid type_;
  bool isNull_ = false;
  std::string bytes_;
};

/// A statement with the values of $1, $2 ...
struct PostgresStatement {
  std::string_view sql;
  std::vector<PostgresValue> values = {};
};

/// The rows that a statement returned, in the binary form. Columns are `bigint`, `text` and `bytea` only.
class PostgresRows {
 public:
  PostgresRows(const Libpq& pq, PGresult* result) : pq_(&pq), result_(result, pq.clear) {}

  int Size() const { return pq_->ntuples(result_.get()); }
  bool IsNull(int row, int column) const;
  /// 0 for null.
  std::int64_t Integer(int row, int column) const;
  /// Valid as long as the rows are; empty for null.
  std::string_view Bytes(int row, int column) const;
  /// The server's name of the command: "COMMIT".
  std::string_view Tag() const { return pq_->cmdStatus(result_.get()); }

 private:
  const Libpq* pq_;
  std::unique_ptr<PGresult, decltype(&PQclear)> result_;
};

/// Rows of several statements, in their order.
using PostgresAnswers = std::vector<PostgresRows>;

}  // namespace vanzet::vdm
