#include "process/own_library.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "base/places.h"
#include "process/last_words.h"

namespace vanzet::process {
namespace {

namespace fs = std::filesystem;

/// A file beside the program of the test, where its libraries are looked for.
struct Neighbour {
  explicit Neighbour(const char* file) : place(ProgramFile().parent_path() / file) {}
  ~Neighbour() { fs::remove(place); }
  fs::path place;
};

TEST(OwnLibraries, AreNotLoadedAgainWhereTheLoaderFailed) {
  const Neighbour library("libvanzet-broken-at-first.so");
  std::ofstream(library.place) << "not a library";
  const auto first = LoadOwnLibrary(library.place.filename().c_str(), "vanzetPng");
  ASSERT_FALSE(first);
  EXPECT_THAT(first.fault().text, testing::HasSubstr("file too short"));
  fs::copy_file(VANZET_LOADABLE_FILE, library.place, fs::copy_options::overwrite_existing);
  const auto second = LoadOwnLibrary(library.place.filename().c_str(), "vanzetPng");
  ASSERT_FALSE(second);
  EXPECT_EQ(second.fault().text, first.fault().text);
}

[[noreturn]] void EndAfterAFailedLoad(const std::string& library) {
  std::atexit([] { std::_Exit(9); });
  const bool isLoaded{LoadOwnLibrary(library.c_str(), "vanzetPng")};
  End(isLoaded ? 0 : 7);
}

TEST(OwnLibraries, ThatAreInitialisedInPartDoNothingAtTheEnd) {
  const Neighbour library("libvanzet-broken.so");
  std::ofstream(library.place) << "not a library";
  EXPECT_EXIT(EndAfterAFailedLoad(library.place.filename()), testing::ExitedWithCode(7), "");
}

TEST(OwnLibraries, ThatWereMissingAreLoadedWhenTheyAreThere) {
  const Neighbour library("libvanzet-missing-at-first.so");
  const auto first = LoadOwnLibrary(library.place.filename().c_str(), "vanzetPng");
  ASSERT_FALSE(first);
  EXPECT_EQ(first.fault().kind, FaultKind::kMissing);
  fs::copy_file(VANZET_LOADABLE_FILE, library.place);
  EXPECT_TRUE(LoadOwnLibrary(library.place.filename().c_str(), "vanzetPng"));
}

}  // namespace
}  // namespace vanzet::process
