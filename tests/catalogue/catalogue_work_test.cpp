#include "catalogue/catalogue_work.h"

#include <unistd.h>

#include <memory>

#include "catalogue_fixture.h"
#include "support/child.h"
#include "support/failing_call.h"
#include "support/file_size_limit.h"
#include "support/golden.h"
#include "support/reported_faults.h"

namespace vanzet::test {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int32_t kYes = 6;
constexpr std::int32_t kNo = 7;

class CatalogueWork : public CatalogueTest {
 protected:
  CatalogueWork() {
    WriteBytes(world.file, "Chuck\n1 1\n");
    static_cast<void>(dialogs.ReadFile());
    host.TakeCalls();
  }

  void Save(const std::string& name, const std::string& valueLine) {
    SaveDeviceToCatalogue(dialogs, name, valueLine, &window, [this] { ++refills; });
  }
  void Delete(const std::string& name) {
    DeleteDeviceFromCatalogue(dialogs, name, [this] { ++refills; });
  }
  /// Has something happen when a box is shown, before it is answered.
  void WhileTheUserThinks(const std::function<void()>& event) {
    host.onCall = [event](const std::string& name) {
      if (name == "OrvoGetWnd") event();
    };
  }
  std::string SearchBox(const std::string& path) {
    return "|Could not find clampdevice file " + path + "! Do you want to search for it?|36";
  }
  std::string SearchBox() { return SearchBox(world.file.string()); }
  std::string InFile() { return ReadBytes(world.file); }

