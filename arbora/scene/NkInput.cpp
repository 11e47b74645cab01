#include "arbora/scene/NkInput.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cctype>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <numeric>
#include <system_error>
#include <type_traits>
#include <vector>

#include "arbora/base/NbFileHelper.h"
#include "arbora/base/NbName.h"
#include "arbora/scene/ObjectReader.h"

namespace {

enum CharClass : unsigned char {
  BLANK = 1,
  NAME = 2,       // In names.
  NAME_START = 4, // In front of names.
  WORD = 8,       // In words: all but blanks and what the grammar uses.
};

constexpr std::string_view kBlanks = " \t\n\r\v\f";
constexpr std::string_view kPunctuation = "\",[]{}()|=#";

const std::array<unsigned char, 256> kCharClasses = [] {
  std::array<unsigned char, 256> classes{};
  for (std::size_t i = 0; i < classes.size(); ++i) {
    const char c = static_cast<char>(i);
    unsigned char& entry = classes[i];
    if (kBlanks.find(c) != std::string_view::npos) {
      entry = BLANK;
      continue;
    }
    if (kPunctuation.find(c) != std::string_view::npos) continue;
    entry = WORD;
    if (NbName::isIdentChar(c)) entry |= NAME;
    // A minus opens a number, not a name.
    if (NbName::isIdentStartChar(c) && c != '-') entry |= NAME_START;
  }
  return classes;
}();

bool hasClass(char c, unsigned char charClass) {
  return (kCharClasses[static_cast<unsigned char>(c)] & charClass) != 0;
}

// Blanks and comments.
const char* behindBlanks(const char* p, const char* end) {
  for (;;) {
    while (p != end && hasClass(*p, BLANK)) ++p;
    if (p == end || *p != '#') return p;
    while (p != end && *p != '\n' && *p != '\r') ++p;
  }
}

bool isDigit(char c) { return c >= '0' && c <= '9'; }

// Most numbers of scenes are short: few digits, no exponent. Such a number is the quotient of two floats that hold
// their values exactly, so that it comes out right with a single rounding. False if the number is of another kind.
bool readShortNumber(const char*& next, const char* end, float& value) {
  constexpr int kMostDigits = 7; // A float holds any integer of so many.
  constexpr std::array<float, kMostDigits + 1> kPowers{1, 1e1F, 1e2F, 1e3F, 1e4F, 1e5F, 1e6F, 1e7F};
  const char* p = next;
  const bool isNegative = p != end && *p == '-';
  if (isNegative) ++p;
  const char* const start = p;
  int number = 0;
  for (; p != end && isDigit(*p) && p - start < kMostDigits; ++p) number = number * 10 + (*p - '0');
  std::ptrdiff_t digits = p - start;
  std::ptrdiff_t places = 0;
  if (p != end && *p == '.') {
    const char* const point = p++;
    for (; p != end && isDigit(*p) && digits < kMostDigits; ++p, ++digits) number = number * 10 + (*p - '0');
    places = p - point - 1;
  }
  if (digits == 0 || (p != end && hasClass(*p, WORD))) return false;
  const float quotient = static_cast<float>(number) / kPowers[static_cast<std::size_t>(places)];
  value = isNegative ? -quotient : quotient;
  next = p;
  return true;
}

// The list owns its strings; it is made at the first use, so that static objects may use it.
NbStringList& directories() {
  struct Directories : NbStringList {
    Directories() { append(new NbString(".")); }
    ~Directories() { deleteStrings(); }
  };
  static Directories s_directories;
  return s_directories;
}

void setDirectories(const std::vector<NbString>& names) {
  NbStringList& list = directories();
  list.deleteStrings();
  for (const NbString& name : names) list.append(new NbString(name));
}

std::vector<NbString> copyDirectories() {
  NbStringList& list = directories();
  std::vector<NbString> names;
  for (int i = 0; i < list.getLength(); ++i) names.push_back(*list[i]);
  return names;
}

std::string formatted(const char* format, std::va_list arguments) {
  std::va_list copy;
  va_copy(copy, arguments);
  const int length = std::vsnprintf(nullptr, 0, format, copy);
  va_end(copy);
  std::string text(static_cast<std::size_t>(std::max(length, 0)), '\0');
  std::vsnprintf(text.data(), text.size() + 1, format, arguments);
  return text;
}

} // namespace

