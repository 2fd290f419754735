#include "vdm/postgres/fault.h"

namespace vanzet::vdm {
namespace {

struct KnownState {
  std::string_view state;  ///< or its class of two characters
  FaultKind kind;
  std::string_view text;
};

constexpr KnownState kKnownStates[] = {
    {"25006", FaultKind::kSystem, "is read-only"},
    {"40P01", FaultKind::kBusy, "another process is changing it"},
    {"40001", FaultKind::kBusy, "another process is changing it"},
    {"53100", FaultKind::kSystem, "the server's disk is full"},
    {"53200", FaultKind::kSystem, "the server has no memory left"},
    {"55P03", FaultKind::kBusy, "another process is changing the project"},
    {"XX001", FaultKind::kDamaged, "is damaged"},
    {"XX002", FaultKind::kDamaged, "is damaged"},
};

constexpr std::string_view kNoPermission = "42501", kTooManyConnections = "53300";

}  // namespace

bool IsEndOfConnection(std::string_view state) {
  return state.starts_with("08") || state == "57P01" || state == "57P02" || state == "57P03" ||
         state == "57P05" || state == "25P03";
}

bool IsOfUnreadyServer(std::string_view state) {
  return IsEndOfConnection(state) || state == kTooManyConnections;
}

Fault FaultOf(const PostgresError& error) {
  const std::string message(error.message);
  if (error.state == kNoPermission) {
    return {.text = "is not open to the role '" + std::string(error.role) + "' for this: " + message,
            .kind = FaultKind::kSystem};
  }
  for (const KnownState& known : kKnownStates) {
    if (known.state != error.state) continue;
    return {.text = std::string(known.text) + ": " + message, .kind = known.kind};
  }
  return {.text = "the server reports " + std::string(error.state) + ": " + message,
          .kind = FaultKind::kSystem};
}

}  // namespace vanzet::vdm
