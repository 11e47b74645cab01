#include "arbora/base/NkDebugError.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

struct Message {
  int severity;
  std::string location;
  std::string text;
};

// Collects messages in place of the handler that was there.
class Collector {
public:
  Collector() : m_handler(NkDebugError::setHandler(collect, this, &m_data)) {}
  ~Collector() { NkDebugError::setHandler(m_handler, m_data); }
  Collector(const Collector&) = delete;
  Collector& operator=(const Collector&) = delete;

  std::vector<Message> messages;

private:
  void* m_data = nullptr;
  NkDebugError::Handler* m_handler;

  static void collect(int severity, const char* location, const char* text, void* data) {
    static_cast<Collector*>(data)->messages.push_back({severity, location, text});
  }
};

TEST(NkDebugError, HandlerGetsEachMessageAsGiven) {
  Collector collector;
  NkDebugError::post("NkGroup::addChild", "Index %d is out of range %d - %d", 7, 0, 3);
  NkDebugError::postWarning("w", "%s", "50%");
  NkDebugError::postInfo(nullptr, "line\n");
  ASSERT_EQ(collector.messages.size(), 3U);
  EXPECT_EQ(collector.messages[0].severity, NkDebugError::ERROR_);
  EXPECT_EQ(collector.messages[0].location, "NkGroup::addChild");
  EXPECT_EQ(collector.messages[0].text, "Index 7 is out of range 0 - 3");
  EXPECT_EQ(collector.messages[1].severity, NkDebugError::WARNING);
  EXPECT_EQ(collector.messages[1].text, "50%");
  EXPECT_EQ(collector.messages[2].severity, NkDebugError::INFO);
  EXPECT_EQ(collector.messages[2].location, "");
  EXPECT_EQ(collector.messages[2].text, "line\n");
}

TEST(NkDebugError, LongMessagesStayWhole) {
  Collector collector;
  const std::string text(100000, 'x');
  NkDebugError::post("here", "%s", text.c_str());
  ASSERT_EQ(collector.messages.size(), 1U);
  EXPECT_EQ(collector.messages[0].text, text);
}

TEST(NkDebugError, SetHandlerGivesThePreviousOne) {
  Collector outer;
  {
    Collector inner;
    void* data = nullptr;
    NkDebugError::Handler* handler = NkDebugError::setHandler(nullptr, nullptr, &data);
    EXPECT_EQ(data, &inner);
    NkDebugError::setHandler(handler, data);
    NkDebugError::post("in", "inner");
    EXPECT_EQ(inner.messages.size(), 1U);
  }
  NkDebugError::post("out", "outer");
  ASSERT_EQ(outer.messages.size(), 1U);
  EXPECT_EQ(outer.messages[0].text, "outer");
}

TEST(NkDebugError, HandlerMayPostItself) {
  int depth = 0;
  void* data = nullptr;
  NkDebugError::Handler* const before = NkDebugError::setHandler(
      [](int, const char*, const char*, void* counter) {
        if (++*static_cast<int*>(counter) < 3) {
          NkDebugError::post("again", "again");
        }
      },
      &depth, &data);
  NkDebugError::post("first", "first");
  NkDebugError::setHandler(before, data);
  EXPECT_EQ(depth, 3);
}

TEST(NkDebugError, DefaultPrintsOneLine) {
  void* data = nullptr;
  NkDebugError::Handler* const before = NkDebugError::setHandler(nullptr, nullptr, &data);
  ::testing::internal::CaptureStderr();
  NkDebugError::post("NkDB::readAll", "no file");
  NkDebugError::postWarning("a", "b\n");
  NkDebugError::postInfo("c", "d");
  NkDebugError::post("", "file.arb:3:4: error: what");
  const std::string printed = ::testing::internal::GetCapturedStderr();
  NkDebugError::setHandler(before, data);
  std::string lines;
  for (const char c : printed) {
    if (c != '\r') {
      lines += c;
    }
  }
  EXPECT_EQ(lines,
            "Error in NkDB::readAll(): no file\nWarning in a(): b\nInfo from c(): d\nfile.arb:3:4: error: what\n");
}

} // namespace