inline void NkInput::skipBlanks() {
  m_next = behindBlanks(m_next, m_end);
  m_token = m_next;
}

// Messages

namespace arbora {

std::string quoted(std::string_view text) {
  constexpr std::size_t kLongest = 60;
  const bool isLong = text.size() > kLongest;
  std::string result("'");
  for (const char c : text.substr(0, kLongest)) {
    const auto code = static_cast<unsigned char>(c);
    result += code < 0x20 || code == 0x7F ? '?' : c;
  }
  return result + (isLong ? "...'" : "'");
}

namespace {

char lower(char c) { return static_cast<char>(std::tolower(static_cast<unsigned char>(c))); }

// The number of letters to add, drop, replace or swap with the next one to make one word of the other, in any case.
std::size_t editDistance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> beforeLast;
  std::vector<std::size_t> last(b.size() + 1);
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(last.begin(), last.end(), std::size_t{0});
  for (std::size_t i = 1; i <= a.size(); ++i) {
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t changed = lower(a[i - 1]) == lower(b[j - 1]) ? 0 : 1;
      row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + changed});
      if (i > 1 && j > 1 && lower(a[i - 1]) == lower(b[j - 2]) && lower(a[i - 2]) == lower(b[j - 1]))
        row[j] = std::min(row[j], beforeLast[j - 2] + 1);
    }
    beforeLast = last;
    last = row;
  }
  return last[b.size()];
}

constexpr std::size_t kLongestName = 64;

} // namespace

Suggestion::Suggestion(std::string_view name) : m_name(name), m_distance(name.size() / 3 + 1) {}

void Suggestion::consider(std::string_view candidate) {
  if (m_name.size() > kLongestName || candidate.size() > kLongestName) return;
  const std::size_t distance = editDistance(m_name, candidate);
  // At most a third of the letters may be wrong.
  if (distance < m_distance || (distance == m_distance && m_best.empty() && distance <= m_name.size() / 3)) {
    m_distance = distance;
    m_best = candidate;
  }
}

std::string Suggestion::text() const {
  return m_best.empty() ? std::string() : "; did you mean " + quoted(m_best) + "?";
}

} // namespace arbora

std::string NkInput::describePosition(std::size_t position) const {
  const std::string_view before(m_data, position);
  if (m_isBinary) return "byte " + std::to_string(position);
  int line = 1;
  int column = 1;
  for (std::size_t i = 0; i < before.size(); ++i) {
    const char c = before[i];
    if (c == '\n' || (c == '\r' && m_data + i + 1 < m_end && before.data()[i + 1] != '\n')) {
      ++line;
      column = 1;
    } else if ((static_cast<unsigned char>(c) & 0xC0U) != 0x80U) {
      ++column; // The further bytes of a character don't count.
    }
  }
  return std::to_string(line) + ":" + std::to_string(column);
}

void NkInput::post(std::size_t position, const char* format, std::va_list arguments) {
  if (m_gaveUp) return;
  const std::string text = formatted(format, arguments);
  const std::string where = describePosition(position);
  const std::string name = m_fileName.toUtf8();
  const std::string message =
      m_isBinary ? name + ": error: at " + where + ": " + text : name + ":" + where + ": error: " + text;
  NkDebugError::post("", "%s", message.c_str());
  if (++m_errors >= kMaxErrors) m_gaveUp = true;
}

void NkInput::error(const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  post(getTokenPosition(), format, arguments);
  va_end(arguments);
}

void NkInput::errorAt(std::size_t position, const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  post(position, format, arguments);
  va_end(arguments);
}

void NkInput::fatal(const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  post(getTokenPosition(), format, arguments);
  va_end(arguments);
  m_gaveUp = true;
}

std::string NkInput::describeNext() {
  const int c = peek();
  if (c < 0) return "the end";
  if (c == '"') return "a string";
  const std::string_view word = peekWord();
  return arbora::quoted(word.empty() ? std::string_view(m_next, 1) : word);
}

bool NkInput::wrongValue(const char* expected) {
  const std::string found = describeNext();
  error("%s expected, found %s", expected, found.c_str());
  return false;
}

// Files

NkInput::NkInput() { setBuffer("", 0); }

