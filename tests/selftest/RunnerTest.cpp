#include <gtest/gtest.h>

#include "arbora/base/NkDebugError.h"
#include "tests/support/TestSupport.h"

// The runner's own rules. The tests of RunnerAccepts pass; each test of RunnerRejects must be failed by the runner,
// which the build's test list turns around.

namespace {

int s_liveThings = 0;
[[maybe_unused]] const bool s_registered = registerLeakCounter("things", [] { return s_liveThings; });

void complain() { NkDebugError::post("Thing::act", "value %d is odd", 3); }

TEST(RunnerAccepts, AnnouncedMessage) {
  expectMessage("value 3 is odd");
  complain();
}

TEST(RunnerAccepts, AllowedMessages) {
  allowMessages("Thing::act()");
  complain();
  complain();
  ASSERT_EQ(postedMessages().size(), 2u);
  EXPECT_EQ(postedMessages()[0], "Thing::act(): value 3 is odd");
}

TEST(RunnerAccepts, ScopedMessage) {
  const ExpectMessages expected({"is odd"});
  complain();
}

TEST(RunnerAccepts, ThingsThatAreGoneAtTheEnd) {
  ++s_liveThings;
  EXPECT_EQ(s_liveThings, 1);
  --s_liveThings;
}

TEST(RunnerRejects, UnannouncedMessage) { complain(); }

TEST(RunnerRejects, SecondMessageOfOneAnnouncement) {
  expectMessage("is odd");
  complain();
  complain();
}

TEST(RunnerRejects, MessageThatNeverComes) { expectMessage("is odd"); }

TEST(RunnerRejects, MessageAfterItsScope) {
  { const ExpectMessages expected({"is odd"}); }
  complain();
}

TEST(RunnerRejects, Leak) { ++s_liveThings; }

} // namespace
