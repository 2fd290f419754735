#include "vdm/postgres/channel.h"

#include <array>
#include <charconv>

#include "vdm/checksum.h"

namespace vanzet::vdm {
namespace {

constexpr std::string_view kNotify = "SELECT pg_notify($1, $2)";

PostgresStatement Note(const std::string& project, std::string_view payload) {
  return {kNotify, {PostgresValue::Text(ChannelOf(project)), PostgresValue::Text(payload)}};
}

}  // namespace

std::string ChannelOf(const std::string& project) {
  std::array<char, 16> digits = {};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), ChecksumOf(project), 16);
  return "vanzet_" + std::string(digits.data(), end.ptr);
}

PostgresStatement NoteOfCommit(const std::string& project, std::int64_t generation) {
  return Note(project, std::to_string(generation));
}

PostgresStatement NoteOfLocks(const std::string& project) {
  return Note(project, kLocksNote);
}

}  // namespace vanzet::vdm