NkInput::~NkInput() = default;

const NbStringList& NkInput::getDirectories() { return directories(); }

void NkInput::clearDirectories() { setDirectories({}); }

void NkInput::addDirectoryFirst(const NbString& directory) {
  std::vector<NbString> names = copyDirectories();
  names.insert(names.begin(), directory);
  setDirectories(names);
}

void NkInput::addDirectoryLast(const NbString& directory) { directories().append(new NbString(directory)); }

void NkInput::removeDirectory(const NbString& directory) {
  std::vector<NbString> names = copyDirectories();
  std::erase(names, directory);
  setDirectories(names);
}

bool NkInput::openFile(const NbString& name, bool okIfNotFound, int /*reserved*/) {
  closeFile();
  std::vector<NbString> candidates;
  if (NbFileHelper::isAbsolutePath(name)) {
    candidates.push_back(name);
  } else {
    for (const NbString& directory : copyDirectories()) {
      const bool isCurrent = directory.isEmpty() || directory == ".";
      candidates.push_back(isCurrent ? name : directory + "/" + name);
    }
  }
  const auto found = std::find_if(candidates.begin(), candidates.end(), [](const NbString& path) {
    return NbFileHelper::isAccessible(path) == 1 && !NbFileHelper::isDirectory(path);
  });
  const auto report = [](const NbString& path, const std::string& text) {
    NkDebugError::post("", "%s", (path.toUtf8() + ": error: " + text).c_str());
    return false;
  };
  if (found == candidates.end()) {
    if (okIfNotFound) return false;
    std::string places;
    for (const NbString& directory : copyDirectories())
      places += (places.empty() ? "" : ", ") + arbora::quoted(directory.isEmpty() ? "." : directory.toUtf8());
    if (NbFileHelper::isAbsolutePath(name)) return report(name, "there is no such file");
    return report(name, places.empty() ? "there is no such file: no directory is set to look in"
                                       : "there is no such file in " + places);
  }
  std::string contents;
  std::string why;
  if (!NbFileHelper::readWholeFile(*found, contents, &why)) return report(*found, "can't be read: " + why);
  m_contents = std::move(contents);
  start(*found, m_contents);
  return true;
}

void NkInput::closeFile() {
  setBuffer("", 0);
  m_contents = std::string();
}

void NkInput::setBuffer(const void* data, std::size_t size) {
  start("<buffer>", std::string_view(data ? static_cast<const char*>(data) : "", data ? size : 0));
}

void NkInput::start(const NbString& name, std::string_view data) {
  m_reader.reset();
  m_fileName = name;
  m_data = data.data();
  m_next = m_data;
  m_end = m_data + data.size();
  m_token = m_data;
  m_version = kNewestVersion;
  m_isBinary = false;
  m_gaveUp = false;
  m_errors = 0;
  readHeader();
}

void NkInput::readHeader() {
  // What is no header is a comment, or text without a header.
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  constexpr std::string_view kStart = "#Arbora V";
  std::string_view rest(m_next, getRest());
  if (rest.starts_with(kByteOrderMark)) {
    rest.remove_prefix(kByteOrderMark.size());
    m_next += kByteOrderMark.size();
  }
  if (!rest.starts_with(kStart)) return;
  const std::string_view line = rest.substr(0, rest.find('\n'));
  float version = 0;
  const char* lineEnd = line.data() + line.size();
  const auto [behind, problem] =
      std::from_chars(line.data() + kStart.size(), lineEnd, version, std::chars_format::fixed);
  if (problem != std::errc()) return;
  std::string_view kind(behind, static_cast<std::size_t>(lineEnd - behind));
  if (kind.ends_with('\r')) kind.remove_suffix(1);
  if (kind != " ascii" && kind != " binary") return;
  m_version = version;
  m_isBinary = kind == " binary";
  m_next = m_isBinary ? std::min(lineEnd + 1, m_end) : lineEnd;
  if (version != 1.0F && !(version >= 2.0F && version < 3.0F)) {
    const std::string number(line.data() + kStart.size(), behind);
    NkDebugError::postWarning("", "%s: warning: version %s of the format isn't known; the newest known one is 2.1",
                              m_fileName.toUtf8().c_str(), number.c_str());
  }
}

