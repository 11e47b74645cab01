#include "arbora/scene/NkOutput.h"

#include <algorithm>
#include <atomic>
#include <bit>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstring>
#include <system_error>
#include <utility>

#include "arbora/base/NbFileHelper.h"
#include "arbora/base/NbName.h"
#include "arbora/base/NkDebugError.h"
#include "arbora/scene/NkBase.h"

namespace {

constexpr std::size_t kFlushSize = std::size_t{1} << 18U;
constexpr std::size_t kLineLength = 100;

std::atomic<unsigned> s_lastPass{0};
thread_local unsigned t_pass = 0;

bool isPlainName(std::string_view name) {
  constexpr std::string_view kPunctuation = "()|=";
  return !name.empty() && std::all_of(name.begin(), name.end(), [&](char c) {
    return (NbName::isIdentChar(c) && kPunctuation.find(c) == std::string_view::npos) || c == '+';
  });
}

// Whether reading would take a number off the name.
bool endsInNumber(std::string_view name) {
  const std::size_t end = name.find_last_not_of("0123456789");
  return end != std::string_view::npos && end + 1 != name.size() && name[end] == '+';
}

} // namespace

namespace arbora {

WritePass::WritePass(NkOutput* out, NkWriteAction* action)
    : m_out(out), m_outerAction(out->getAction()), m_outer(t_pass) {
  t_pass = ++s_lastPass;
  out->setAction(action);
  out->setStage(NkOutput::COUNT_REFS);
}

WritePass::~WritePass() {
  t_pass = m_outer;
  m_out->setAction(m_outerAction);
  m_out->forgetObjects();
}

unsigned WritePass::current() { return t_pass; }

} // namespace arbora

// Files

NkOutput::NkOutput() = default;

NkOutput::~NkOutput() {
  // A virtual call from here would not reach a derived class.
  NkOutput::closeFile();
}

bool NkOutput::openFile(const NbString& name) {
  closeFile();
  setBuffer();
  errno = 0;
  m_file = NbFileHelper::open(name, "wb");
  if (!m_file) {
    const std::string why = std::generic_category().message(errno);
    NkDebugError::post("", "%s: error: can't be written: %s", name.toUtf8().c_str(), why.c_str());
    return false;
  }
  m_fileName = name;
  return true;
}

bool NkOutput::closeFile() {
  if (!m_file) return true;
  flush();
  if (std::fclose(m_file) != 0 && m_errorNumber == 0) m_errorNumber = errno;
  m_file = nullptr;
  const int errorNumber = m_errorNumber;
  setBuffer();
  if (errorNumber == 0) return true;
  const std::string why = std::generic_category().message(errorNumber);
  NkDebugError::post("", "%s: error: can't be written: %s", m_fileName.toUtf8().c_str(), why.c_str());
  return false;
}

void NkOutput::setBuffer() {
  if (m_file) closeFile();
  m_buffer.clear();
  m_lineStart = 0;
  m_indent = 0;
  m_errorNumber = 0;
  m_isValue = false;
  m_hasHeader = false;
  m_usedNames.clear();
}

bool NkOutput::getBuffer(const void*& data, std::size_t& size) const {
  data = m_buffer.data();
  size = m_buffer.size();
  return !m_file;
}

void NkOutput::flush() {
  if (m_errorNumber == 0 && std::fwrite(m_buffer.data(), 1, m_buffer.size(), m_file) != m_buffer.size())
    m_errorNumber = errno != 0 ? errno : EIO;
  m_buffer.clear();
  m_lineStart = 0;
}

void NkOutput::setBinary(bool flag) {
  if (!m_hasHeader) m_isBinary = flag;
}

bool NkOutput::isBinary() const { return m_isBinary; }

void NkOutput::writeFileHeader() {
  if (m_hasHeader) return;
  m_hasHeader = true;
  m_buffer += m_isBinary ? "#Arbora V2.1 binary\n" : "#Arbora V2.1 ascii\n";
}

// Values

void NkOutput::write(int value) {
  if (m_isBinary) {
    auto bits = static_cast<std::uint32_t>(value);
    char bytes[sizeof(bits)];
    for (char& byte : bytes) {
      byte = static_cast<char>(bits & 0xFFU);
      bits >>= 8U;
    }
    m_buffer.append(bytes, sizeof(bytes));
    return;
  }
  char text[16];
  m_buffer.append(text, std::to_chars(text, text + sizeof(text), value).ptr);
}

