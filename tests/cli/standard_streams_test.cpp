#include <sstream>

#include "run_vanzet.h"
#include "support/places.h"

namespace vanzet::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

constexpr const char* kJob = R"({"spurs":[{"spur":0}]})";

/// The name "-" of files that commands read and write.
class StandardStreams : public CommandLineTest {
 protected:
  StandardStreams() {
    MakeUpgradedProject();
    WriteBytes(folder / "close.txt", "close\n");
    WriteBytes(folder / "job.json", kJob);
  }

  bool HasFileNamedDash() const { return std::filesystem::exists(folder / "-"); }

  const std::string kClosed = "{\"event\":\"closed\",\"by\":\"close\"}\n";
};

TEST_F(StandardStreams, TakeAndGiveVdms) {
  ASSERT_EQ(Vanzet("vdm save lathe 1000 job.vdm").status, 0);
  const Outcome saved = Vanzet("vdm save lathe 1000 -");
  EXPECT_EQ(saved.status, 0) << saved.err;
  EXPECT_EQ(saved.out, ReadBytes(folder / "job.vdm"));
  const Outcome checked = Vanzet("vdm check -", "", saved.out);
  EXPECT_EQ(checked.status, 0) << checked.err;
  EXPECT_THAT(checked.out, StartsWith("standard input: "));
  const Outcome loaded = Vanzet("vdm load lathe - 77", "", saved.out);
  EXPECT_EQ(loaded.status, 0) << loaded.err;
  EXPECT_THAT(loaded.out, HasSubstr("from standard input"));
  EXPECT_EQ(Vanzet("vdm save lathe 77 -").out, saved.out);
  EXPECT_FALSE(HasFileNamedDash());
}

TEST_F(StandardStreams, RefuseAVdmByItsLine) {
  for (const std::string command : {"vdm check -", "vdm load lathe - 77"}) {
    const Outcome bad = Vanzet(command, "", "vdm 1\nrecord\nitem\n");
    EXPECT_EQ(bad.status, 1) << command;
    EXPECT_THAT(bad.err, StartsWith("vanzet: standard input:3:")) << command;
  }
  EXPECT_EQ(Vanzet("vdm save lathe 77 -").status, 1) << "nothing was loaded";
}

TEST_F(StandardStreams, TakeTheTranscript) {
  EXPECT_EQ(Vanzet("script lathe close.txt --transcript -").out, kClosed);
  const Outcome defined = Vanzet("define - lathe --transcript -", "", kJob);
  EXPECT_EQ(defined.status, 0) << defined.err;
  EXPECT_THAT(defined.out, StartsWith("{\"event\":"));
  EXPECT_THAT(defined.out, testing::EndsWith("{\"event\":\"closed\",\"by\":\"ok\"}\n"));
  EXPECT_EQ(defined.err, "spur 0: VDM 1000, defined\n");
  EXPECT_FALSE(HasFileNamedDash());
}

TEST_F(StandardStreams, TakeTheTrace) {
  const Outcome played = Vanzet("script lathe - --transcript run.jsonl --trace -", "", "close\n");
  EXPECT_EQ(played.status, 0) << played.err;
  EXPECT_THAT(played.out, StartsWith("{\"call\":"));
  EXPECT_EQ(ReadBytes(folder / "run.jsonl"), kClosed);
  EXPECT_EQ(played.err, "standard input: changed no spur; no messages; closed without OK\n");
  for (const std::string command : {"upgrade lathe --trace -", "define job.json lathe --trace -"}) {
    const Outcome traced = Vanzet(command);
    EXPECT_EQ(traced.status, 0) << command;
    EXPECT_THAT(traced.err, StartsWith("spur 0: VDM 1000, ")) << command << ": its results";
    std::istringstream lines(traced.out);
    for (std::string line; std::getline(lines, line);) EXPECT_THAT(line, StartsWith("{\"call\":"));
  }
  EXPECT_FALSE(HasFileNamedDash());
}

TEST_F(StandardStreams, DoNotTakeBothTranscriptAndTrace) {
  for (const std::string command :
       {"script lathe close.txt --trace -", "script lathe close.txt --transcript - --trace -",
        "define job.json lathe --transcript - --trace -"}) {
    const Outcome refused = Vanzet(command);
    EXPECT_EQ(refused.status, 1) << command;
    EXPECT_EQ(refused.out, "") << command;
    EXPECT_EQ(refused.err, "vanzet: standard output cannot take two outputs; name a file for one of them\n")
        << command;
  }
}

}  // namespace
}  // namespace vanzet::test