  CDevice dialogs;
  ReportedFaults reported;
  int refills = 0;
  int window = 0;
};

class Saving : public CatalogueWork {};

TEST_F(Saving, AppendsANewDevice) {
  Save("Collet", "2 3 4");
  EXPECT_EQ(InFile(), "Chuck\n1 1\nCollet\n2 3 4\n");
  EXPECT_THAT(Names(dialogs, 2), ElementsAre("Collet"));
  EXPECT_EQ(refills, 1);
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(Saving, GoesByTheseCalls) {
  host.answers = {kYes};
  Save("Chuck", "1 7");
  EXPECT_GOLDEN(Lines(host.calls), "catalogue/save_overwriting.trace");
}

TEST_F(Saving, AsksBeforeItReplaces) {
  host.answers = {kYes};
  Save("Chuck", "1 7");
  EXPECT_THAT(host.TakeBoxes(), ElementsAre("|Name already exist. Overwrite?|4"));
  EXPECT_EQ(InFile(), "Chuck\n1 7\n");
}

TEST_F(Saving, LeavesTheFileAloneAfterNoAndTheDialogChanged) {
  Save("Chuck", "1 7");
  EXPECT_EQ(InFile(), "Chuck\n1 1\n");
  EXPECT_EQ(dialogs.ValueLineOf("Chuck"), "1 7");
  EXPECT_EQ(refills, 1);
}

TEST_F(Saving, TellsNamesApartThatDifferInCaseAlone) {
  Save("chuck", "1 7");
  EXPECT_EQ(InFile(), "Chuck\n1 1\nchuck\n1 7\n");
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(Saving, KeepsWhatAnotherUserSavedMeanwhile) {
  WriteBytes(world.file, "Theirs\n2 9\n");
  Save("Collet", "2 3");
  EXPECT_EQ(InFile(), "Theirs\n2 9\nCollet\n2 3\n");
  EXPECT_FALSE(dialogs.HasDevice("Theirs")) << "the dialog goes on with what it read";
}

TEST_F(Saving, AsksForANameThatAnotherUserSavedMeanwhile) {
  WriteBytes(world.file, "Collet\n2 9\n");
  Save("Collet", "2 3");
  EXPECT_THAT(host.TakeBoxes(), ElementsAre("|Name already exist. Overwrite?|4"));
  EXPECT_EQ(InFile(), "Collet\n2 9\n");
}

TEST_F(Saving, AsksAgainForANameThatAnotherUserSavesWhileTheQuestionIsOpen) {
  fs::remove(world.file);
  WhileTheUserThinks([&] { WriteBytes(world.file, "Theirs\n2 9\nCollet\n2 8\n"); });
  Save("Collet", "2 3");
  EXPECT_THAT(host.TakeBoxes(), ElementsAre(SearchBox(), "|Name already exist. Overwrite?|4"));
  EXPECT_EQ(InFile(), "Theirs\n2 9\nCollet\n2 8\n") << "the second answer was No";
  EXPECT_THAT(reported.Messages(), IsEmpty()) << "a refusal by the user is not a failure";
}

TEST_F(Saving, KeepsWhatAnotherUserSavesWhileTheQuestionIsOpen) {
  host.answers = {kYes};
  WhileTheUserThinks([&] { WriteBytes(world.file, "Chuck\n1 1\nTheirs\n2 9\n"); });
  Save("Chuck", "1 7");
  EXPECT_EQ(InFile(), "Chuck\n1 7\nTheirs\n2 9\n");
}

TEST_F(Saving, MakesAFileAgainThatIsRemovedWhileTheQuestionIsOpen) {
  WriteBytes(world.file, "Chuck\n1 1\nTheirs\n2 9\n");
  host.answers = {kYes};
  WhileTheUserThinks([&] { fs::remove(world.file); });
  Save("Chuck", "1 7");
  EXPECT_EQ(InFile(), "Chuck\n1 7\nTheirs\n2 9\n");
}

TEST_F(Saving, KeepsTheTypedNameWhenTheRefillEmptiesIt) {
  std::string typed = "Collet";
  SaveDeviceToCatalogue(dialogs, typed, "2 3", nullptr, [&] { typed.clear(); });
  EXPECT_EQ(InFile(), "Chuck\n1 1\nCollet\n2 3\n");
}

TEST_F(Saving, RefillsBeforeAnyQuestion) {
  fs::remove(world.file);
  SaveDeviceToCatalogue(dialogs, "Collet", "2 3", nullptr, [&] {
    EXPECT_TRUE(dialogs.HasDevice("Collet"));
    EXPECT_THAT(host.boxes, IsEmpty());
    ++refills;
  });
  EXPECT_EQ(refills, 1);
  EXPECT_EQ(host.boxes.size(), 1U);
}

TEST_F(Saving, WithoutAFileMakesOneOfTheDeviceAloneAfterNo) {
  fs::remove(world.file);
  Save("Collet", "2 3");
  EXPECT_THAT(host.TakeBoxes(), ElementsAre(SearchBox()));
  EXPECT_EQ(InFile(), "Collet\n2 3\n");
  EXPECT_THAT(files.asked, IsEmpty());
}

TEST_F(Saving, WithoutAFileGoesOnEmptyWhenTheSearchIsCancelled) {
  fs::remove(world.file);
  host.answers = {kYes};
  Save("Collet", "2 3");
  EXPECT_EQ(files.asked.size(), 1U);
  EXPECT_EQ(InFile(), "Collet\n2 3\n");
}

TEST_F(Saving, SearchesUntilAFileCanBeRead) {
  fs::remove(world.file);
  const std::string other = (world.folder / "other.cld").string();
  WriteBytes(other, "Theirs\n2 9\n");
  host.answers = {kYes, kYes};
  files.choices = {"/nowhere/at all.cld", other};
  Save("Collet", "2 3");
  EXPECT_THAT(host.TakeBoxes(), ElementsAre(SearchBox(), SearchBox("/nowhere/at all.cld")));
  EXPECT_EQ(ReadBytes(other), "Theirs\n2 9\nCollet\n2 3\n");
  EXPECT_EQ(files.asked.at(0).suggested, "");
  EXPECT_EQ(files.asked.at(0).owner, &window);
  EXPECT_FALSE(fs::exists(world.file));
  EXPECT_EQ(dialogs.path(), world.file.string()) << "the choice is kept for this time alone";
  EXPECT_THAT(host.TakeCalls("OrvoCommand('file a"), IsEmpty());
}

TEST_F(Saving, SearchesAnotherPlaceWhenTheFileCannotBeWritten) {
  dialogs.SetPath("/nowhere/a.cld");
  const std::string other = (world.folder / "other.cld").string();
  host.answers = {kNo, kYes};
  files.choices = {other};
  Save("Collet", "2 3");
  EXPECT_THAT(host.TakeBoxes(), ElementsAre(SearchBox("/nowhere/a.cld"), SearchBox("/nowhere/a.cld")));
  EXPECT_EQ(files.asked.at(0).suggested, "clampdevice_de");
  EXPECT_EQ(ReadBytes(other), "Collet\n2 3\n");
}

TEST_F(Saving, EndsWhenTheFileCannotBeWrittenAndNobodySearches) {
  dialogs.SetPath("/nowhere/a.cld");
  Save("Collet", "2 3");
  EXPECT_EQ(host.TakeBoxes().size(), 2U) << "for the reading and for the writing";
  host.answers = {kNo, kYes};
  Save("Collet", "2 3");
  EXPECT_EQ(files.asked.size(), 1U) << "cancelled";
  EXPECT_TRUE(dialogs.HasDevice("Collet"));
}

TEST_F(Saving, OfAReadOnlyFileLeavesItAlone) {
  fs::permissions(world.file, fs::perms(0444));
  Save("Collet", "2 3");
  EXPECT_THAT(host.TakeBoxes(), ElementsAre(SearchBox(), SearchBox()));
  EXPECT_EQ(InFile(), "Chuck\n1 1\n");
}

TEST_F(Saving, ToAFullDiskAsksForAnotherPlaceAndKeepsTheOldFile) {
  std::string large;
  for (int i = 0; i < 200; ++i) large += "Chuck " + std::to_string(i) + "\n1 80.0 90.0\n";
  WriteBytes(world.file, large);
  {
    const FileSizeLimit limit(1000);
    Save("Collet", "2 3");
  }
  EXPECT_THAT(host.TakeBoxes(), ElementsAre(SearchBox()));
  EXPECT_THAT(reported.Messages(), ElementsAre(world.file.string() + ": cannot be written: File too large"));
  EXPECT_EQ(InFile(), large);
  EXPECT_FALSE(fs::exists(world.file.string() + ".new-" + std::to_string(getpid())));
}

TEST_F(Saving, ReplacesEveryMarkOfTheTextByThePath) {
  host.translations[1170] = "# fehlt: #?";
  dialogs.SetPath("no#folder/a.cld");
  Save("Collet", "2 3");
  EXPECT_EQ(host.TakeBoxes().at(0), "|no#folder/a.cld fehlt: no#folder/a.cld?|36");
}

TEST_F(Saving, IntoAnOddListAppends) {
  WriteBytes(world.file, "Chuck\n1 1\nlast\n");
  Save("Collet", "2 3");
  EXPECT_EQ(InFile(), "Chuck\n1 1\nlast\nCollet\n2 3\n");
  host.answers = {kYes};
  WriteBytes(world.file, "Chuck\n1 1\nCollet");
  Save("Collet", "2 3");
  EXPECT_EQ(InFile(), "Chuck\n1 1\nCollet\n2 3\n");
}

TEST_F(Saving, ReportsNothingWhenTheDeviceIsSavedInAnotherPlace) {
  dialogs.SetPath("/nowhere/a.cld");
  host.answers = {kNo, kYes};
  files.choices = {(world.folder / "other.cld").string()};
  Save("Collet", "2 3");
  EXPECT_THAT(reported.Messages(), IsEmpty());
}

TEST_F(Saving, ReportsEachPlaceThatFailed) {
  dialogs.SetPath("/nowhere/a.cld");
  host.answers = {kNo, kYes, kNo};
  files.choices = {world.folder.path().string()};
  Save("Collet", "2 3");
  EXPECT_THAT(reported.Messages(), ElementsAre("/nowhere/a.cld: cannot be written: No such file or directory",
                                               world.folder.path().string() + ": is not a regular file"));
}

TEST_F(Saving, WritesTheWholeCatalogueOverAnotherOneThatWasChosen) {
  const std::string other = (world.folder / "other.cld").string();
  WriteBytes(other, "Theirs\n2 9\n");
  WhileTheUserThinks([&] { fs::permissions(world.file, fs::perms(0444)); });
  host.answers = {kYes, kYes};
  files.choices = {other};
  Save("Chuck", "1 7");
  EXPECT_EQ(ReadBytes(other), "Chuck\n1 7\n");
  EXPECT_EQ(InFile(), "Chuck\n1 1\n");
}

TEST_F(Saving, KeepsTheCatalogueOverTwoPlacesThatFail) {
  const std::string text = (world.folder / "letter.txt").string();
  const std::string other = (world.folder / "other.cld").string();
  WriteBytes(text, "Dear Sir\n");
  WhileTheUserThinks([&] { fs::permissions(world.file, fs::perms(0444)); });
  host.answers = {kYes, kYes, kYes};
  files.choices = {text, other};
  Save("Chuck", "1 7");
  EXPECT_EQ(ReadBytes(text), "Dear Sir\n");
  EXPECT_EQ(ReadBytes(other), "Chuck\n1 7\n");
}

TEST_F(Saving, IntoATextThatIsNotACatalogueLeavesIt) {
  const std::string shell = "# settings\nexport PATH=~/bin:$PATH\numask 022\nset -o vi\n";
  for (const std::string& text : {shell, std::string("one line\n"), std::string("a\n5 0 * * * true\n")}) {
    WriteBytes(world.file, text);
    Save("curl example | sh #", "2 3");
    EXPECT_EQ(InFile(), text);
  }
  EXPECT_THAT(host.TakeBoxes(), ElementsAre(SearchBox(), SearchBox(), SearchBox()));
  const std::string why = ": expected the values of a device; a file that is not a catalogue is not changed";
  EXPECT_THAT(reported.Messages(),
              ElementsAre(world.file.string() + ":2" + why, world.file.string() + ":1" + why,
                          world.file.string() + ":2" + why));
}

TEST_F(Saving, DoesNotWriteATextThatIsNotACatalogueToAnotherPlace) {
  const std::string other = (world.folder / "other.cld").string();
  WriteBytes(world.file, "secret\n");
  host.answers = {kYes};
  files.choices = {other};
  Save("Collet", "2 3");
  EXPECT_EQ(ReadBytes(other), "Collet\n2 3\n");
}

TEST_F(Saving, IntoACatalogueWithABrokenLineKeepsThatLine) {
  WriteBytes(world.file, "Chuck\n1 1\nJaw\n9 1\nold\nunknown\n");
  Save("Collet", "2 3");
  EXPECT_EQ(InFile(), "Chuck\n1 1\nJaw\n9 1\nold\nunknown\nCollet\n2 3\n");
}

TEST_F(Saving, IntoAFileOfEmptyLinesAppends) {
  WriteBytes(world.file, "\n\n");
  Save("Collet", "2 3");
  EXPECT_EQ(InFile(), "\n\nCollet\n2 3\n");
}

TEST_F(Saving, ByFourProcessesAtOnceLosesNoDevice) {
  constexpr int kEach = 25;
  std::vector<std::unique_ptr<Child>> savers;
  for (const char* const who : {"a", "b", "c", "d"}) {
    savers.push_back(std::make_unique<Child>([&, who](Child::Line& line) {
      line.Await();
      for (int i = 0; i < kEach; ++i) Save(who + std::to_string(i), "2 3");
      return reported.faults().empty();
    }));
  }
  for (const auto& saver : savers) saver->line().Tell();
  for (const auto& saver : savers) EXPECT_TRUE(saver->End());
  CDevice left;
  ASSERT_TRUE(left.ReadFile());
  EXPECT_EQ(Names(left, 2).size(), 4U * kEach);
}

class Deleting : public CatalogueWork {};

TEST_F(Deleting, AsksAndRemovesFromDialogAndFile) {
  WriteBytes(world.file, "Theirs\n2 9\nChuck\n1 5\n");
  host.answers = {kYes};
  Delete("Chuck");
  EXPECT_THAT(host.TakeBoxes(), ElementsAre("|Delete?|4"));
  EXPECT_EQ(InFile(), "Theirs\n2 9\n");
  EXPECT_FALSE(dialogs.HasDevice("Chuck"));
  EXPECT_EQ(refills, 1);
}

TEST_F(Deleting, EndsAfterNo) {
  Delete("Chuck");
  EXPECT_EQ(InFile(), "Chuck\n1 1\n");
  EXPECT_TRUE(dialogs.HasDevice("Chuck"));
  EXPECT_EQ(refills, 0);
}

TEST_F(Deleting, OfAnUnreadableFileIsForgottenByTheDialogAlone) {
  fs::remove(world.file);
  host.answers = {kYes};
  Delete("Chuck");
  EXPECT_THAT(host.TakeBoxes(), ElementsAre("|Delete?|4"));
  EXPECT_FALSE(dialogs.HasDevice("Chuck"));
  EXPECT_FALSE(fs::exists(world.file));
}

TEST_F(Deleting, ReportsAFileThatCannotBeRead) {
  fs::remove(world.file);
  host.answers = {kYes};
  Delete("Chuck");
  EXPECT_THAT(reported.Messages(),
              ElementsAre(world.file.string() + ": cannot be read: No such file or directory"));
}

TEST_F(Deleting, ReportsAFileThatCannotBeWritten) {
  const std::string large =
      InFile() + "Jaw" + std::string(900, 'w') + "\n9 1\nJaw" + std::string(900, 'v') + "\n9 1\n";
  WriteBytes(world.file, large);
  host.answers = {kYes};
  {
    const FileSizeLimit limit(1000);
    Delete("Chuck");
  }
  EXPECT_THAT(host.TakeBoxes(), ElementsAre("|Delete?|4"));
  EXPECT_THAT(reported.Messages(), ElementsAre(world.file.string() + ": cannot be written: File too large"));
  EXPECT_EQ(InFile(), large);
}

TEST_F(Deleting, FromATextThatIsNotACatalogueLeavesIt) {
  WriteBytes(world.file, "Chuck\nis a word\n");
  host.answers = {kYes};
  Delete("Chuck");
  EXPECT_EQ(InFile(), "Chuck\nis a word\n");
  EXPECT_EQ(reported.faults().size(), 1U);
}

TEST_F(Deleting, WritesTheFileAlsoWhenItDoesNotKnowTheName) {
  WriteBytes(world.file, "Theirs\r\n2 9");
  host.answers = {kYes};
  Delete("Chuck");
  EXPECT_EQ(InFile(), "Theirs\n2 9\n");
}

TEST_F(Deleting, KeepsTheNameWhenTheRefillEmptiesIt) {
  std::string typed = "Chuck";
  host.answers = {kYes};
  DeleteDeviceFromCatalogue(dialogs, typed, [&] { typed.clear(); });
  EXPECT_EQ(InFile(), "");
}

class Starting : public CatalogueWork {};

TEST_F(Starting, ReadsTheFile) {
  CDevice device;
  ReadCatalogueAtStart(device, nullptr);
  EXPECT_THAT(Names(device, 1), ElementsAre("Chuck"));
  EXPECT_THAT(host.boxes, IsEmpty());
  EXPECT_THAT(host.TakeCalls("OrvoCommand('file a"), IsEmpty());
}

TEST_F(Starting, MakesAFileThatWasChosenTheProjects) {
  const std::string other = (world.folder / "other.cld").string();
  WriteBytes(other, "Theirs\n2 9\n");
  CDevice device;
  device.SetPath("/nowhere/a.cld");
  host.answers = {kYes, kYes};
  files.choices = {"/nowhere/still.cld", other};
  ReadCatalogueAtStart(device, &window);
  EXPECT_THAT(host.TakeBoxes(), ElementsAre(SearchBox("/nowhere/a.cld"), SearchBox("/nowhere/still.cld")));
  EXPECT_THAT(host.TakeCalls("OrvoCommand('file a"),
              ElementsAre("OrvoCommand('file a '' $_project 'CLAMP_DB_PATH' '/nowhere/still.cld'')",
                          "OrvoCommand('file a '' $_project 'CLAMP_DB_PATH' '" + other + "'')"));
  EXPECT_THAT(Names(device, 2), ElementsAre("Theirs"));
  EXPECT_EQ(files.asked.at(0).owner, &window);
}

TEST_F(Starting, GoesOnWithoutDevicesAfterNoOrCancel) {
  CDevice device;
  device.SetPath("/nowhere/a.cld");
  ReadCatalogueAtStart(device, nullptr);
  EXPECT_THAT(files.asked, IsEmpty());
  EXPECT_THAT(reported.Messages(), IsEmpty()) << "a project may have no catalogue";
  host.answers = {kYes};
  ReadCatalogueAtStart(device, nullptr);
  EXPECT_EQ(files.asked.size(), 1U);
  EXPECT_THAT(Names(device, 1), IsEmpty());
  EXPECT_THAT(host.TakeCalls("OrvoCommand('file a"), IsEmpty());
}

TEST_F(Starting, ReportsAFileThatIsThereAndCannotBeRead) {
  CDevice device;
  device.SetPath("/dev/zero");
  ReadCatalogueAtStart(device, nullptr);
  EXPECT_THAT(host.TakeBoxes(), ElementsAre(SearchBox("/dev/zero")));
  EXPECT_THAT(reported.Messages(), ElementsAre("/dev/zero: is not a regular file"));
}

TEST_F(Starting, ReportsAFileThatCouldNotBeReadForAMoment) {
  CDevice device;
  fs::remove(world.file);
  fs::create_directory(world.file);
  WhileTheUserThinks([&] {
    fs::remove(world.file);
    WriteBytes(world.file, "Chuck\n1 1\n");
  });
  ReadCatalogueAtStart(device, nullptr);
  EXPECT_THAT(Names(device, 1), IsEmpty());
  EXPECT_THAT(reported.Messages(), ElementsAre(world.file.string() + ": is not a regular file"));
}

TEST_F(Starting, ReportsNothingOfAFileThatMayOnlyBeRead) {
  CDevice device;
  fs::permissions(world.file, fs::perms(0444));
  ReadCatalogueAtStart(device, nullptr);
  EXPECT_THAT(host.TakeBoxes(), ElementsAre(SearchBox()));
  EXPECT_THAT(reported.Messages(), IsEmpty());
}

TEST_F(Starting, ReportsNothingWhenAnotherFileIsChosen) {
  CDevice device;
  device.SetPath("/dev/zero");
  host.answers = {kYes};
  files.choices = {world.file.string()};
  ReadCatalogueAtStart(device, nullptr);
  EXPECT_THAT(reported.Messages(), IsEmpty());
}

TEST_F(Starting, HasTextsInTheUsersLanguage) {
  host.translations = {{1170, "# suchen?"}, {723, "Ersetzen?"}, {733, "Weg damit?"}};
  CDevice device;
  device.SetPath("/nowhere/a.cld");
  ReadCatalogueAtStart(device, nullptr);
  Save("Chuck", "1");
  Delete("Chuck");
  EXPECT_THAT(host.TakeBoxes(), ElementsAre("|/nowhere/a.cld suchen?|36", "|Ersetzen?|4", "|Weg damit?|4"));
}

class EveryCall : public testing::TestWithParam<Failure> {};

TEST_P(EveryCall, MayFailAndTheFileIsWhole) {
  const std::string before = "Chuck\n1 1\n";
  int failures = 0;
  WithEveryCallFailing(
      GetParam(),
      [&] {
        auto world = std::make_unique<CatalogueWorld>();
        WriteBytes(world->file, before);
        world->host.answers = {kYes, kYes};
        return world;
      },
      [](CatalogueWorld& world) {
        CDevice dialogs;
        ReadCatalogueAtStart(dialogs, nullptr);
        SaveDeviceToCatalogue(dialogs, "Chuck", "1 7", nullptr, [] {});
        DeleteDeviceFromCatalogue(dialogs, "missing", [] {});
        dialogs.SelectFile(false, nullptr);
        static_cast<void>(world);
      },
      [&](CatalogueWorld& world, const std::string& failed) {
        ++failures;
        const std::string left = ReadBytes(world.file);
        EXPECT_TRUE(left == before || left == "Chuck\n1 7\n") << failed << " left " << left;
      });
  EXPECT_GT(failures, 8);
}

INSTANTIATE_TEST_SUITE_P(Of, EveryCall, testing::Values(Failure::kRefused, Failure::kMissing),
                         [](const auto& tested) {
                           return tested.param == Failure::kRefused ? "AHostThatRefuses" : "AHostThatLacksIt";
                         });

}  // namespace
}  // namespace vanzet::test
