#include "arbora/base/NbFileHelper.h"

#include "arbora/base/Platform.h"
#include "arbora/base/Utf8.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <memory>
#include <system_error>

namespace {

std::filesystem::path systemPath(const NbString& path) {
  const std::string utf8 =
      !path.isUnicode() && arbora::isValidUtf8(path.latin1View()) ? path.toLatin1() : path.toUtf8();
  return std::filesystem::path(std::u8string(utf8.begin(), utf8.end()));
}

bool isSlash(wchar_t c) { return c == L'/' || c == L'\\'; }

bool isNameChar(wchar_t c) {
  return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z') || (c >= L'0' && c <= L'9') || c == L'_';
}

// How many characters in front name the root: "/", "C:" or "C:/".
int rootLength(const std::wstring& path) {
  const auto at = [&](std::size_t i) { return i < path.size() ? path[i] : L'\0'; };
  if (isSlash(at(0))) {
    return 1;
  }
  const bool isDrive = at(1) == L':' && isNameChar(at(0));
  return isDrive ? (isSlash(at(2)) ? 3 : 2) : 0;
}

// Where the last part of the path begins.
int baseStart(const std::wstring& path) {
  int start = static_cast<int>(path.size());
  const int root = rootLength(path);
  while (start > root && !isSlash(path[static_cast<std::size_t>(start - 1)])) {
    --start;
  }
  return start;
}

NbString firstPart(const NbString& text, int length) {
  return length > 0 ? text.getSubString(0, length - 1) : NbString();
}

// The value of the variable that is named behind a '$' at `start`, and the position behind the name. False if there is
// no such name, or no such variable.
bool variableAt(const NbString& text, const std::wstring& wide, std::size_t start, std::string& value,
                std::size_t& behind) {
  const bool braced = start < wide.size() && wide[start] == L'{';
  const std::size_t first = braced ? start + 1 : start;
  std::size_t last = first;
  while (last < wide.size() && isNameChar(wide[last])) {
    ++last;
  }
  if (last == first || (braced && (last >= wide.size() || wide[last] != L'}'))) {
    return false;
  }
  behind = braced ? last + 1 : last;
  const NbString name = text.getSubString(static_cast<int>(first), static_cast<int>(last) - 1);
  return arbora::environmentValue(name.toLatin1().c_str(), value);
}

} // namespace

int NbFileHelper::isAccessible(const NbString& path, int mode) {
  return !path.isEmpty() && arbora::isPathAccessible(systemPath(path), mode) ? 1 : 0;
}

bool NbFileHelper::isDirectory(const NbString& path) {
  std::error_code error;
  return std::filesystem::is_directory(systemPath(path), error);
}

NbString NbFileHelper::toUnixPath(const NbString& path) {
  if (path.isUnicode()) {
    std::wstring text = path.toWideChar();
    std::replace(text.begin(), text.end(), L'\\', L'/');
    return text;
  }
  std::string text = path.toLatin1();
  std::replace(text.begin(), text.end(), '\\', '/');
  return text;
}

NbString NbFileHelper::expandString(const NbString& text) {
  const std::wstring wide = text.toWideChar();
  NbString result;
  std::size_t at = 0;
  if (!wide.empty() && wide[0] == L'~' && (wide.size() == 1 || isSlash(wide[1]))) {
    const std::string home = arbora::homeFolder();
    if (!home.empty()) {
      result = NbString::fromUtf8(home);
      at = 1;
    }
  }
  std::size_t pending = at; // from here on the text is not yet taken over
  const auto takePending = [&](std::size_t end) {
    if (end > pending) {
      result += text.getSubString(static_cast<int>(pending), static_cast<int>(end) - 1);
    }
  };
  while (at < wide.size()) {
    std::string value;
    std::size_t behind = at + 1;
    if (wide[at] == L'$' && variableAt(text, wide, at + 1, value, behind)) {
      takePending(at);
      result += NbString::fromUtf8(value);
      pending = behind;
    }
    at = behind;
  }
  takePending(wide.size());
  return result;
}

NbString NbFileHelper::getDirName(const NbString& path) {
  const std::wstring wide = path.toWideChar();
  const int root = rootLength(wide);
  int length = baseStart(wide);
  while (length > root && isSlash(wide[static_cast<std::size_t>(length - 1)])) {
    --length;
  }
  return firstPart(path, length);
}

NbString NbFileHelper::getBaseName(const NbString& path) { return path.getSubString(baseStart(path.toWideChar())); }

NbString NbFileHelper::getExtension(const NbString& path) {
  const NbString base = getBaseName(path);
  const std::wstring wide = base.toWideChar();
  const std::size_t dot = wide.rfind(L'.');
  if (dot == std::wstring::npos || dot == 0) {
    return NbString();
  }
  return base.getSubString(static_cast<int>(dot) + 1);
}

bool NbFileHelper::isAbsolutePath(const NbString& path) {
  const std::wstring wide = path.toWideChar();
  const int root = rootLength(wide);
  return root == 1 || root == 3;
}

NbString NbFileHelper::currentDirectory() {
  std::error_code error;
  const std::u8string path = std::filesystem::current_path(error).u8string();
  return NbString::fromUtf8(std::string(path.begin(), path.end()));
}

std::FILE* NbFileHelper::open(const NbString& path, const char* mode) {
  return arbora::openPath(systemPath(path), mode);
}

bool NbFileHelper::readWholeFile(const NbString& path, std::string& out, std::string* why) {
  out.clear();
  const auto fail = [&](int reason) {
    out.clear();
    if (why) {
      *why = std::generic_category().message(reason);
    }
    return false;
  };
  if (isDirectory(path)) {
    return fail(EISDIR);
  }
  errno = 0;
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(open(path, "rb"), std::fclose);
  if (!file) {
    return fail(errno);
  }
  char buffer[16384];
  std::size_t count = 0;
  while ((count = std::fread(buffer, 1, sizeof buffer, file.get())) > 0) {
    out.append(buffer, count);
  }
  return std::ferror(file.get()) ? fail(errno) : true;
}
