#include "vdm/postgres/dial.h"

#include <netdb.h>
#include <clocale>

#include <algorithm>
#include <array>
#include <map>
#include <system_error>
#include <vector>

#include "vdm/commit_origin.h"
#include "vdm/postgres/fault.h"

namespace vanzet::vdm {
namespace {

struct Setting {
  const char* name;
  const char* value;
};

/// The settings that a connection text need not have. Times are seconds; the last one milliseconds.
constexpr Setting kUsualSettings[] = {
    {"connect_timeout", "10"}, {"keepalives_idle", "15"},     {"keepalives_interval", "5"},
    {"keepalives_count", "3"}, {"tcp_user_timeout", "30000"},
};

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

/// Keeps the words of the library and the system in English for this thread, so that they can be recognised.
class EnglishWords {
 public:
  EnglishWords() : own_(newlocale(LC_MESSAGES_MASK, "C", duplocale(uselocale(nullptr)))) {
    if (own_ != nullptr) former_ = uselocale(own_);
  }
  ~EnglishWords() {
    if (own_ == nullptr) return;
    uselocale(former_);
    freelocale(own_);
  }
  EnglishWords(const EnglishWords&) = delete;
  EnglishWords& operator=(const EnglishWords&) = delete;

 private:
  locale_t own_, former_ = nullptr;
};

bool Has(const std::string& text, std::string_view part) {
  return text.find(part) != std::string::npos;
}

// The library writes what a server answered as "FATAL:  words", in the server's language, and, where it is
// asked for details, as "FATAL:  57P03: words". Its own words have no two spaces.
constexpr std::string_view kBeforeAnswer = ":  ";

/// The SQLSTATEs in a text with details.
std::vector<std::string> StatesIn(const std::string& text) {
  constexpr std::size_t kStateLength = 5;
  std::vector<std::string> states;
  for (std::size_t i = text.find(kBeforeAnswer); i != std::string::npos; i = text.find(kBeforeAnswer, i)) {
    i += kBeforeAnswer.size();
    const std::string state = text.substr(i, kStateLength);
    if (text.compare(i + state.size(), 2, ": ") == 0) states.push_back(state);
  }
  return states;
}

/// True when the words of the library and the system say that nothing listens at the place.
bool IsNobodyThere(const std::string& text) {
  constexpr std::array kErrors = {ENOENT, ECONNREFUSED, EHOSTUNREACH, ENETUNREACH, EACCES, ETIMEDOUT};
  constexpr std::array kNames = {EAI_NONAME, EAI_AGAIN, EAI_FAIL};
  return Has(text, "timeout expired") ||
         std::ranges::any_of(kErrors,
                             [&](int error) { return Has(text, std::generic_category().message(error)); }) ||
         std::ranges::any_of(kNames, [&](int error) { return Has(text, gai_strerror(error)); });
}

/// True when the library refuses the server, by its certificate or since it cannot encrypt.
bool IsServerRefused(const std::string& text) {
  constexpr std::array<std::string_view, 3> kWords = {"certificate", "private key", "does not support SSL"};
  return std::ranges::any_of(kWords, [&](std::string_view words) { return Has(text, words); });
}

/// Whether a failure may pass. A server that answered is asked once more, since details cannot be had before;
/// it may then connect.
bool MayPass(const Libpq& pq, PGconn* connection, bool hasSeveralHosts) {
  const std::string text = pq.errorMessage(connection);
  if (!Has(text, kBeforeAnswer)) return hasSeveralHosts || !(IsNobodyThere(text) || IsServerRefused(text));
  pq.setErrorVerbosity(connection, PQERRORS_VERBOSE);
  pq.reset(connection);
  pq.setErrorVerbosity(connection, PQERRORS_DEFAULT);
  const auto states = StatesIn(pq.errorMessage(connection));
  return states.empty() || std::ranges::any_of(states, IsOfUnreadyServer);
}

}  // namespace

Result<Dialled> Dial(const Libpq& pq, const std::string& connectionText) {
  VANZET_TRY(auto settings, SettingsIn(pq, connectionText));
  AddUsual(settings);
  const EnglishWords english;
  PGconn* const connection = Connect(pq, settings);
  if (connection == nullptr) return Fault{.text = "memory ran out", .kind = FaultKind::kSystem};
  Dialled dialled{{connection, pq.finish}};
  if (pq.status(connection) == CONNECTION_OK) return dialled;
  dialled.failure = Sentence(pq.errorMessage(connection));
  dialled.mayPass = MayPass(pq, connection, HasSeveralHosts(settings));
  if (pq.status(connection) == CONNECTION_OK) dialled.failure.clear();
  return dialled;
}

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

}  // namespace vanzet::vdm
