#include "Panelix/NkPanelix.h"

#include <algorithm>
#include <string_view>

#include "Panelix/NkDialogComboBox.h"
#include "Panelix/NkDialogEditText.h"
#include "arbora/scene/NkGroup.h"
#include "arbora/scene/NkText3.h"

// Every text counts as bytes here, one for each character.

namespace {

bool isEditText(const NkPanelix* node) { return node && node->isOfType(NkDialogEditText::getClassTypeId()); }

/// Calls `use` with each piece between line feeds, the last one included.
template <class Use>
void forEachLine(std::string_view text, Use&& use) {
  for (std::size_t end = text.find('\n'); end != text.npos; end = text.find('\n')) {
    use(text.substr(0, end));
    text.remove_prefix(end + 1);
  }
  use(text);
}

/// A device context that measures in `font` as the screen does. It is kept, because it takes longer to get one than to
/// measure a text; each thread has its own, which the system frees with the thread.
HDC measuringContext(HFONT font) {
  thread_local HDC s_context = nullptr;
  thread_local HFONT s_font = nullptr;
  if (!s_context) s_context = CreateCompatibleDC(nullptr);
  if (s_font != font) {
    SelectObject(s_context, font);
    s_font = font;
  }
  return s_context;
}

} // namespace

// The font

void NkPanelix::setFont(HFONT font) {
  m_font = font;
  // The measuring lets go of the previous font, so that its owner can delete it.
  measuringContext(font);
}

HFONT NkPanelix::getPanelixFont() { return m_font; }

void NkPanelix::setWidgetFont(HWND window) { SendMessageA(window, WM_SETFONT, reinterpret_cast<WPARAM>(m_font), TRUE); }

NbVec2i32 NkPanelix::getLabelPixelSize(NbString text, NkPanelix* node) {
  if (text.isEmpty()) return {0, 0};
  const std::string converted = convertToCString(text, node).toLatin1();
  const HDC context = measuringContext(m_font);
  const auto measure = [context](std::string_view line) {
    SIZE size{};
    GetTextExtentPoint32A(context, line.data(), static_cast<int>(line.size()), &size);
    return NbVec2i32(size.cx, size.cy);
  };
  constexpr int kMargin = 3;
  const bool isOneLine = isEditText(node) && !static_cast<NkDialogEditText*>(node)->multiLine.getValue();
  if (isOneLine) return measure(converted) + NbVec2i32(kMargin, kMargin);
  NbVec2i32 largest(0, 0);
  int lines = 0;
  forEachLine(converted, [&](std::string_view line) {
    const NbVec2i32 size = measure(line);
    largest = {std::max(largest[0], size[0]), std::max(largest[1], size[1])};
    ++lines;
  });
  return {largest[0] + kMargin, largest[1] * lines + kMargin};
}

// Conversion

NbString NkPanelix::convertToCString(const NbString& text, NkPanelix* node) {
  if (node && node->isOfType(NkDialogComboBox::getClassTypeId())) return text;
  const std::string_view lineEnd = isEditText(node) ? "\r\n" : "\n";
  const std::string bytes = text.toLatin1();
  std::string result;
  result.reserve(bytes.size());
  for (const char* c = bytes.c_str(); *c; ++c) {
    const bool isEscape = *c == '\\';
    if (isEscape && !*++c) break;
    if (*c == (isEscape ? 'n' : '\n'))
      result += lineEnd;
    else if (isEscape && *c == 't')
      result += '\t';
    else if (isEscape || *c != '\r')
      result += *c;
  }
  return NbString(std::move(result));
}

NbString NkPanelix::convertFromCString(const NbString&, int) { return NbString(); }

int NkPanelix::getNumLines(const NbString& text) {
  const std::string bytes = text.toLatin1();
  return static_cast<int>(std::count(bytes.begin(), bytes.end(), '\n'));
}

void NkPanelix::setWindowTextOf(HWND window, const NbString& text) {
  // The control shows what was measured, for which a wide text counts as bytes. A narrow one is Latin-1, which need not
  // be the code page of the system.
  if (text.isUnicode())
    SetWindowTextA(window, text.toLatin1().c_str());
  else
    SetWindowTextW(window, text.toWideChar().c_str());
}

// Texts of the 3D form

void NkPanelix::setStringToText3(NkText3* text3, const NbString& text) {
  std::vector<NbString> lines;
  forEachLine(text.toLatin1(), [&](std::string_view line) { lines.emplace_back(line); });
  text3->string.setValues(0, static_cast<int>(lines.size()), lines.data());
}

int NkPanelix::insertTextTo3DText(NbString text, NkText3* text3, int line, int column) {
  NkMFString& lines = text3->string;
  const NbString inserted(text.toLatin1());
  if (getNumLines(inserted) > 0) {
    // The 3D editor counts on the lines moving by two.
    for (int i = lines.getNum() - 1; i > std::max(line + 1, 0); --i) lines.set1Value(i + 1, lines[i - 1]);
    lines.set1Value(line + 1, "");
    return line + 1;
  }
  if (line < 0 || line >= lines.getNum()) {
    lines.set1Value(line, inserted);
    return line;
  }
  // The character at the column stands on both sides of the insertion.
  const NbString left = lines[line].getSubString(0, column);
  const NbString right = column == -1 ? NbString() : lines[line].getSubString(column, -1);
  lines.set1Value(line, left + inserted + right);
  return line;
}

int NkPanelix::wrap3DTextLine(NkText3* text3, int line, float maxWidth, NkGroup* properties, NkPanelix* node) {
  if (line < 0 || line >= text3->string.getNum() || !(maxWidth > 0)) return line;
  const arbora::Ref<NkGroup> measured(new NkGroup);
  const arbora::Ref<NkText3> scratch(new NkText3);
  if (properties) measured->addChild(properties);
  measured->addChild(scratch.get());
  const auto widthOf = [&](std::string_view text) {
    scratch->string.setValue(text);
    return node->measure3D(measured.get()).getSize()[0];
  };

  const std::string bytes = text3->string[line].toLatin1();
  std::string_view rest = bytes;
  std::vector<NbString> pieces;
  std::size_t guess = 32;
  while (!rest.empty()) {
    // The shortest beginning that isn't narrower than the limit: a longer one is never narrower. What is measured has
    // the length of a piece, not that of the rest.
    std::size_t below = 0;
    std::size_t end = std::min(guess, rest.size());
    float width = widthOf(rest.substr(0, end));
    while (width < maxWidth && end < rest.size()) {
      below = end;
      end = std::min(2 * end, rest.size());
      width = widthOf(rest.substr(0, end));
    }
    if (width < maxWidth) break;
    while (end - below > 1) {
      const std::size_t middle = below + (end - below) / 2;
      const float middleWidth = widthOf(rest.substr(0, middle));
      if (middleWidth < maxWidth) {
        below = middle;
      } else {
        end = middle;
        width = middleWidth;
      }
    }
    // The character that broke the limit ends this piece and begins the next one.
    const std::size_t next = width > maxWidth ? end - 1 : end;
    // Not even one character fits, or all of the rest does.
    if (next == 0 || next == rest.size()) break;
    pieces.emplace_back(rest.substr(0, end));
    rest.remove_prefix(next);
    guess = end;
  }
  if (pieces.empty()) return line;
  pieces.emplace_back(rest);
  const int count = static_cast<int>(pieces.size());
  text3->string.insertSpace(line + 1, count - 1);
  text3->string.setValues(line, count, pieces.data());
  return line + count - 1;
}
