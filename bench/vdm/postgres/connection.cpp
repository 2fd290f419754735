#include "vdm/postgres/connection.h"

#include <algorithm>
#include <optional>

#include "vdm/postgres/dial.h"
#include "vdm/postgres/fault.h"

namespace vanzet::vdm {
namespace {

constexpr int kOldestServer = 130000;

// The server notices a dead client by the same keep-alives, and takes its locks back. Some systems cannot.
constexpr std::string_view kSetKeepAlives = R"(
  SELECT set_config('tcp_keepalives_idle', '15', false), set_config('tcp_keepalives_interval', '5', false),
         set_config('tcp_keepalives_count', '3', false), set_config('tcp_user_timeout', '30000', false))";

// Functions and operators of others are never called, and an acknowledged commit is on the server's disk.
constexpr std::string_view kSetSafety = R"(
  SELECT set_config('search_path', 'pg_catalog, pg_temp', false),
         set_config('default_transaction_isolation', 'read committed', false),
         CASE WHEN current_setting('synchronous_commit') IN ('off', 'local', 'remote_write')
              THEN set_config('synchronous_commit', 'on', false) END)";

std::string NameOf(const Libpq& pq, const PGconn* connection) {
  const auto text = [](const char* part) { return std::string(part == nullptr ? "" : part); };
  return "postgresql://" + text(pq.host(connection)) + ":" + text(pq.port(connection)) + "/" +
         text(pq.db(connection));
}

std::string_view Field(const Libpq& pq, const PGresult* result, int field) {
  const char* const text = pq.resultErrorField(result, field);
  return text == nullptr ? "" : text;
}

void IgnoreNotice(void*, const char*) {}

}  // namespace

PostgresConnection::PostgresConnection(const Libpq& pq,
                                       std::unique_ptr<PGconn, decltype(&PQfinish)> connection)
    : pq_(pq), connection_(std::move(connection)), name_(NameOf(pq, connection_.get())) {}

Result<std::unique_ptr<PostgresConnection>> PostgresConnection::Open(const std::string& connectionText,
                                                                     bool* mayPass) {
  if (mayPass != nullptr) *mayPass = false;
  VANZET_TRY(const auto* const pq, LoadLibpq());
  VANZET_TRY(auto dialled, Dial(*pq, connectionText));
  std::unique_ptr<PostgresConnection> connection(new PostgresConnection(*pq, std::move(dialled.connection)));
  if (!dialled.failure.empty()) {
    if (mayPass != nullptr) *mayPass = dialled.mayPass;
    return connection->FaultOf("cannot be reached: " + dialled.failure, FaultKind::kSystem);
  }
  const auto prepared = connection->Prepare();
  if (prepared) return connection;
  if (mayPass != nullptr) *mayPass = connection->IsBroken();
  return prepared.fault();
}

Result<void> PostgresConnection::Prepare() {
  PGconn* const connection = connection_.get();
  if (const int version = pq_.serverVersion(connection); version < kOldestServer) {
    return FaultOf("is a server of version " + std::to_string(version / 10000) +
                   ", and a store needs 13 or later");
  }
  pq_.setNoticeProcessor(connection, IgnoreNotice, nullptr);
  if (pq_.enterPipelineMode(connection) != 1) return BrokenFault();
  VANZET_DO(Run({{kSetSafety}}));
  if (const auto set = Run({{kSetKeepAlives}}); !set && IsBroken()) return set.fault();
  return {};
}

Result<PostgresAnswers> PostgresConnection::Run(const std::vector<PostgresStatement>& statements) {
  lastState_.clear();
  const bool isSent = std::ranges::all_of(statements, [&](const auto& each) { return Send(each); });
  isOutOfStep_ = !isSent || pq_.pipelineSync(connection_.get()) != 1;
  if (isOutOfStep_) return BrokenFault();
  PostgresAnswers answers;
  std::optional<Fault> first;
  for (std::size_t i = 0; i < statements.size() && !IsBroken(); ++i) {
    auto rows = Receive();
    if (rows) answers.push_back(std::move(*rows));
    if (!rows && !first) first = rows.fault();
  }
  // The end of the round trip, which the server marks.
  if (!IsBroken()) pq_.clear(pq_.getResult(connection_.get()));
  if (first) return *first;
  if (answers.size() < statements.size()) return BrokenFault();
  return answers;
}

bool PostgresConnection::Send(const PostgresStatement& statement) {
  std::vector<Oid> types;
  std::vector<const char*> values;
  std::vector<int> lengths, formats;
  for (const PostgresValue& value : statement.values) {
    types.push_back(value.type());
    values.push_back(value.IsNull() ? nullptr : value.bytes().data());
    lengths.push_back(static_cast<int>(value.bytes().size()));
    formats.push_back(1);
  }
  const std::string sql(statement.sql);
  return pq_.sendQueryParams(connection_.get(), sql.c_str(), static_cast<int>(types.size()), types.data(),
                             values.data(), lengths.data(), formats.data(), 1) == 1;
}

Result<PostgresRows> PostgresConnection::Receive() {
  PGresult* const result = pq_.getResult(connection_.get());
  if (result == nullptr) return BrokenFault();
  PostgresRows rows(pq_, result);
  // After each statement the library returns null once.
  if (!IsBroken()) pq_.clear(pq_.getResult(connection_.get()));
  const auto status = pq_.resultStatus(result);
  if (status == PGRES_COMMAND_OK || status == PGRES_TUPLES_OK) return rows;
  if (lastState_.empty()) lastState_ = Field(pq_, result, PG_DIAG_SQLSTATE);
  const auto message = Field(pq_, result, PG_DIAG_MESSAGE_PRIMARY);
  if (IsBroken()) return message.empty() ? BrokenFault() : BrokenFault(message);
  const char* const role = pq_.user(connection_.get());
  Fault fault = vdm::FaultOf({lastState_, message, role == nullptr ? "" : role});
  fault.file = name_;
  return fault;
}

void PostgresConnection::RollBack() {
  const std::string state = lastState_;
  if (!IsBroken()) static_cast<void>(Run({{"ROLLBACK"}}));
  lastState_ = state;
}

bool PostgresConnection::IsBroken() const {
  return isOutOfStep_ || pq_.status(connection_.get()) != CONNECTION_OK || IsEndOfConnection(lastState_);
}

Fault PostgresConnection::BrokenFault() const {
  return BrokenFault(Sentence(pq_.errorMessage(connection_.get())));
}

Fault PostgresConnection::BrokenFault(std::string_view reason) const {
  std::string text = "the connection broke";
  if (!reason.empty()) text.append(": ").append(reason);
  return FaultOf(std::move(text), FaultKind::kSystem);
}

Fault PostgresConnection::FaultOf(std::string text, FaultKind kind) const {
  return {.text = std::move(text), .file = name_, .kind = kind};
}

Fault PostgresConnection::DamageOf(const std::string& what) const {
  return FaultOf("is damaged: " + what, FaultKind::kDamaged);
}

Result<std::vector<std::string>> PostgresConnection::Notifications() {
  if (pq_.consumeInput(connection_.get()) != 1) return BrokenFault();
  std::vector<std::string> payloads;
  while (PGnotify* const notification = pq_.notifies(connection_.get())) {
    payloads.emplace_back(notification->extra);
    pq_.freemem(notification);
  }
  return payloads;
}

}  // namespace vanzet::vdm
