#include "tools/panelix/Messages.h"

#include <algorithm>
#include <charconv>
#include <cstdio>

#include "arbora/base/NkDebugError.h"
#include "tools/panelix/Json.h"

namespace panelix {
namespace {

bool takePrefix(std::string_view& text, std::string_view prefix) {
  if (!text.starts_with(prefix)) return false;
  text.remove_prefix(prefix.size());
  return true;
}

/// A number from 1 and the colon behind it.
bool takeNumber(std::string_view& text, int& number) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || number < 1) return false;
  std::string_view rest = text.substr(static_cast<std::size_t>(end - text.data()));
  if (!takePrefix(rest, ":")) return false;
  text = rest;
  return true;
}

std::optional<Message::Position> takePosition(std::string_view& text) {
  std::string_view rest = text;
  Message::Position position{};
  if (!takeNumber(rest, position.line) || !takeNumber(rest, position.column)) return std::nullopt;
  text = rest;
  return position;
}

} // namespace

Messages::Messages(bool print) : m_print(print) { NkDebugError::setHandler(receive, this); }

Messages::~Messages() { NkDebugError::setHandler(nullptr, nullptr); }

int Messages::count(int severity) const {
  return static_cast<int>(std::count_if(m_messages.begin(), m_messages.end(),
                                        [=](const Message& message) { return message.severity == severity; }));
}

void Messages::receive(int severity, const char* /*location*/, const char* text, void* data) {
  // Which operation posted it means nothing to a user of the program.
  static_cast<Messages*>(data)->add(severity, text);
}

void Messages::add(int severity, std::string_view text) {
  const std::string kind = std::string(severityName(severity)) + ": ";
  Message message{severity, m_file, std::nullopt, {}};
  std::string_view rest = text;
  if (!m_file.empty() && takePrefix(rest, m_file + ":")) {
    message.position = takePosition(rest);
    takePrefix(rest, " ");
    takePrefix(rest, kind);
  } else {
    rest = text;
  }
  message.text = rest;
  if (m_print) {
    std::string line = m_file.empty() ? "panelix" : m_file;
    if (message.position) {
      line += ":" + std::to_string(message.position->line) + ":" + std::to_string(message.position->column);
    }
    line += ": " + kind + message.text + "\n";
    std::fputs(line.c_str(), stderr);
  }
  m_messages.push_back(std::move(message));
}

const char* severityName(int severity) {
  switch (severity) {
    case NkDebugError::INFO:
      return "info";
    case NkDebugError::WARNING:
      return "warning";
    default:
      return "error";
  }
}

std::string toJson(const std::vector<Message>& messages) {
  std::string result = "[";
  for (const Message& message : messages) {
    const auto [line, column] = message.position.value_or(Message::Position{});
    const auto number = [&](int value) { return message.position ? std::to_string(value) : "null"; };
    result += result.size() > 1 ? ",\n  " : "\n  ";
    result += R"({"file": )" + toJson(message.file) + R"(, "line": )" + number(line) + R"(, "column": )" +
              number(column) + R"(, "severity": ")" + severityName(message.severity) + R"(", "message": )" +
              toJson(message.text) + "}";
  }
  return result + (messages.empty() ? "]\n" : "\n]\n");
}

} // namespace panelix
