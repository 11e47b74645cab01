#include "Panelix/SizeDatabase.h"

#include <gtest/gtest.h>

#include <random>

using panelix::kUnbounded;
using panelix::SizeDatabase;
using panelix::SizeTriple;

namespace {

SizeTriple onAxis(int axis, int size, int min, int max) {
  SizeTriple triple;
  triple.size[axis] = size;
  triple.min[axis] = min;
  triple.max[axis] = max;
  return triple;
}

/// One pixel to a child, in turns: what sharing means, as plainly as it can be said.
struct ByTurns {
  std::vector<SizeTriple> children;
  std::size_t turn = 0;

  void share(int axis, long long difference) {
    const int step = difference < 0 ? -1 : 1;
    std::size_t idle = 0;
    while (difference != 0 && idle < children.size()) {
      ++idle;
      SizeTriple& child = children[turn];
      const long long next = static_cast<long long>(child.size[axis]) + step;
      if (next >= child.min[axis] && next <= child.max[axis]) {
        child.size[axis] += step;
        difference -= step;
        idle = 0;
      }
      turn = (turn + 1) % children.size();
    }
  }
};

void expectSame(SizeDatabase& sizes, const ByTurns& expected, int axis) {
  for (int i = 0; i < sizes.getCount(); ++i)
    EXPECT_EQ(sizes[i].size[axis], expected.children[static_cast<std::size_t>(i)].size[axis]) << "child " << i;
  EXPECT_EQ(sizes.getTurn(), static_cast<int>(expected.turn));
}

SizeDatabase databaseOf(const std::vector<SizeTriple>& children) {
  SizeDatabase sizes;
  sizes.setCount(static_cast<int>(children.size()));
  for (int i = 0; i < sizes.getCount(); ++i) sizes[i] = children[static_cast<std::size_t>(i)];
  return sizes;
}

} // namespace

TEST(SizeDatabase, OddPixelsGoToWhoseTurnItIs) {
  SizeDatabase sizes = databaseOf({onAxis(1, 40, 0, 1000), onAxis(1, 30, 0, 1000), onAxis(1, 30, 0, 1000)});
  sizes.share(1, 10);
  EXPECT_EQ(sizes[0].size[1], 44);
  EXPECT_EQ(sizes[1].size[1], 33);
  EXPECT_EQ(sizes[2].size[1], 33);
  EXPECT_EQ(sizes.getTurn(), 1);
  // The next layout goes on where this one ended.
  sizes.share(1, 1);
  EXPECT_EQ(sizes[1].size[1], 34);
  EXPECT_EQ(sizes.getTurn(), 2);
}

TEST(SizeDatabase, AChildAtItsLimitIsPassedOver) {
  SizeDatabase sizes = databaseOf({onAxis(0, 50, 0, 50), onAxis(0, 10, 0, 1000), onAxis(0, 10, 0, 1000)});
  sizes.share(0, 20);
  EXPECT_EQ(sizes[0].size[0], 50);
  EXPECT_EQ(sizes[1].size[0], 20);
  EXPECT_EQ(sizes[2].size[0], 20);
}

TEST(SizeDatabase, WhatNobodyTakesStays) {
  SizeDatabase sizes = databaseOf({onAxis(1, 25, 25, 30), onAxis(1, 25, 25, 30)});
  sizes.share(1, -100);
  EXPECT_EQ(sizes[0].size[1], 25);
  EXPECT_EQ(sizes.getTurn(), 0);
  sizes.share(1, 100);
  EXPECT_EQ(sizes[0].size[1], 30);
  EXPECT_EQ(sizes[1].size[1], 30);
  SizeDatabase none;
  none.share(1, 100);
  EXPECT_EQ(none.getTurn(), 0);
}

TEST(SizeDatabase, AChildOutsideItsLimitsTakesNothingThatLeavesItThere) {
  SizeDatabase sizes = databaseOf({onAxis(0, 10, 20, 40), onAxis(0, 19, 20, 40)});
  sizes.share(0, 5);
  EXPECT_EQ(sizes[0].size[0], 10);
  EXPECT_EQ(sizes[1].size[0], 24);
}

TEST(SizeDatabase, TakesAnyNumberOfPixelsAtOnce) {
  SizeDatabase sizes = databaseOf({onAxis(0, 0, 0, kUnbounded), onAxis(0, 0, 0, kUnbounded)});
  sizes.share(0, 2'000'000'001);
  EXPECT_EQ(sizes[0].size[0], 1'000'000'001);
  EXPECT_EQ(sizes[1].size[0], 1'000'000'000);
  sizes.share(0, 1LL << 40);
  EXPECT_EQ(sizes[0].size[0], kUnbounded);
  EXPECT_EQ(sizes[1].size[0], kUnbounded);
  sizes.share(0, -(1LL << 40));
  EXPECT_EQ(sizes[0].size[0], 0);
}

TEST(SizeDatabase, AnotherNumberOfChildrenForgetsTheSizesAndKeepsTheTurn) {
  SizeDatabase sizes = databaseOf({onAxis(0, 10, 0, 100), onAxis(0, 10, 0, 100), onAxis(0, 10, 0, 100)});
  sizes.share(0, 1);
  sizes.setCount(3);
  EXPECT_EQ(sizes[1].size[0], 10);
  sizes.setCount(4);
  EXPECT_EQ(sizes[1].size[0], 0);
  EXPECT_EQ(sizes.getTurn(), 1);
  sizes.setCount(1);
  EXPECT_EQ(sizes.getTurn(), 0);
  sizes.clear();
  EXPECT_EQ(sizes.getCount(), 0);
}

TEST(SizeDatabase, GivesWhatTurnByTurnGives) {
  std::mt19937 random(7);
  const auto upTo = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit + 1)); };
  for (int round = 0; round < 3000; ++round) {
    const int axis = upTo(1);
    ByTurns expected;
    for (int i = upTo(8); i >= 0; --i) {
      const int min = upTo(30);
      // Some out of order, some without bound, some outside their limits.
      const int max = upTo(5) == 0 ? kUnbounded : upTo(60);
      expected.children.push_back(onAxis(axis, upTo(60), min, max));
    }
    SizeDatabase sizes = databaseOf(expected.children);
    for (int pass = 0; pass < 4; ++pass) {
      const int difference = upTo(200) - 100;
      sizes.share(axis, difference);
      expected.share(axis, difference);
      expectSame(sizes, expected, axis);
      if (HasFailure()) FAIL() << "round " << round << ", pass " << pass;
    }
  }
}
