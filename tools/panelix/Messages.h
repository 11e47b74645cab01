#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace panelix {

struct Message {
  int severity; ///< As in NkDebugError.
  std::string file;
  /// Where in the file, counted from 1; not known for a message about the file as a whole or about binary data.
  struct Position {
    int line;
    int column;
  };
  std::optional<Position> position;
  std::string text;
};

/// While it lives, all messages of the libraries come here. They are kept, and printed on standard error unless they
/// are wanted in another form.
class Messages {
public:
  explicit Messages(bool print = true);
  ~Messages();
  Messages(const Messages&) = delete;
  Messages& operator=(const Messages&) = delete;

  /// The file that the messages to come are about. A message that names no file itself is printed with its name.
  void setFile(const std::string& file) { m_file = file; }

  const std::vector<Message>& all() const { return m_messages; }
  int count(int severity) const;

  /// Also for messages of the program itself.
  void add(int severity, std::string_view text);

private:
  static void receive(int severity, const char* location, const char* text, void* data);

  bool m_print;
  std::string m_file;
  std::vector<Message> m_messages;
};

/// "error", "warning" or "info".
const char* severityName(int severity);

/// The messages as a JSON array.
std::string toJson(const std::vector<Message>& messages);

} // namespace panelix
