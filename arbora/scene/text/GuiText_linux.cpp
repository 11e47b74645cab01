#include "arbora/scene/text/GuiText_linux.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_TRUETYPE_TABLES_H

#include <unordered_map>

#include "arbora/scene/text/FontSystem_linux.h"
#include "arbora/scene/text/GlyphSource.h"

namespace arbora {

namespace {

class GuiFont {
public:
  GuiFont() : m_system(FontSystem::get()), m_face(m_system->findFace("Tahoma").face) {
    if (m_face && FT_Set_Pixel_Sizes(m_face.get(), 0, kPixelsPerEm) != 0) m_face = nullptr;
    if (m_face) m_height = computeHeight();
  }

  int getHeight() const { return m_height; }

  int getAdvance(FT_ULong character) {
    const auto [entry, isNew] = m_advances.try_emplace(character, kCellWidth);
    // Without the bitmaps that some fonts hold for small sizes: window systems draw from the outlines too.
    if (isNew && m_face && FT_Load_Char(m_face.get(), character, FT_LOAD_NO_BITMAP) == 0)
      entry->second = static_cast<int>((m_face->glyph->advance.x + 32) / 64);
    return entry->second;
  }

private:
  static constexpr int kPixelsPerEm = 11; // 8 points at 96 dots per inch
  // The cell of a character where the system has no font.
  static constexpr int kCellWidth = 6;
  static constexpr int kCellHeight = 13;

  int computeHeight() const {
    const auto toPixels = [this](int units) {
      return (units * kPixelsPerEm + m_face->units_per_EM / 2) / m_face->units_per_EM;
    };
    // The measures that a window system reserves for a line differ from those for typesetting.
    if (const auto* table = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(m_face.get(), FT_SFNT_OS2)))
      return toPixels(table->usWinAscent) + toPixels(table->usWinDescent);
    return toPixels(m_face->ascender) + toPixels(-m_face->descender);
  }

  std::shared_ptr<FontSystem> m_system; // Outlives the face.
  FreeTypeFace m_face;                  // NULL if there is no font.
  int m_height = kCellHeight;
  std::unordered_map<FT_ULong, int> m_advances;
};

std::unique_ptr<GuiFont> s_font; // Made at the first measuring.

} // namespace

PixelExtent measureGuiText(const wchar_t* text, int length) {
  if (!s_font) s_font = std::make_unique<GuiFont>();
  PixelExtent extent{0, s_font->getHeight()};
  for (int i = 0; i < length; ++i) extent.width += s_font->getAdvance(static_cast<FT_ULong>(text[i]));
  return extent;
}

void releaseSystemFonts() { s_font = nullptr; }

} // namespace arbora
