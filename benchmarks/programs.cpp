// Measures whole programs, with all programs that they run, beside empty programs that are linked with the
// same libraries: the CPU time, and the most memory that one of them had. A command and its empty programs
// take turns; the table has the least of each.

#include <fcntl.h>
#include <spawn.h>
#include <stdlib.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using Words = std::vector<std::string>;

struct Cost {
  double milliseconds = 1e9;
  double megabytes = 1e9;

  void TakeTheLess(const Cost& other) {
    milliseconds = std::min(milliseconds, other.milliseconds);
    megabytes = std::min(megabytes, other.megabytes);
  }
};

double Milliseconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
}

pid_t Start(const Words& words) {
  std::vector<char*> arguments;
  for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  pid_t process = 0;
  const int error = posix_spawn(&process, arguments[0], &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) throw std::runtime_error(words.front() + " cannot be run");
  return process;
}

/// The cost of a program and of those that it has waited for.
Cost Run(const Words& words) {
  const pid_t process = Start(words);
  int status = 0;
  rusage usage = {};
  if (wait4(process, &status, 0, &usage) != process || status != 0) {
    throw std::runtime_error(words.front() + " " + (words.size() > 1 ? words[1] : "") + " failed");
  }
  return {Milliseconds(usage.ru_utime) + Milliseconds(usage.ru_stime),
          static_cast<double>(usage.ru_maxrss) / 1024};
}

/// The programs that do nothing, by the libraries that they are linked with.
constexpr const char* kWorkbench = EMPTY_WORKBENCH;
constexpr const char* kSolids = EMPTY_SOLIDS;
constexpr const char* kExchange = EMPTY_EXCHANGE;
constexpr const char* kPicture = EMPTY_PICTURE;

struct Row {
  Words arguments;
  Words empty;  ///< the programs that do nothing, as many as the command runs
};

/// The folder in which all files are made.
class Folder {
 public:
  Folder() {
    std::string name = (fs::temp_directory_path() / "vanzet-benchmark-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder could be made");
    fs::current_path(name);
    path_ = name;
  }
  ~Folder() { fs::remove_all(path_); }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;

 private:
  fs::path path_;
};

void Vanzet(Words arguments) {
  arguments.insert(arguments.begin(), VANZET_PROGRAM);
  Run(arguments);
}

constexpr const char* kBarJob = VANZET_EXAMPLES "/definitions/bar-job.json";
constexpr const char* kFlange = VANZET_EXAMPLES "/definitions/flange-casting.json";

/// A chuck, a jaw and a collet in each of 50 spurs, and a script that presses OK.
void MakeFiftySpurs() {
  const std::string devices =
      R"("main":{"chuck":{"name":"Chuck","letters":{"A":80,"B":90,"C":20}},)"
      R"("jaw":{"name":"Jaw","shape":5,"letters":{"A":38,"B":62,"C":12,"D":24}}},)"
      R"("sub":{"collet":{"name":"Collet","letters":{"A":33,"B":94,"C":12,"D":21,"E":38,"F":2.5}}}})";
  std::ofstream form("fifty.json");
  for (int spur = 0; spur < 50; ++spur) {
    form << (spur == 0 ? R"({"spurs":[)" : ",") << R"({"spur":)" << spur << "," << devices;
  }
  form << "]}\n";
  form.close();
  std::ofstream("ok.txt") << "press 1\n";
  Vanzet({"new", "fifty", "--set", "NR_SPINDEL_SPUR=50"});
  Vanzet({"define", "fifty.json", "fifty"});
}

/// A chuck with jaws, a collet and a bar; a casting and its finished part as solids from files.
void MakeProjects() {
  Vanzet({"new", "bar"});
  Vanzet({"define", kBarJob, "bar"});
  Vanzet({"new", "flange"});
  for (const char* name : {"flange.step", "flange-casting.step"}) {
    fs::copy(fs::path(VANZET_EXAMPLES "/bodies") / name, "flange/bodies");
  }
  Vanzet({"define", kFlange, "flange"});
  MakeFiftySpurs();
}

Words Export(const char* project, const char* format) {
  return {"export", project, "--out", format, "--format", format};
}

Words Picture(const char* project) {
  return {"picture", project, "--view", "equipment", "--out", "equipment.png"};
}

std::vector<Row> Rows() {
  return {
      {{"--version"}, {kWorkbench}},
      {{"completion", "bash"}, {kWorkbench}},
      {{"show", "bar"}, {kWorkbench}},
      {{"define", kBarJob, "bar", "--dry-run"}, {kWorkbench}},
      {{"script", "fifty", "ok.txt", "--transcript", "ok.jsonl"}, {kSolids}},
      {Export("bar", "stl"), {kSolids}},
      {Export("bar", "wrl"), {kSolids}},
      {Export("bar", "step"), {kSolids, kExchange}},
      {Export("bar", "gltf"), {kSolids, kExchange}},
      {Picture("bar"), {kPicture}},
      {Export("flange", "stl"), {kSolids, kExchange}},
      {Export("flange", "step"), {kSolids, kExchange, kExchange}},
      {Picture("flange"), {kPicture, kExchange}},
  };
}

std::string Line(const Words& arguments) {
  std::string line;
  for (const std::string& word : arguments) {
    const bool isPath = word.starts_with('/');
    line += (line.empty() ? "" : " ") + (isPath ? fs::path(word).filename().string() : word);
  }
  return line;
}

void Measure(const Row& row, int runs) {
  Words command = row.arguments;
  command.insert(command.begin(), VANZET_PROGRAM);
  Cost least;
  std::vector<Cost> empty(row.empty.size());
  for (int run = 0; run < runs; ++run) {
    least.TakeTheLess(Run(command));
    for (std::size_t i = 0; i < empty.size(); ++i) empty[i].TakeTheLess(Run({row.empty[i]}));
  }
  double linked = 0;
  for (const Cost& cost : empty) linked += cost.milliseconds;
  std::printf("| `%s` | %.0f ms | %.0f ms | %.0f MB |\n", Line(row.arguments).c_str(), least.milliseconds,
              linked, least.megabytes);
  std::fflush(stdout);
}

}  // namespace

int main(int argc, char** argv) {
  const int runs = argc > 1 ? std::max(1, std::atoi(argv[1])) : 7;
  try {
    const Folder folder;
    MakeProjects();
    std::printf("| Command | CPU time | empty programs | Memory |\n|---|---|---|---|\n");
    for (const Row& row : Rows()) Measure(row, runs);
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return EXIT_FAILURE;
  }
  return EXIT_SUCCESS;
}
