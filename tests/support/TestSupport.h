#pragma once

#include <string>
#include <vector>

/// What the tests of every folder share. The runner watches each test from its start to the end of its fixture's
/// destruction: a message that goes through NkDebugError and was not announced fails the test, so does an announced
/// message that never came, and so does a leak counter that stands higher or lower than before.

/// Announces that the running test will cause one message whose "location(): text" contains `part`. Announce the same
/// part twice to expect two such messages.
void expectMessage(std::string part);

/// Lets any number of messages that contain `part` pass, none included.
void allowMessages(std::string part);

/// The messages of the running test so far, in order, each as "location(): text", or just the text where the message
/// has no location.
std::vector<std::string> postedMessages();

/// Announces messages for one scope and checks at its end that they came within it.
class ExpectMessages {
public:
  explicit ExpectMessages(std::vector<std::string> parts);
  ExpectMessages(const ExpectMessages&) = delete;
  ExpectMessages& operator=(const ExpectMessages&) = delete;
  ~ExpectMessages();

private:
  std::vector<std::string> m_parts;
};

/// Adds a count of live things (nodes, sensors, windows, ...) to those that must be equal before and after each test.
/// Returns true, so that a static initializer can call it.
bool registerLeakCounter(const char* name, int (*count)());

/// The folder of the checkout, for tests that read its files.
std::string sourceDir();

/// A folder that exists and that a test may write to; the same for all tests of a program.
std::string outputDir();
