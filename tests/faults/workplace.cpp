#include "faults/workplace.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <numeric>
#include <regex>
#include <set>

#include "support/places.h"
#include "vdm/embedded/engine.h"

namespace vanzet::faults {
namespace {

using std::filesystem::path;

/// A run that takes longer hangs, and is ended by a signal.
constexpr unsigned kMostSeconds = 60;

/// The items of all VDMs, or the fault that keeps them from being read.
std::string StoreText(const path& file) {
  vdm::SqliteEngine engine(file);
  const auto numbers = engine.Numbers();
  if (!numbers) return numbers.fault().text;
  const auto all = engine.Read(*numbers);
  if (!all) return all.fault().text;
  std::string text;
  for (const auto& [number, content] : *all) {
    text += vdm::NameOf(number) + "\n";
    for (std::size_t i = 0; i < content.Size(); ++i) {
      const auto record = content.Read(i);
      if (!record) return record.fault().text;
      for (std::size_t item = 0; item < (*record)->Size(); ++item) {
        text += std::to_string(i) + "." + std::to_string(item) + " " + std::string((**record)[item]) + "\n";
      }
    }
  }
  return text;
}

/// Without the numbers and the order of the entities of a STEP file, which differ from run to run.
std::string WithoutNumbers(const std::string& text) {
  static const std::regex number("#[0-9]+");
  std::istringstream lines(std::regex_replace(text, number, "#"));
  std::multiset<std::string> sorted;
  for (std::string line; std::getline(lines, line);) sorted.insert(line + "\n");
  return std::accumulate(sorted.begin(), sorted.end(), std::string());
}

/// Without the time of writing, which some formats hold, and the checksums of files with such a time.
std::string WithoutTimes(const std::string& text) {
  static const std::regex time("[0-9]{4}-[0-9]{2}-[0-9]{2}T[0-9]{2}:[0-9]{2}:[0-9]{2}");
  static const std::regex checksum("\"checksum\": \"[0-9a-f]*\"");
  return std::regex_replace(std::regex_replace(text, time, "TIME"), checksum, "CHECKSUM");
}

bool CarriesNothing(const path& file) {
  return file.filename() == "store.lock" || file.filename() == "store.db-journal";
}

/// Where calls go wrong: below the fourth word of the fault, or anywhere.
path PlaceOf(const std::string& fault, const path& root) {
  std::istringstream words(fault);
  std::string family, number, effect, place;
  words >> family >> number >> effect >> place;
  return place.empty() ? root : root / "work" / place;
}

void BecomeVanzet(const path& root, const Words& words, const std::string& fault,
                  const std::string& streams) {
  const auto file = [&](const char* name) { return (root / (name + streams)).string(); };
  if (chdir((root / "work").c_str()) != 0) return;
  dup2(open("/dev/null", O_RDONLY), STDIN_FILENO);
  dup2(open(file("out").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), STDOUT_FILENO);
  dup2(open(file("err").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), STDERR_FILENO);
  setenv("TMPDIR", (root / "tmp").c_str(), 1);
  unsetenv("VANZET_LANGUAGE");
  if (!fault.empty()) {
    setenv("LD_PRELOAD", VANZET_FAILING_CALLS_FILE, 1);
    setenv("VANZET_FAULT", fault.c_str(), 1);
    setenv("VANZET_FAULT_FOLDER", PlaceOf(fault, root).c_str(), 1);
    setenv("VANZET_FAULT_REPORT", file("report").c_str(), 1);
  }
  std::vector<char*> arguments = {const_cast<char*>("vanzet")};
  for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  alarm(kMostSeconds);
  execv(VANZET_PROGRAM, arguments.data());
}

/// Adds the items of a store, and the text file that it holds until somebody has put it in its place: the
/// next run does. An empty store is none.
void AddStore(Content& content, const path& folder, const path& store) {
  const std::string text = StoreText(store);
  if (!text.empty()) content[store.lexically_relative(folder).string()] = text;
  const auto unfinished = vdm::SqliteEngine(store).UnfinishedFile();
  if (!unfinished || !*unfinished) return;
  content[(store.parent_path() / (*unfinished)->name).lexically_relative(folder).string()] =
      (*unfinished)->content;
}

}  // namespace

Content ContentOf(const path& folder) {
  Content content;
  std::vector<path> stores;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    const std::string name = entry.path().lexically_relative(folder).string();
    if (CarriesNothing(entry.path())) continue;
    if (entry.is_directory()) {
      content[name] = "folder";
    } else if (entry.path().extension() == ".db") {
      stores.push_back(entry.path());
    } else if (entry.path().extension() == ".step") {
      content[name] = WithoutNumbers(WithoutTimes(test::ReadBytes(entry.path())));
    } else {
      content[name] = WithoutTimes(test::ReadBytes(entry.path()));
    }
  }
  for (const path& store : stores) AddStore(content, folder, store);
  return content;
}

