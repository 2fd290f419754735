#include <fstream>

#include "dialog/dialog_fixture.h"
#include "dialog/dlg_main.h"
#include "support/places.h"
#include "view/script/script_view.h"

namespace vanzet::test {
namespace {

/// The host's part of a job: each call that reached it, and what is stored then.
struct Job {
  std::vector<std::string> calls;
  std::vector<std::string> stored;
};

using Server = void (*)(const std::filesystem::path&, const std::filesystem::path&, void*);

void ServeByScript(const std::filesystem::path& script, const std::filesystem::path& transcript,
                   void* parent) {
  view::ScriptView view(script.string(), std::make_shared<view::Transcript>(transcript.string()));
  const platform::PresenterScope boxes(view.Boxes());
  const platform::FilePresenterScope files(view.Files());
  dialog::CDlgMain dialog(parent, view);
  dialog.RunModalLoop(4);
}

Job Play(Server serve) {
  DialogWorld world;
  WriteBytes(world.catalogue, ReadBytes(VANZET_SOURCE_DIR "/share/samples/mill-turn/clampdevice.cld"));
  world.SetMachine({.sub = true, .tail = true, .lun = true, .spurs = 2});
  // The name of the folder is another one each time.
  world.host.environment["TMP"] = "/tmp";
  world.host.TakeCalls();
  serve(VANZET_SOURCE_DIR "/examples/scripts/bar-job.txt", world.folder / "run.jsonl", nullptr);
  EXPECT_THAT(ReadBytes(world.folder / "run.jsonl"), testing::HasSubstr("\"by\":\"ok\""));
  return {world.host.TakeCalls(), world.Stored()};
}

TEST(BarJob, IsTheSameForTheHostWhetherAScriptOrAPersonDoesIt) {
  const Job byScript = Play(ServeByScript);
  const Job byPerson = Play(ServeDialog);
  EXPECT_GT(byScript.calls.size(), 100U);
  EXPECT_EQ(byPerson.calls, byScript.calls);
  EXPECT_EQ(byPerson.stored, byScript.stored);
}

}  // namespace
}  // namespace vanzet::test
