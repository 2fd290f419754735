// What the dialog costs a spur, over a project of the workbench: opening it and pressing OK, which makes the
// solids of chuck, jaw and collet anew, and taking a billet in the spur that was chosen last.

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <memory>

#include "api/host.h"
#include "dialog/dlg_main.h"
#include "store/billet_vdm.h"
#include "store/clamp_records.h"
#include "view/script/script_view.h"

namespace {

using namespace vanzet;
namespace fs = std::filesystem;

class SilentPanel final : public project::MessagePanel {
 private:
  void Show(const Fault& /*fault*/) override {}
};

/// A project of that many spurs, each with a chuck, a jaw and a collet, and a host in force on it.
class Lathe {
 public:
  explicit Lathe(std::int64_t spurs)
      : folder_(fs::temp_directory_path() / ("vanzet-dialog-" + std::to_string(getpid()))) {
    fs::create_directories(folder_);
    std::ofstream(folder_ / "bench.ini") << "[environment]\nSubSpindleAvailable = 1\n";
    std::ofstream(folder_ / "machine.ini") << "[COMMON]\nNR_SPINDEL_SPUR = " << spurs << "\n";
    std::ofstream(folder_ / "clampdevice.cld") << "Chuck\n1 80 90 20\n";
    project_ =
        std::make_unique<project::Project>(*project::Project::Open(folder_, VANZET_SOURCE_DIR "/share"));
    host_ = std::make_unique<api::Host>(*project_, panel_, nullptr);
    scope_ = std::make_unique<api::HostScope>(*host_);
    for (std::int32_t spur = 0; spur < spurs; ++spur) Define(spur);
  }
  ~Lathe() {
    scope_.reset();
    host_.reset();
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
  }
  Lathe(const Lathe&) = delete;
  Lathe& operator=(const Lathe&) = delete;

  void Play(const std::string& script) {
    const fs::path file = folder_ / "script.txt";
    std::ofstream(file) << script;
    view::ScriptView view(file.string(),
                          std::make_shared<view::Transcript>((folder_ / "run.jsonl").string()));
    const platform::PresenterScope boxes(view.Boxes());
    dialog::CDlgMain dialog(nullptr, view);
    dialog.RunModalLoop(4);
  }

 private:
  void Define(std::int32_t spur) {
    BilletVdm(project_->DefinitionOf(spur)).ReOrg([](BilletVdm&, bool) {});
    WriteClampDevice(spur, 0, "Chuck", {.type = 1, .A = 80, .B = 90, .C = 20});
    WriteJaw(spur, 0, "Jaw", {.type = 9, .A = 38, .B = 62, .C = 12, .D = 24});
    WriteClampDevice(spur, 1, "Collet", {.type = 2, .A = 33, .B = 94, .C = 12, .D = 21, .E = 38, .F = 2.5});
  }

  fs::path folder_;
  SilentPanel panel_;
  std::unique_ptr<project::Project> project_;
  std::unique_ptr<api::Host> host_;
  std::unique_ptr<api::HostScope> scope_;
};

/// Items are spurs: the inverse of items_per_second is the time a spur takes.
void OpenAndOk(benchmark::State& state) {
  Lathe lathe(state.range(0));
  for (auto _ : state) lathe.Play("press 1\n");
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(OpenAndOk)->Arg(1)->Arg(10)->Arg(50)->Unit(benchmark::kMillisecond);

void OpenAndClose(benchmark::State& state) {
  Lathe lathe(state.range(0));
  for (auto _ : state) lathe.Play("close\n");
}
BENCHMARK(OpenAndClose)->Arg(1)->Arg(50)->Unit(benchmark::kMillisecond);

void TakeABilletInTheLastSpur(benchmark::State& state) {
  const std::int64_t spurs = state.range(0);
  Lathe lathe(spurs);
  const std::string choose = spurs > 1 ? "choose 2020 " + std::to_string(spurs - 1) + "\n" : "";
  for (auto _ : state) lathe.Play(choose + "select 19\nset 2022 80\nset 2023 100\npress 2016\nclose\n");
}
BENCHMARK(TakeABilletInTheLastSpur)->Arg(1)->Arg(50)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
