#include "vdm/gap_buffer.h"

#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <string>

#include "support/vdm_values.h"

namespace vanzet::vdm {
namespace {

std::vector<std::string> Elements(const GapBuffer<std::string>& buffer) {
  std::vector<std::string> elements;
  for (std::size_t i = 0; i < buffer.Size(); ++i) elements.push_back(buffer[i]);
  return elements;
}

auto Place(std::vector<std::string>& model, std::size_t at) {
  return model.begin() + static_cast<std::ptrdiff_t>(at);
}

/// Does one thing, chosen by the dice, to both.
void Step(test::Dice& dice, GapBuffer<std::string>& buffer, std::vector<std::string>& model) {
  const std::size_t at = dice.UpTo(model.size());
  switch (dice.UpTo(3)) {
    case 0:
      for (std::size_t i = at, end = at + dice.UpTo(9); i < end; ++i) {
        const std::string element = dice.Text(40);
        buffer.Insert(i, element);
        model.insert(Place(model, i), element);
      }
      break;
    case 1: {
      const std::size_t count = dice.UpTo(std::min<std::size_t>(model.size() - at, 12));
      buffer.Remove(at, count);
      model.erase(Place(model, at), Place(model, at + count));
      break;
    }
    default:
      if (at == model.size()) break;
      buffer[at] = model[at] = dice.Text(40);
  }
}

TEST(GapBuffer, HoldsWhatAPlainVectorHolds) {
  for (std::uint32_t seed = 1; seed <= 20; ++seed) {
    test::Dice dice(seed);
    GapBuffer<std::string> buffer;
    std::vector<std::string> model;
    for (int step = 0; step < 1000; ++step) {
      Step(dice, buffer, model);
      ASSERT_EQ(buffer.Size(), model.size()) << "seed " << seed << ", step " << step;
      if (step % 20 == 0) {
        ASSERT_EQ(Elements(buffer), model) << "seed " << seed << ", step " << step;
      }
    }
    EXPECT_EQ(Elements(buffer), model) << "seed " << seed;
  }
}

TEST(GapBuffer, BeginsWithTheElementsItIsGiven) {
  GapBuffer<std::string> buffer({"a", "b", "c"});
  buffer.Insert(1, "x");
  buffer.Remove(0, 1);
  EXPECT_EQ(Elements(buffer), (std::vector<std::string>{"x", "b", "c"}));
}

TEST(GapBuffer, RemovesAllAndIsFilledAgain) {
  GapBuffer<std::string> buffer({"a", "b", "c"});
  buffer.Remove(0, 3);
  EXPECT_EQ(buffer.Size(), 0u);
  buffer.Insert(0, "d");
  EXPECT_EQ(Elements(buffer), std::vector<std::string>{"d"});
}

TEST(GapBuffer, GivesBackWhatRemovedElementsHold) {
  const auto held = std::make_shared<int>(1);
  GapBuffer<std::shared_ptr<int>> buffer;
  for (std::size_t i = 0; i < 3; ++i) buffer.Insert(i, held);
  buffer.Remove(0, 2);
  EXPECT_EQ(held.use_count(), 2);
}

/// An element that cannot be made while memory is out.
struct Costly {
  Costly() {
    if (isFull) throw std::bad_alloc();
  }
  static inline bool isFull = false;
};

TEST(GapBuffer, StaysAsItWasWhereThereIsNoMemoryForMore) {
  const Costly element;
  GapBuffer<Costly> buffer{std::vector<Costly>(8)};
  buffer.Remove(3, 1);
  buffer.Insert(3, element);
  Costly::isFull = true;
  EXPECT_THROW(buffer.Insert(3, element), std::bad_alloc);
  Costly::isFull = false;
  EXPECT_EQ(buffer.Size(), 8U);
  buffer.Insert(3, element);
  EXPECT_EQ(buffer.Size(), 9U);
}

/// An element that counts how often one of its kind was moved from place to place.
struct Counted {
  Counted() = default;
  Counted(const Counted&) = default;
  Counted(Counted&&) noexcept { ++moves; }
  Counted& operator=(const Counted&) = default;
  Counted& operator=(Counted&&) noexcept {
    ++moves;
    return *this;
  }
  static inline std::size_t moves = 0;
};

TEST(GapBuffer, MovesFewElementsWhenManyAreAddedInARow) {
  constexpr std::size_t kBehind = 1000;
  constexpr std::size_t kAdded = 100000;
  GapBuffer<Counted> buffer{std::vector<Counted>(kBehind)};
  Counted::moves = 0;
  for (std::size_t i = 0; i < kAdded; ++i) buffer.Insert(i, Counted());
  EXPECT_LT(Counted::moves, 8 * kAdded);
}

TEST(GapBuffer, MovesFewElementsWhenManyAreRemovedInARow) {
  constexpr std::size_t kElements = 100000;
  GapBuffer<Counted> buffer{std::vector<Counted>(kElements)};
  Counted::moves = 0;
  while (buffer.Size() > kElements / 2) buffer.Remove(kElements / 4, 1);
  EXPECT_LT(Counted::moves, 3 * kElements);
}

}  // namespace
}  // namespace vanzet::vdm
