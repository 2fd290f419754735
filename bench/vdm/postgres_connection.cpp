#include "vdm/postgres_connection.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>

#include "vdm/commit_origin.h"
#include "vdm/postgres_fault.h"

namespace vanzet::vdm {
namespace {

constexpr int kOldestServer = 130000;

struct Setting {
  const char* name;
  const char* value;
};

/// The settings that a connection text need not have. Times are seconds; the last one milliseconds.
constexpr Setting kUsualSettings[] = {
    {"connect_timeout", "10"}, {"keepalives_idle", "15"},     {"keepalives_interval", "5"},
    {"keepalives_count", "3"}, {"tcp_user_timeout", "30000"},
};

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

using Settings = std::map<std::string, std::string>;

/// The settings of a connection text. Its faults do not quote it: it may hold a password.
Result<Settings> SettingsIn(const Libpq& pq, const std::string& text) {
  const std::unique_ptr<PQconninfoOption, decltype(&PQconninfoFree)> options(
      pq.conninfoParse(text.c_str(), nullptr), pq.conninfoFree);
  if (options == nullptr) return Fault{"[store] engine= is not a connection text of PostgreSQL"};
  Settings settings;
  for (const PQconninfoOption* option = options.get(); option->keyword != nullptr; ++option) {
    if (option->val != nullptr) settings.emplace(option->keyword, option->val);
  }
  return settings;
}

/// A store of several hosts is on the one that can be written.
bool HasSeveralHosts(const Settings& settings) {
  return std::ranges::any_of(std::array{"host", "hostaddr"}, [&](const char* name) {
    const auto hosts = settings.find(name);
    return hosts != settings.end() && hosts->second.find(',') != std::string::npos;
  });
}

void AddUsual(Settings& settings) {
  for (const Setting& setting : kUsualSettings) settings.try_emplace(setting.name, setting.value);
  if (HasSeveralHosts(settings)) settings.try_emplace("target_session_attrs", "read-write");
  const CommitOrigin origin = OriginOfProcess();
  settings.try_emplace("application_name", std::string(kConnectionName) + origin.user + "@" + origin.host);
  settings.insert_or_assign("client_encoding", "UTF8");
}

PGconn* Connect(const Libpq& pq, const Settings& settings) {
  std::vector<const char*> names, values;
  for (const auto& [name, value] : settings) {
    names.push_back(name.c_str());
    values.push_back(value.c_str());
  }
  names.push_back(nullptr);
  values.push_back(nullptr);
  return pq.connectdbParams(names.data(), values.data(), 0);
}

std::string NameOf(const Libpq& pq, const PGconn* connection) {
  const auto text = [](const char* part) { return std::string(part == nullptr ? "" : part); };
  return "postgresql://" + text(pq.host(connection)) + ":" + text(pq.port(connection)) + "/" +
         text(pq.db(connection));
}

/// The library's text in one line, whose parts are the hosts that were tried.
std::string Sentence(std::string_view text) {
  std::string sentence;
  for (const char c : text) {
    if (c != '\n') {
      sentence.push_back(c);
    } else if (!sentence.ends_with("; ")) {
      sentence += "; ";
    }
  }
  if (sentence.ends_with("; ")) sentence.resize(sentence.size() - 2);
  std::erase(sentence, '\t');
  return sentence;
}

std::string_view Field(const Libpq& pq, const PGresult* result, int field) {
  const char* const text = pq.resultErrorField(result, field);
  return text == nullptr ? "" : text;
}

void IgnoreNotice(void*, const char*) {}

}  // namespace

PostgresConnection::PostgresConnection(const Libpq& pq, PGconn* connection)
    : pq_(pq), connection_(connection, pq.finish), name_(NameOf(pq, connection)) {}

Result<std::unique_ptr<PostgresConnection>> PostgresConnection::Open(const std::string& connectionText) {
  VANZET_TRY(const auto* const pq, LoadLibpq());
  VANZET_TRY(auto settings, SettingsIn(*pq, connectionText));
  AddUsual(settings);
  PGconn* const connected = Connect(*pq, settings);
  if (connected == nullptr) return Fault{.text = "memory ran out", .kind = FaultKind::kSystem};
  std::unique_ptr<PostgresConnection> connection(new PostgresConnection(*pq, connected));
  VANZET_DO(connection->Prepare());
  return connection;
}

Result<void> PostgresConnection::Prepare() {
  PGconn* const connection = connection_.get();
  if (pq_.status(connection) != CONNECTION_OK) {
    return FaultOf("cannot be reached: " + Sentence(pq_.errorMessage(connection)), FaultKind::kSystem);
  }
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
  if (IsBroken()) return BrokenFault();
  const char* const role = pq_.user(connection_.get());
  Fault fault =
      vdm::FaultOf({lastState_, Field(pq_, result, PG_DIAG_MESSAGE_PRIMARY), role == nullptr ? "" : role});
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
  return FaultOf("the connection broke: " + Sentence(pq_.errorMessage(connection_.get())),
                 FaultKind::kSystem);
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