void NkOutput::write(float value) {
  if (m_isBinary) {
    write(std::bit_cast<int>(value));
    return;
  }
  // Whole numbers as such: it's quicker, and 100000 reads better than 1e+05.
  constexpr float kWhole = 1e7F;
  const int whole = value > -kWhole && value < kWhole ? static_cast<int>(value) : 0;
  if (static_cast<float>(whole) == value && !(whole == 0 && std::signbit(value))) {
    write(whole);
    return;
  }
  char text[32];
  m_buffer.append(text, std::to_chars(text, text + sizeof(text), value).ptr);
}

void NkOutput::write(double value) {
  char text[32];
  m_buffer.append(text, std::to_chars(text, text + sizeof(text), value).ptr);
}

void NkOutput::write(bool value) {
  if (m_isBinary)
    write(value ? 1 : 0);
  else
    m_buffer += value ? "TRUE" : "FALSE";
}

// Backslashes stand for themselves but in front of a quote; see the reader.
void NkOutput::writeText(std::string_view text) {
  if (m_isBinary) {
    write(static_cast<int>(text.size()));
    m_buffer += text;
    return;
  }
  m_buffer += '"';
  while (!text.empty()) {
    const std::size_t quote = text.find('"');
    const std::string_view piece = text.substr(0, quote);
    const std::size_t behindText = piece.find_last_not_of('\\') + 1;
    m_buffer.append(piece).append(piece.size() - behindText, '\\');
    if (quote == std::string_view::npos) break;
    m_buffer += "\\\"";
    text.remove_prefix(quote + 1);
  }
  m_buffer += '"';
}

void NkOutput::writeBytes(const void* bytes, std::size_t size) {
  m_buffer.append(static_cast<const char*>(bytes), size);
}

void NkOutput::writeRaw(std::string_view text) {
  if (!m_isBinary) m_buffer += text;
}

void NkOutput::writeHexadecimal(std::uint32_t value) {
  char text[16] = "0x";
  m_buffer.append(text, std::to_chars(text + 2, text + sizeof(text), value, 16).ptr);
}

void NkOutput::writeObjectName(std::string_view name) {
  if (m_isBinary || !isPlainName(name))
    writeText(name);
  else
    m_buffer += name;
}

void NkOutput::startLine() {
  if (m_isBinary) {
    if (m_file && m_buffer.size() >= kFlushSize) flush();
    return;
  }
  if (m_isValue) {
    m_isValue = false;
    return;
  }
  if (m_file && m_buffer.size() >= kFlushSize) flush();
  m_buffer += '\n';
  m_lineStart = m_buffer.size();
  m_buffer.append(static_cast<std::size_t>(std::max(m_indent, 0)) * 2, ' ');
}

void NkOutput::openBrace(char brace) {
  if (m_isBinary) return;
  m_buffer += brace;
  ++m_indent;
}

void NkOutput::closeBrace(char brace) {
  if (m_isBinary) return;
  --m_indent;
  const char last = m_buffer.empty() ? '\n' : m_buffer.back();
  if (last == '{' || last == '[')
    m_buffer += ' ';
  else
    startLine();
  m_buffer += brace;
}

void NkOutput::separate() {
  if (m_isBinary) return;
  if (m_buffer.size() - m_lineStart < kLineLength) {
    m_buffer += ' ';
    return;
  }
  startLine();
  m_buffer += "    ";
}

// Objects

const std::string& NkOutput::getFileName(const NkBase* object) {
  std::string& name = m_references[object].name;
  if (name.empty()) name = makeFileName(object->getName().getString());
  return name;
}

std::string NkOutput::makeFileName(const std::string& own) {
  const auto [entry, isNew] = m_usedNames.try_emplace(own, 0);
  if (isNew && !own.empty() && !endsInNumber(own)) return own;
  int& number = entry->second; // Stays where it is when names are added.
  std::string name;
  do {
    name = own + "+" + std::to_string(++number);
  } while (!m_usedNames.try_emplace(name, 0).second);
  return name;
}

bool NkOutput::markWritten(const NkBase* object) { return std::exchange(m_references[object].isWritten, true); }

void NkOutput::forgetObjects() {
  m_references.clear();
  m_required.clear();
}