bool NkInput::isBinary() { return m_isBinary; }

float NkInput::getVersion() { return m_version; }

arbora::ObjectReader& NkInput::reader() {
  if (!m_reader) m_reader = std::make_unique<arbora::ObjectReader>(this);
  return *m_reader;
}

// Tokens

bool NkInput::atEnd() {
  if (m_gaveUp) return true;
  if (!m_isBinary) skipBlanks();
  return m_next == m_end;
}

int NkInput::peek() {
  skipBlanks();
  return m_next == m_end ? -1 : static_cast<unsigned char>(*m_next);
}

bool NkInput::take(char c) {
  skipBlanks();
  if (m_next == m_end || *m_next != c) return false;
  ++m_next;
  return true;
}

std::string_view NkInput::peekName() {
  skipBlanks();
  const char* p = m_next;
  if (p == m_end || !hasClass(*p, NAME_START)) return {};
  while (++p != m_end && hasClass(*p, NAME)) {
  }
  return {m_next, static_cast<std::size_t>(p - m_next)};
}

std::string_view NkInput::peekWord() {
  skipBlanks();
  const char* p = m_next;
  while (p != m_end && hasClass(*p, WORD)) ++p;
  return {m_next, static_cast<std::size_t>(p - m_next)};
}

bool NkInput::readObjectName(std::string_view& name) {
  if (m_isBinary) return read(name);
  if (peek() == '"') return readQuoted(name);
  const char* p = m_next;
  while (p != m_end && (hasClass(*p, NAME) || *p == '+')) ++p;
  name = {m_next, static_cast<std::size_t>(p - m_next)};
  if (name.empty()) return wrongValue("a name");
  m_next = p;
  return true;
}

void NkInput::skipToken() {
  const int c = peek();
  if (c < 0) return;
  std::string_view token = peekWord();
  if (!token.empty())
    take(token);
  else if (c == '"')
    readQuoted(token);
  else if (c == '{')
    skipBraces();
  else
    ++m_next;
}

void NkInput::skipBraces() {
  const std::size_t start = getPosition();
  int depth = 0;
  do {
    const int c = peek();
    if (c < 0) {
      fatal("the '{' at %s is never closed", describePosition(start).c_str());
      return;
    }
    if (c == '{') {
      ++depth;
      ++m_next;
    } else if (c == '}') {
      --depth;
      ++m_next;
    } else {
      skipToken();
    }
  } while (depth > 0 && !m_gaveUp);
}

// Values

bool NkInput::read(int& value) {
  if (m_gaveUp) return false;
  if (!m_isBinary) return readInteger(value);
  std::uint32_t bits = 0;
  if (!readBits(bits)) return false;
  value = static_cast<int>(bits);
  return true;
}

bool NkInput::readBits(std::uint32_t& bits) {
  const unsigned char* bytes = nullptr;
  if (!readBytes(sizeof(bits), bytes)) return false;
  bits = 0;
  for (std::size_t i = sizeof(bits); i-- > 0;) bits = bits << 8U | bytes[i];
  return true;
}

bool NkInput::readInteger(int& value) {
  constexpr const char* kExpected = "an integer";
  skipBlanks();
  const char* p = m_next;
  const bool isNegative = p != m_end && *p == '-';
  if (p != m_end && (*p == '-' || *p == '+')) ++p;
  const bool isHexadecimal = m_end - p > 2 && *p == '0' && (p[1] == 'x' || p[1] == 'X');
  if (isHexadecimal) p += 2;
  std::uint32_t number = 0;
  const auto [behind, problem] = std::from_chars(p, m_end, number, isHexadecimal ? 16 : 10);
  if (problem == std::errc::invalid_argument || (behind != m_end && hasClass(*behind, WORD)))
    return wrongValue(kExpected);
  // A hexadecimal number gives all 32 bits, so that colours fit in.
  const std::uint32_t largest = isHexadecimal && !isNegative ? UINT32_MAX : isNegative ? 0x80000000U : 0x7FFFFFFFU;
  if (problem != std::errc() || number > largest) {
    error("%s is out of the range of integers", arbora::quoted(peekWord()).c_str());
    return false;
  }
  value = static_cast<int>(isNegative ? 0U - number : number);
  m_next = behind;
  return true;
}

