#pragma once

#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "arbora/base/NbString.h"
#include "arbora/base/NbStringList.h"
#include "arbora/base/NkDebugError.h"
#include "arbora/scene/export.h"

namespace arbora {
class ObjectReader;
}

/// Source of scene text or of its binary form: a file or a buffer, held in memory as a whole. What is wrong in it is
/// posted as `file:line:column: error: message`, both counted from 1; in the binary form as `file: error: message`
/// with the byte. After an error the reader goes on where that makes sense, to tell the next one as well.
class ARBORA_API NkInput {
public:
  NkInput();
  virtual ~NkInput();
  NkInput(const NkInput&) = delete;
  NkInput& operator=(const NkInput&) = delete;

  /// Where files with a relative name are looked for, in this order; at first in the current directory alone. An empty
  /// name stands for the current directory. The strings belong to the list.
  static const NbStringList& getDirectories();
  static void clearDirectories();
  static void addDirectoryFirst(const NbString& directory);
  static void addDirectoryLast(const NbString& directory);
  static void removeDirectory(const NbString& directory);

  /// False if there is no such file, which is posted unless `okIfNotFound`, or if it can't be read. The last argument
  /// has no meaning.
  virtual bool openFile(const NbString& name, bool okIfNotFound = false, int reserved = 0);
  virtual void closeFile();
  /// Reads from memory, which must stay as it is until the reading is done.
  virtual void setBuffer(const void* data, std::size_t size);
  /// The path of the open file; "<buffer>" for a buffer.
  const NbString& getCurFileName() const { return m_fileName; }

  virtual bool isBinary();
  /// Version of the format that the header tells; of text without a header the newest one.
  virtual float getVersion();
  /// Reads one integer, in either form.
  virtual bool read(int& value);

  static constexpr float kNewestVersion = 2.1F;
  /// Nodes within nodes; deeper ones aren't read.
  static constexpr int kMaxDepth = 2000;
  /// After so many errors the reader gives up.
  static constexpr int kMaxErrors = 20;

  // For the readers of values. Each gives false after an error, which is posted.

  bool read(float& value);
  /// In text alone.
  bool read(double& value);
  bool read(bool& value);
  /// A string in quotes, or a bare word, in UTF-8; valid until the next string is read.
  bool read(std::string_view& text);

  // Text form. All of them skip blanks and comments first.

  bool atEnd();
  /// The next character; -1 at the end.
  int peek();
  /// Goes behind the character if it comes next.
  bool take(char c);
  /// The name that comes next: letters, digits and so on, no digit in front. Empty if something else comes next.
  std::string_view peekName();
  /// Goes behind a token that was looked at with `peekName`.
  void take(std::string_view token) {
    if (!token.empty()) m_next = token.data() + token.size();
  }
  /// Goes back to the start of a token.
  void putBack(std::string_view token) {
    if (!token.empty()) m_next = m_token = token.data();
  }
  /// A run of characters up to a blank, a quote or one of , [ ] { } ( ) | = #; empty if there is none.
  std::string_view peekWord();
  /// The name of an object: as above, with a `+N` that tells it from others of that name, or any text in quotes.
  /// Valid until the next string is read.
  bool readObjectName(std::string_view& name);
  /// Goes behind the next token, whatever it is; behind a brace, to the brace that closes it.
  void skipToken();

  // Binary form.

  /// A number of things that take at least `bytesEach` each: never more than the rest of the file can hold.
  bool readCount(int& count, std::size_t bytesEach);
  bool readBytes(std::size_t count, const unsigned char*& bytes);

  // Errors.

  /// Where the last token began.
  std::size_t getTokenPosition() const { return static_cast<std::size_t>(m_token - m_data); }
  std::size_t getPosition() const { return static_cast<std::size_t>(m_next - m_data); }
  /// Bytes that are left.
  std::size_t getRest() const { return static_cast<std::size_t>(m_end - m_next); }
  /// Line and column as text, "3:14"; in the binary form the byte.
  std::string describePosition(std::size_t position) const;
  /// What comes next, for messages.
  std::string describeNext();
  /// Posts at the last token.
  void error(const char* format, ...) ARBORA_PRINTF_FORMAT(2, 3);
  void errorAt(std::size_t position, const char* format, ...) ARBORA_PRINTF_FORMAT(3, 4);
  /// Posts at the last token, and nothing more is read.
  void fatal(const char* format, ...) ARBORA_PRINTF_FORMAT(2, 3);
  int getErrorCount() const { return m_errors; }
  bool hasErrors() const { return m_errors > 0; }
  /// Nothing more is read.
  void giveUp() { m_gaveUp = true; }
  bool hasGivenUp() const { return m_gaveUp; }

  arbora::ObjectReader& reader();

private:
  void start(const NbString& name, std::string_view data);
  void readHeader();
  void skipBlanks();
  void skipBraces();
  bool readInteger(int& value);
  template <class Number>
  bool readNumber(Number& value);
  bool readQuoted(std::string_view& text);
  bool readBits(std::uint32_t& bits);
  bool wrongValue(const char* expected);
  void post(std::size_t position, const char* format, std::va_list arguments);

  NbString m_fileName;
  std::string m_contents; // Of a file.
  const char* m_data = nullptr;
  const char* m_next = nullptr;
  const char* m_end = nullptr;
  const char* m_token = nullptr;
  std::string m_scratch; // A string whose escapes are resolved.
  float m_version = kNewestVersion;
  bool m_isBinary = false;
  bool m_gaveUp = false;
  int m_errors = 0;
  std::unique_ptr<arbora::ObjectReader> m_reader;
};

namespace arbora {

/// A text of a file as messages quote it: in quotes, shortened, without control characters.
std::string quoted(std::string_view text);

/// `; did you mean 'NAME'?` for the candidate that is most like the name; empty if none is.
class Suggestion {
public:
  explicit Suggestion(std::string_view name);
  void consider(std::string_view candidate);
  std::string text() const;

private:
  std::string m_name;
  std::string_view m_best;
  std::size_t m_distance;
};

} // namespace arbora
