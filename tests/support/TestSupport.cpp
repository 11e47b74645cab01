#include "tests/support/TestSupport.h"

#include <algorithm>
#include <filesystem>
#include <mutex>
#include <utility>

#include <gtest/gtest.h>

#include "arbora/base/NkDebugError.h"

namespace {

struct LeakCounter {
  const char* name;
  int (*count)();
  int before;
};

std::vector<LeakCounter>& leakCounters() {
  static std::vector<LeakCounter> counters;
  return counters;
}

/// The messages and announcements of the running test. Messages may come from any thread.
struct Ledger {
  std::mutex mutex;
  std::vector<std::string> posted;    ///< in order
  std::vector<std::string> unclaimed; ///< posted and neither announced nor allowed
  std::vector<std::string> expected;  ///< announced and not yet posted
  std::vector<std::string> allowed;
};

Ledger& ledger() {
  static Ledger instance;
  return instance;
}

bool contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

void record(int /*severity*/, const char* location, const char* text, void* /*data*/) {
  std::string message = location != nullptr && *location != '\0' ? std::string(location) + "(): " + text : text;
  Ledger& book = ledger();
  const std::lock_guard lock(book.mutex);
  book.posted.push_back(message);
  const auto announced = std::find_if(book.expected.begin(), book.expected.end(),
                                      [&](const std::string& part) { return contains(message, part); });
  if (announced != book.expected.end()) {
    book.expected.erase(announced);
  } else if (std::none_of(book.allowed.begin(), book.allowed.end(),
                          [&](const std::string& part) { return contains(message, part); })) {
    book.unclaimed.push_back(std::move(message));
  }
}

class Watcher : public testing::EmptyTestEventListener {
  // Messages from before a test (a suite's set-up) stay in the ledger and count against the test that follows.
  void OnTestStart(const testing::TestInfo& /*info*/) override {
    for (LeakCounter& counter : leakCounters()) counter.before = counter.count();
  }

  void OnTestEnd(const testing::TestInfo& /*info*/) override {
    for (const LeakCounter& counter : leakCounters()) {
      EXPECT_EQ(counter.before, counter.count()) << "live " << counter.name << " before and after the test differ";
    }
    Ledger& book = ledger();
    const std::lock_guard lock(book.mutex);
    for (const std::string& message : book.unclaimed) ADD_FAILURE() << "message that was not announced: " << message;
    for (const std::string& part : book.expected) ADD_FAILURE() << "announced message that never came: " << part;
    book.posted.clear();
    book.unclaimed.clear();
    book.expected.clear();
    book.allowed.clear();
  }
};

} // namespace

void expectMessage(std::string part) {
  Ledger& book = ledger();
  const std::lock_guard lock(book.mutex);
  book.expected.push_back(std::move(part));
}

void allowMessages(std::string part) {
  Ledger& book = ledger();
  const std::lock_guard lock(book.mutex);
  book.allowed.push_back(std::move(part));
}

std::vector<std::string> postedMessages() {
  Ledger& book = ledger();
  const std::lock_guard lock(book.mutex);
  return book.posted;
}

ExpectMessages::ExpectMessages(std::vector<std::string> parts) : m_parts(std::move(parts)) {
  for (const std::string& part : m_parts) expectMessage(part);
}

ExpectMessages::~ExpectMessages() {
  Ledger& book = ledger();
  const std::lock_guard lock(book.mutex);
  for (const std::string& part : m_parts) {
    const auto waiting = std::find(book.expected.begin(), book.expected.end(), part);
    if (waiting == book.expected.end()) continue;
    ADD_FAILURE() << "announced message that did not come within its scope: " << part;
    book.expected.erase(waiting);
  }
}

bool registerLeakCounter(const char* name, int (*count)()) {
  // What a suite's set-up made is there already.
  leakCounters().push_back({name, count, count()});
  return true;
}

std::string sourceDir() { return PANELIX_SOURCE_DIR; }

std::string outputDir() {
  std::filesystem::create_directories(PANELIX_TEST_OUTPUT_DIR);
  return PANELIX_TEST_OUTPUT_DIR;
}

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  NkDebugError::setHandler(record, nullptr);
  testing::UnitTest::GetInstance()->listeners().Append(new Watcher);
  int result = RUN_ALL_TESTS();
  for (const std::string& message : ledger().unclaimed) {
    fprintf(stderr, "message outside of the tests: %s\n", message.c_str());
    result = 1;
  }
  return result;
}