bool NkInput::read(float& value) {
  if (m_gaveUp) return false;
  if (!m_isBinary) return readNumber(value);
  std::uint32_t bits = 0;
  if (!readBits(bits)) return false;
  value = std::bit_cast<float>(bits);
  return true;
}

bool NkInput::read(double& value) { return !m_gaveUp && readNumber(value); }

template <class Number>
bool NkInput::readNumber(Number& value) {
  skipBlanks();
  if constexpr (std::is_same_v<Number, float>) {
    if (readShortNumber(m_next, m_end, value)) return true;
  }
  const char* p = m_next;
  if (m_end - p > 1 && *p == '+' && p[1] != '-') ++p;
  const auto [behind, problem] = std::from_chars(p, m_end, value);
  if (problem == std::errc::invalid_argument || (behind != m_end && hasClass(*behind, WORD)))
    return wrongValue("a number");
  if (problem == std::errc::result_out_of_range) {
    // Too small becomes the nearest value, too large has none.
    double wide = 0;
    const bool isWide = std::from_chars(p, m_end, wide).ec == std::errc();
    const std::string_view word = peekWord();
    const bool isTiny = isWide ? wide > -1 && wide < 1 : word.find("e-") != word.npos || word.find("E-") != word.npos;
    if (!isTiny) {
      error("%s is out of the range of numbers", arbora::quoted(word).c_str());
      return false;
    }
    value = static_cast<Number>(wide);
  }
  m_next = behind;
  return true;
}

bool NkInput::read(bool& value) {
  if (m_isBinary) {
    int number = 0;
    if (!read(number)) return false;
    if (number != 0 && number != 1) {
      fatal("neither 0 nor 1 stands for a truth value: %d", number);
      return false;
    }
    value = number == 1;
    return true;
  }
  const std::string_view word = peekWord();
  if (word == "TRUE" || word == "1")
    value = true;
  else if (word == "FALSE" || word == "0")
    value = false;
  else
    return wrongValue("TRUE or FALSE");
  take(word);
  return true;
}

bool NkInput::read(std::string_view& text) {
  if (m_isBinary) {
    int length = 0;
    const unsigned char* bytes = nullptr;
    if (!readCount(length, 1) || !readBytes(static_cast<std::size_t>(length), bytes)) return false;
    text = {reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(length)};
    return true;
  }
  if (peek() == '"') return readQuoted(text);
  text = peekWord();
  if (text.empty()) return wrongValue("a string");
  take(text);
  return true;
}

// A backslash stands for itself, as texts are kept with their escapes (`\n` stays two characters), but in front of a
// quote: there `\"` is a quote within the text, and two backslashes are one.
bool NkInput::readQuoted(std::string_view& text) {
  const char* piece = m_next + 1;
  m_scratch.clear();
  for (;;) {
    const auto* quote = static_cast<const char*>(
        piece == m_end ? nullptr : std::memchr(piece, '"', static_cast<std::size_t>(m_end - piece)));
    if (!quote) {
      fatal("this string is never closed");
      return false;
    }
    const char* backslashes = quote;
    while (backslashes != piece && backslashes[-1] == '\\') --backslashes;
    const auto count = static_cast<std::size_t>(quote - backslashes);
    if (count == 0 && m_scratch.empty()) {
      text = {piece, static_cast<std::size_t>(quote - piece)};
      m_next = quote + 1;
      return true;
    }
    m_scratch.append(piece, backslashes).append(count / 2, '\\');
    if (count % 2 == 0) {
      text = m_scratch;
      m_next = quote + 1;
      return true;
    }
    m_scratch += '"';
    piece = quote + 1;
  }
}

bool NkInput::readCount(int& count, std::size_t bytesEach) {
  if (!read(count)) return false;
  if (count < 0 || static_cast<std::size_t>(count) > getRest() / bytesEach) {
    fatal("a count of %d is more than the file can hold", count);
    return false;
  }
  return true;
}

bool NkInput::readBytes(std::size_t count, const unsigned char*& bytes) {
  if (m_gaveUp) return false;
  m_token = m_next;
  if (getRest() < count) {
    fatal("the file ends within a value");
    return false;
  }
  bytes = reinterpret_cast<const unsigned char*>(m_next);
  m_next += count;
  return true;
}
