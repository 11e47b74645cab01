#pragma once

#include <array>
#include <memory>
#include <unordered_map>

#include "arbora/base/NbString.h"
#include "arbora/scene/Mesh.h"
#include "arbora/scene/NkState.h"
#include "arbora/scene/text/GlyphSource.h"

namespace arbora {

/// One character of one face, at an em of 1.
class Glyph {
public:
  explicit Glyph(float advance) : m_advance(advance) {}
  float getAdvance() const { return m_advance; }

  enum Part { FRONT, SIDES, BACK, PART_COUNT };
  /// Front at z 0, back at z -1, sides between them; NULL for a glyph without ink. Made at the first call.
  const Ref<Mesh>& getMesh(Part part, GlyphSource& source, char32_t character);

private:
  void makeMeshes(const GlyphOutline& outline);

  float m_advance;
  bool m_hasMeshes = false;
  std::array<Ref<Mesh>, PART_COUNT> m_meshes;
};

/// The glyphs of a face that were used so far. All sizes share them.
class GlyphFace {
public:
  explicit GlyphFace(std::unique_ptr<GlyphSource> source);

  const VerticalMetrics& getVerticalMetrics() const { return m_metrics; }
  /// In ems. Control characters and marks that show nothing have none; a tab is four blanks wide.
  float getAdvance(char32_t character) { return find(character).getAdvance(); }
  const Ref<Mesh>& getMesh(char32_t character, Glyph::Part part) {
    return find(character).getMesh(part, *m_source, character);
  }

private:
  static constexpr std::size_t kTableSize = 256;

  Glyph& find(char32_t character) {
    Glyph* glyph = character < kTableSize ? m_table[character] : nullptr;
    return glyph ? *glyph : add(character);
  }
  Glyph& add(char32_t character);

  std::unique_ptr<GlyphSource> m_source;
  VerticalMetrics m_metrics;
  std::unordered_map<char32_t, Glyph> m_glyphs;
  std::array<Glyph*, kTableSize> m_table{}; // The Latin-1 ones of `m_glyphs`.
};

/// The face of that name; one for the process. A face that is missing is posted once.
GlyphFace& getGlyphFace(const NbName& face);

/// Frees all faces and their glyphs. What was measured or drawn so far stays as it is.
ARBORA_API void clearGlyphCache();

/// Who opens faces; NULL for the system. For tests, which need a system without a font. Drops what is cached.
using FaceOpener = OpenedFace (*)(const NbName& face);
ARBORA_API void setFaceOpener(FaceOpener opener);

/// What measuring needs of a font, in scene units. Valid until the glyph cache is cleared.
class ARBORA_API FontMetrics {
public:
  explicit FontMetrics(const FontStyle& style);

  /// Distances from the baseline, both positive.
  float getAscent() const;
  float getDescent() const;
  float getLineGap() const;
  /// From one baseline to the next.
  float getLineHeight() const { return getAscent() + getDescent() + getLineGap(); }

  float getAdvance(char32_t character) const { return getEmAdvance(character) * m_size; }
  /// The sum of the advances: there is no kerning, so that a line is as wide as its pieces together.
  float getWidth(const NbString& line) const;

  /// In ems. Sums of these are exact for a face whose em is a power of two, unlike sums of scaled ones.
  float getEmAdvance(char32_t character) const;
  float getSize() const { return m_size; }

private:
  GlyphFace* m_face; // Owned by the cache.
  float m_size;
};

/// The size that a text is shown with: 0 for one that isn't a positive number.
ARBORA_API float getEffectiveFontSize(const FontStyle& style);

/// Calls `f(char32_t)` for each character. Wide strings are UTF-16 or UTF-32, whichever `wchar_t` holds; half of a
/// surrogate pair and what is no character become U+FFFD.
template <class F>
void forEachCharacter(const NbString& text, F&& f) {
  if (!text.isUnicode()) {
    for (const char c : text.latin1View()) f(static_cast<char32_t>(static_cast<unsigned char>(c)));
    return;
  }
  constexpr char32_t kReplacement = 0xFFFD;
  const std::wstring wide = text.toWideChar();
  const auto isHighSurrogate = [](char32_t c) { return c >= 0xD800 && c < 0xDC00; };
  const auto isLowSurrogate = [](char32_t c) { return c >= 0xDC00 && c < 0xE000; };
  for (std::size_t i = 0; i < wide.size(); ++i) {
    const auto c = static_cast<char32_t>(wide[i]);
    const char32_t next = i + 1 < wide.size() ? static_cast<char32_t>(wide[i + 1]) : 0;
    if (sizeof(wchar_t) == 2 && isHighSurrogate(c) && isLowSurrogate(next)) {
      f(0x10000 + ((c - 0xD800) << 10) + (next - 0xDC00));
      ++i;
    } else {
      f(isHighSurrogate(c) || isLowSurrogate(c) || c > 0x10FFFF ? kReplacement : c);
    }
  }
}

} // namespace arbora
