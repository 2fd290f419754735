#include "vdm/postgres/statement.h"

#include <array>

#include "base/utf8.h"

namespace vanzet::vdm {
namespace {

// The types of the server, which never change: pg_type.dat.
constexpr Oid kBytea = 17, kBigint = 20, kText = 25, kByteaArray = 1001, kBigintArray = 1016;

template <class Integer>
void Append(std::string& bytes, Integer value) {
  std::array<char, sizeof value> all = {};
  for (std::size_t i = 0; i < all.size(); ++i) {
    all[all.size() - 1 - i] = static_cast<char>((static_cast<std::uint64_t>(value) >> (8 * i)) & 0xFFU);
  }
  bytes.append(all.data(), all.size());
}

/// The head of an array of one dimension, counted from 1, without nulls.
std::string ArrayHead(Oid element, std::size_t size) {
  std::string bytes;
  Append(bytes, std::int32_t{size > 0});
  Append(bytes, std::int32_t{0});
  Append(bytes, element);
  if (size == 0) return bytes;
  Append(bytes, static_cast<std::int32_t>(size));
  Append(bytes, std::int32_t{1});
  return bytes;
}

std::string BigintBytes(std::int64_t value) {
  std::string bytes;
  Append(bytes, value);
  return bytes;
}

/// The server takes no text that is not UTF-8, and no NUL.
std::string Utf8Of(std::string_view text) {
  std::string valid;
  while (!text.empty()) {
    const std::size_t length = Utf8Length(text);
    const bool isValid = length > 0 && text.front() != '\0';
    valid += isValid ? text.substr(0, length) : kNoUtf8;
    text.remove_prefix(isValid ? length : 1);
  }
  return valid;
}

}  // namespace

PostgresValue::PostgresValue(std::int64_t value) : PostgresValue(kBigint, BigintBytes(value)) {}

PostgresValue PostgresValue::Text(std::string_view value) {
  return {kText, Utf8Of(value)};
}

PostgresValue PostgresValue::Bytes(std::string_view value) {
  return {kBytea, std::string(value)};
}

PostgresValue PostgresValue::NullInteger() {
  PostgresValue null(kBigint, {});
  null.isNull_ = true;
  return null;
}

PostgresValue PostgresValue::Integers(std::span<const std::int64_t> values) {
  std::string bytes = ArrayHead(kBigint, values.size());
  bytes.reserve(bytes.size() + values.size() * 12);
  for (const std::int64_t value : values) {
    Append(bytes, std::int32_t{8});
    Append(bytes, value);
  }
  return {kBigintArray, std::move(bytes)};
}

PostgresValue PostgresValue::ManyBytes(std::span<const std::string_view> values) {
  std::string bytes = ArrayHead(kBytea, values.size());
  std::size_t size = bytes.size();
  for (const std::string_view value : values) size += value.size() + 4;
  bytes.reserve(size);
  for (const std::string_view value : values) {
    Append(bytes, static_cast<std::int32_t>(value.size()));
    bytes += value;
  }
  return {kByteaArray, std::move(bytes)};
}

bool PostgresRows::IsNull(int row, int column) const {
  return pq_->getisnull(result_.get(), row, column) != 0;
}

std::int64_t PostgresRows::Integer(int row, int column) const {
  std::uint64_t value = 0;
  for (const char byte : Bytes(row, column)) value = (value << 8U) | static_cast<unsigned char>(byte);
  return static_cast<std::int64_t>(value);
}

std::string_view PostgresRows::Bytes(int row, int column) const {
  return {pq_->getvalue(result_.get(), row, column),
          static_cast<std::size_t>(pq_->getlength(result_.get(), row, column))};
}

}  // namespace vanzet::vdm
