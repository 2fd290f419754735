#include "vdm/postgres/locks.h"

#include <thread>

#include "vdm/server_store.h"

namespace vanzet::vdm {
namespace {

// Connections that break.

TEST_F(ServerStore, ReadsAndWritesOnAfterTheConnectionBroke) {
  Write(1, {{"a"}});
  ServerProxy proxy(text);
  PostgresEngine engine(proxy.Text(), "lathe");
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(ReadBy(engine, 1), Records{{"a"}});
    proxy.CutOnce(Cut::kNow);
  }
  EXPECT_EQ(Get(engine.ListChanges({})).size(), 1u);
  proxy.CutOnce(Cut::kNow);
  EXPECT_EQ(Told(WriteTo(engine, 1, VdmOf({{"b"}}))), "");
  EXPECT_EQ(Get(engine.ListChanges({})).size(), 2u);
}

TEST_F(ServerStore, CommitsOnceWhereverTheConnectionBreaks) {
  Write(1, {{"a"}});
  ServerProxy proxy(text);
  PostgresEngine engine(proxy.Text(), "lathe");
  const std::string occasion = "test";
  std::int64_t generation = 1;
  int steps = 0;
  const LastStep step = [&]() -> Result<void> {
    ++steps;
    return {};
  };
  for (const Cut cut : {Cut::kBeforeCommit, Cut::kAfterCommit, Cut::kBeforeCommit}) {
    proxy.CutOnce(cut);
    Changes changes;
    changes.emplace(Number{1}, VdmOf({{std::to_string(++generation)}}));
    EXPECT_EQ(Told(engine.Apply({changes, nullptr, occasion, step})), "");
    EXPECT_EQ(ReadBy(engine, 1), Records{{std::to_string(generation)}});
    EXPECT_EQ(Count("SELECT last_generation FROM vanzet.project"), generation);
  }
  EXPECT_EQ(steps, 3);
}

TEST_F(ServerStore, DoesNotCommitAgainWhatOthersFollowedMeanwhile) {
  Write(1, {{"a"}});
  ServerProxy proxy(text);
  PostgresEngine engine(proxy.Text(), "lathe");
  const auto locks = engine.Locks();
  const auto project = Get(locks->AcquireProject(milliseconds(1000)));
  proxy.CutOnce(Cut::kNow);
  PostgresEngine other = Engine();
  EXPECT_EQ(Told(WriteTo(other, 2, VdmOf({{"theirs"}}))), "");
  EXPECT_THAT(Told(WriteTo(engine, 1, VdmOf({{"mine"}}))), HasSubstr("has taken over the project meanwhile"));
  EXPECT_EQ(ReadBy(other, 1), Records{{"a"}});
}

TEST_F(ServerStore, DoesNotOverwriteAnOpenVdmThatOthersChangedWhileTheConnectionWasBroken) {
  Write(1, {{"a"}});
  Write(2, {{"b"}});
  ServerProxy proxy(text);
  PostgresEngine engine(proxy.Text(), "lathe"), other = Engine();
  const auto locks = engine.Locks();
  const auto vdm = Get(locks->Acquire(Number{1}));
  proxy.CutOnce(Cut::kNow);
  EXPECT_EQ(Told(WriteTo(other, 2, VdmOf({{"unrelated"}}))), "");
  EXPECT_EQ(Told(WriteTo(engine, 1, VdmOf({{"mine"}}))), "");
  proxy.CutOnce(Cut::kNow);
  EXPECT_EQ(Told(WriteTo(other, 1, VdmOf({{"theirs"}}))), "");
  EXPECT_THAT(Told(WriteTo(engine, 1, VdmOf({{"mine"}}))), HasSubstr("has taken over the project meanwhile"));
  EXPECT_EQ(ReadBy(other, 1), Records{{"theirs"}});
}

TEST_F(ServerStore, TakesItsLocksAgainAfterTheConnectionBroke) {
  Write(1, {{"a"}});
  ServerProxy proxy(text);
  PostgresEngine engine(proxy.Text(), "lathe"), other = Engine();
  const auto locks = engine.Locks(), others = other.Locks();
  const auto project = Get(locks->AcquireProject(milliseconds(1000)));
  const auto vdm = Get(locks->Acquire(Number{1}));
  proxy.CutOnce(Cut::kNow);
  EXPECT_EQ(Told(WriteTo(engine, 1, VdmOf({{"mine"}}))), "");
  EXPECT_EQ(others->Acquire(Number{1}).fault().kind, FaultKind::kBusy);
  EXPECT_EQ(others->AcquireProject(milliseconds(0)).fault().kind, FaultKind::kBusy);
}

// Locks and notifications.

TEST_F(ServerStore, IsLockedByOneAtATime) {
  PostgresEngine one = Engine(), two = Engine(), elsewhere = Engine("mill");
  const auto first = one.Locks(), second = two.Locks(), third = elsewhere.Locks();
  {
    const auto project = Get(first->AcquireProject(milliseconds(0)));
    const auto vdm = Get(first->Acquire(Number{0x7FFFFFFF}));
    EXPECT_EQ(vdm.number(), Number{0x7FFFFFFF});
    EXPECT_EQ(Told(second->Acquire(Number{0x7FFFFFFF})), "VDM 2147483647 is open elsewhere");
    EXPECT_THAT(Told(second->AcquireProject(milliseconds(20))),
                HasSubstr("another process is changing the project 'lathe'"));
    EXPECT_TRUE(Get(second->IsHeldElsewhere(Number{0x7FFFFFFF})));
    EXPECT_FALSE(Get(first->IsHeldElsewhere(Number{0x7FFFFFFF})));
    EXPECT_FALSE(Get(second->IsHeldElsewhere(Number{1})));
    EXPECT_TRUE(third->Acquire(Number{0x7FFFFFFF}));
    EXPECT_TRUE(third->AcquireProject(milliseconds(0)));
  }
  EXPECT_TRUE(second->AcquireProject(milliseconds(0)));
  EXPECT_TRUE(second->Acquire(Number{0x7FFFFFFF}));
}

TEST_F(ServerStore, SaysWhoHoldsALock) {
  PostgresEngine one = Engine(), two(text + " application_name=other", "lathe"), reader = Engine();
  const auto watch = Get(reader.Watch());
  EXPECT_TRUE(Get(reader.Holders()).empty());
  EXPECT_TRUE(Get(watch->Holders()).empty());
  const auto first = one.Locks(), second = two.Locks();
  const auto project = Get(first->AcquireProject(milliseconds(0)));
  const auto vdm = Get(second->Acquire(Number{1000}));
  const auto holders = Get(reader.Holders());
  ASSERT_EQ(holders.size(), 2u);
  EXPECT_EQ(holders[0].vdm, Number{1000});
  EXPECT_EQ(holders[0].who, "other");
  EXPECT_FALSE(holders[1].vdm);
  EXPECT_THAT(holders[1].who, AllOf(HasSubstr("@"), Not(HasSubstr("vanzet "))));
  EXPECT_THAT(holders[0].since, testing::MatchesRegex("20..-..-..T..:..:..Z"));
  EXPECT_EQ(Get(watch->Holders()), holders);
}

TEST_F(ServerStore, NotifiesOfLocksOfItsProjectAlone) {
  PostgresEngine engine = Engine(), other = Engine("mill");
  const auto watch = Get(engine.Watch());
  const auto locks = engine.Locks(), others = other.Locks();
  const auto isNoted = [&] {
    EXPECT_FALSE(Get(watch->Wait(milliseconds(0)))) << "a lock is not a commit";
    return watch->TakeLocksNote();
  };
  const auto comes = [&] {
    for (int i = 0; i < 1000; ++i) {
      if (isNoted()) return true;
      std::this_thread::sleep_for(milliseconds(10));
    }
    return false;
  };
  EXPECT_FALSE(isNoted());
  {
    const auto held = Get(locks->Acquire(Number{1000}));
    EXPECT_TRUE(comes());
    EXPECT_FALSE(isNoted());
  }
  EXPECT_TRUE(comes());
  {
    const auto held = Get(others->Acquire(Number{1000}));
    // The server keeps the order of notifications: that of the own project would be here before the next one.
    const auto own = Get(locks->AcquireProject(milliseconds(10)));
    EXPECT_TRUE(comes());
    EXPECT_FALSE(isNoted());
  }
  EXPECT_TRUE(comes());
}

TEST_F(ServerStore, NotifiesOfCommitsOfItsProjectAlone) {
  PostgresEngine engine = Engine(), other = Engine("mill");
  const auto watch = Get(engine.Watch());
  EXPECT_FALSE(Get(watch->Peek()));
  EXPECT_EQ(Told(WriteTo(other, 1, VdmOf({}))), "");
  EXPECT_EQ(Told(WriteTo(engine, 1, VdmOf({}))), "");
  EXPECT_EQ(Told(WriteTo(engine, 1, VdmOf({{"a"}}))), "");
  std::optional<std::int64_t> seen;
  while (seen != 2) {
    seen = Get(watch->Wait(std::chrono::seconds(30)));
    ASSERT_TRUE(seen);
  }
  EXPECT_FALSE(Get(watch->Peek()));
  EXPECT_GE(watch->Descriptor(), 0);
}

TEST_F(ServerStore, LosesNoUpdateOfManyAtOnce) {
  constexpr int kThreads = 8, kUpdates = 25;
  Write(1, {{"0"}});
  const auto update = [&] {
    VdmStore store = Store();
    for (int i = 0; i < kUpdates; ++i) {
      EXPECT_EQ(Told(store.Hold()), "");
      const Handle handle = Get(store.Open(1));
      const std::string value = Get(store.Find(handle)->content().Read(0))->operator[](0);
      store.Find(handle)->Seek(0);
      EXPECT_TRUE(store.Find(handle)->SingleReplace(std::to_string(std::stoi(value) + 1)));
      store.Close(handle);
      EXPECT_EQ(Told(store.Commit("test")), "");
    }
  };
  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i) threads.emplace_back(update);
  for (std::thread& thread : threads) thread.join();
  PostgresEngine engine = Engine();
  EXPECT_EQ(ReadBy(engine, 1), Records{{std::to_string(kThreads * kUpdates)}});
  EXPECT_EQ(Count("SELECT last_generation FROM vanzet.project"), 1 + kThreads * kUpdates);
}

}  // namespace
}  // namespace vanzet::vdm