Workplace::Workplace() : root_(test::FolderInMemory()) {
  std::filesystem::create_directory(work());
  std::filesystem::create_directory(temporary());
}

void Workplace::PutGivenFiles() const {
  const std::string chuck = "select 36\nset 2123 \"Chuck 333\"\nset 2031 80\nset 2033 90\nset 2034 20\n";
  test::WriteBytes(work() / "old.json", FormOf(90));
  test::WriteBytes(work() / "new.json", FormOf(88));
  test::WriteBytes(work() / "save_device.txt", "answer yes\n" + chuck + "press 2152\nclose\n");
  test::WriteBytes(work() / "delete_device.txt",
                   "answer yes\nselect 36\nchoose 2123 \"Chuck 160\"\npress 2127\nclose\n");
  const path examples = VANZET_SOURCE_DIR "/examples";
  std::filesystem::copy_file(examples / "scripts/bar-job.txt", work() / "job.txt");
  std::filesystem::copy_file(examples / "bodies/casting.step", work() / "casting.step");
  std::filesystem::copy_file(examples / "contours/slot.txt", work() / "slot.txt");
  std::filesystem::create_directory(work() / "empty");
}

void Workplace::DamageStore() const {
  const path store = work() / "lathe/store.db";
  const std::string bytes = test::ReadBytes(store);
  const std::string damaged = std::regex_replace(bytes, std::regex("Chuck 210"), "Chuck 710");
  if (damaged == bytes) throw std::runtime_error("the store has no text to damage");
  test::WriteBytes(store, damaged);
}

void Workplace::AgeStore() const {
  std::filesystem::copy_file(VANZET_SOURCE_DIR "/tests/vdm/fixtures/store-schema-1.db",
                             work() / "lathe/store.db", std::filesystem::copy_options::overwrite_existing);
}

void Workplace::CopyFrom(const Workplace& other) const {
  for (const path& folder : {work(), temporary()}) {
    for (const auto& entry : std::filesystem::directory_iterator(folder)) std::filesystem::remove_all(entry);
  }
  std::filesystem::copy(other.work(), work(), std::filesystem::copy_options::recursive);
}

int Workplace::Start(const Words& words, const std::string& fault, const std::string& streams) const {
  std::filesystem::remove(root_ / ("report" + streams));
  const int process = fork();
  if (process == 0) {
    BecomeVanzet(root_.path(), words, fault, streams);
    _exit(127);
  }
  return process;
}

Outcome Workplace::Finish(int process, const std::string& streams) const {
  int status = 0;
  waitpid(process, &status, 0);
  // Outputs are compared with those of other folders.
  const std::regex root(root_.path().string());
  return {WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status),
          std::regex_replace(test::ReadBytes(root_ / ("out" + streams)), root, "ROOT"),
          test::ReadBytes(root_ / ("err" + streams)), test::ReadBytes(root_ / ("report" + streams))};
}

Outcome Workplace::Vanzet(const Words& words, const std::string& fault) const {
  return Finish(Start(words, fault));
}

}  // namespace vanzet::faults
