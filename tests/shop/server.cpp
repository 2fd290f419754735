#include "shop/server.h"

#include <fcntl.h>
#include <pwd.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <sstream>
#include <stdexcept>

namespace vanzet::test {
namespace {

namespace fs = std::filesystem;

/// The folder of the newest server's programs.
fs::path Programs() {
  fs::path newest;
  std::error_code unknown;
  for (const auto& version : fs::directory_iterator("/usr/lib/postgresql", unknown)) {
    const fs::path programs = version.path() / "bin";
    if (fs::exists(programs / "postgres") && programs > newest) newest = programs;
  }
  if (newest.empty()) throw std::runtime_error("no PostgreSQL server is installed");
  return newest;
}

/// The words before a command that run it as the user of the server, which must not be root.
std::vector<std::string> AsServer() {
  if (geteuid() != 0) return {};
  return {"setpriv", "--reuid=postgres", "--regid=postgres", "--clear-groups"};
}

std::string Joined(const std::vector<std::string>& words) {
  std::string line;
  for (const std::string& word : words) line += "'" + word + "' ";
  return line;
}

/// Starts a program in a session of its own, its output in a log. Between fork and exec there are system
/// calls alone: other threads of the test may hold locks.
int Launch(const std::vector<std::string>& words, const std::string& log) {
  std::vector<char*> pointers;
  for (const std::string& word : words) pointers.push_back(const_cast<char*>(word.c_str()));
  pointers.push_back(nullptr);
  const int process = fork();
  if (process != 0) return process;
  const int output = open(log.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0644);
  for (const int standard : {STDOUT_FILENO, STDERR_FILENO}) dup2(output, standard);
  setsid();
  execvp(pointers[0], pointers.data());
  _exit(127);
}

std::vector<int> ChildrenOf(int process) {
  std::istringstream numbers(
      ReadBytes("/proc/" + std::to_string(process) + "/task/" + std::to_string(process) + "/children"));
  std::vector<int> children;
  for (int child = 0; numbers >> child;) children.push_back(child);
  return children;
}

}  // namespace

// Not below TMPDIR: the path of a socket is short.
Server::Server() : folder_("/tmp") {
  if (geteuid() != 0) return;
  const passwd* const user = getpwnam("postgres");
  if (user == nullptr || chown(folder().c_str(), user->pw_uid, user->pw_gid) != 0) {
    throw std::runtime_error("the folder cannot be given to the user postgres");
  }
}

std::unique_ptr<Server> Server::Make(const Settings& settings) {
  std::unique_ptr<Server> server(new Server);
  server->Run("initdb --pgdata=data --username=vanzet --auth=trust --encoding=UTF8 --locale=C --no-sync");
  server->Start();
  server->Sql("CREATE DATABASE vanzet");
  if (!settings.empty()) server->Stop(), server->Start(settings);
  return server;
}

std::unique_ptr<Server> Server::MakeStandby(const Server& primary) {
  std::unique_ptr<Server> server(new Server);
  server->Run("pg_basebackup --pgdata=data --write-recovery-conf --no-sync --checkpoint=fast --host='" +
              primary.folder().string() + "' --username=vanzet");
  server->Start();
  return server;
}

Server::~Server() {
  if (process_ != 0) Kill();
}

void Server::Start(const Settings& settings) {
  const std::string log = folder() / "log";
  std::vector<std::string> words = AsServer();
  words.insert(words.end(),
               {"setpriv", "--pdeathsig", "QUIT", Programs() / "postgres", "-D", folder() / "data"});
  for (const std::string& each :
       {std::string("listen_addresses="), "unix_socket_directories=" + folder().string(),
        std::string("max_connections=120"), std::string("shared_buffers=32MB")}) {
    words.insert(words.end(), {"-c", each});
  }
  for (const std::string& each : settings) words.insert(words.end(), {"-c", each});
  process_ = Launch(words, log);
  Run("for i in $(seq 300); do pg_isready -q -h \"$PWD\" && exit 0; sleep 0.1; done; exit 1");
}

void Server::Stop() {
  kill(process_, SIGINT);
  waitpid(process_, nullptr, 0);
  process_ = 0;
}

void Server::Kill() {
  // The first one, which is stopped, starts no other while they end.
  kill(process_, SIGSTOP);
  for (const int child : ChildrenOf(process_)) kill(child, SIGKILL);
  kill(process_, SIGKILL);
  waitpid(process_, nullptr, 0);
  process_ = 0;
  std::error_code unknown;
  fs::remove(folder() / "data/postmaster.pid", unknown);
}

void Server::Promote() {
  Run("pg_ctl promote --pgdata=data --wait");
}

std::string Server::Text(const std::string& role) const {
  return "host=" + folder().string() + " user=" + role + " dbname=vanzet";
}

std::string Server::Sql(const std::string& statements) const {
  const TemporaryFolder answers;
  WriteBytes(answers / "sql", statements);
  const std::string database = statements.starts_with("CREATE DATABASE") ? "postgres" : "vanzet";
  const std::string line = "psql -h '" + folder().string() + "' -U vanzet -d " + database +
                           " -v ON_ERROR_STOP=1 -qAtX -f '" + (answers / "sql").string() + "' >'" +
                           (answers / "out").string() + "' 2>'" + (answers / "err").string() + "'";
  if (std::system(line.c_str()) != 0) {
    throw std::runtime_error(statements + ": " + ReadBytes(answers / "err") + Log());
  }
  return ReadBytes(answers / "out");
}

void Server::Run(const std::string& line) const {
  const std::string script = "cd '" + folder().string() + "' && export PATH='" + Programs().string() +
                             "':\"$PATH\" && { " + line + "; } >>run.log 2>&1";
  const TemporaryFolder file;
  WriteBytes(file / "script", script);
  fs::permissions(file.path(), fs::perms::all);
  const std::string command = Joined(AsServer()) + "bash " + (file / "script").string();
  if (std::system(command.c_str()) != 0) {
    throw std::runtime_error(line + ": " + ReadBytes(folder() / "run.log") + Log());
  }
}

std::string Server::Log() const {
  return ReadBytes(folder() / "log");
}

}  // namespace vanzet::test
