#include "arbora/scene/text/GlyphSource.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H
#include FT_TRUETYPE_TABLES_H
#include <fontconfig/fontconfig.h>

#include <algorithm>
#include <array>

#include "arbora/scene/text/FontSystem_linux.h"

namespace arbora {

namespace {

struct DeletePattern {
  void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};
using Pattern = std::unique_ptr<FcPattern, DeletePattern>;

const FcChar8* bytes(const char* text) { return reinterpret_cast<const FcChar8*>(text); }

bool hasString(const FcPattern* pattern, const char* object, const FcChar8* text) {
  FcChar8* value = nullptr;
  for (int i = 0; FcPatternGetString(pattern, object, i, &value) == FcResultMatch; ++i) {
    if (FcStrCmpIgnoreCase(value, text) == 0) return true;
  }
  return false;
}

/// True if `found` is of a family that the system's configuration calls the same as the asked one, such as the free
/// fonts that have the measures of a well-known one. `asked` is the pattern with the configuration's substitutions.
bool isSameFamily(const FcPattern* asked, const FcPattern* found) {
  FcValue value;
  FcValueBinding binding;
  for (int i = 0; FcPatternGetWithBinding(asked, FC_FAMILY, i, &value, &binding) == FcResultMatch; ++i) {
    if (value.type == FcTypeString && binding != FcValueBindingWeak && hasString(found, FC_FAMILY, value.u.s))
      return true;
  }
  return false;
}

/// The font whose full name, such as "DejaVu Sans Bold", is `name`.
Pattern findByFullName(FcConfig* config, const FcChar8* name) {
  for (const FcSetName setName : {FcSetSystem, FcSetApplication}) {
    const FcFontSet* fonts = FcConfigGetFonts(config, setName);
    for (int i = 0; fonts && i < fonts->nfont; ++i) {
      FcBool scalable = FcFalse;
      if (hasString(fonts->fonts[i], FC_FULLNAME, name) &&
          FcPatternGetBool(fonts->fonts[i], FC_SCALABLE, 0, &scalable) == FcResultMatch && scalable)
        return Pattern(FcPatternDuplicate(fonts->fonts[i]));
    }
  }
  return nullptr;
}

class FreeTypeGlyphs : public GlyphSource {
public:
  FreeTypeGlyphs(std::shared_ptr<FontSystem> system, FreeTypeFace face)
      : m_system(std::move(system)), m_face(std::move(face)), m_scale(1.0f / static_cast<float>(m_face->units_per_EM)) {
  }

  VerticalMetrics getVerticalMetrics() const override {
    // Straight from the tables: FreeType's own choice among a font's three sets of measures is another one than that of
    // window systems, and a scene must come out alike everywhere.
    const auto* header = static_cast<const TT_HoriHeader*>(FT_Get_Sfnt_Table(m_face.get(), FT_SFNT_HHEA));
    if (header && (header->Ascender != 0 || header->Descender != 0))
      return toMetrics(header->Ascender, -header->Descender, header->Line_Gap);
    if (const auto* system = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(m_face.get(), FT_SFNT_OS2)))
      return toMetrics(system->usWinAscent, system->usWinDescent, 0);
    return toMetrics(m_face->ascender, -m_face->descender, m_face->height - m_face->ascender + m_face->descender);
  }

  float getAdvance(char32_t character) override {
    return loadGlyph(character) ? static_cast<float>(m_face->glyph->metrics.horiAdvance) * m_scale : 0.0f;
  }

  GlyphOutline getOutline(char32_t character) override {
    OutlineBuilder builder(m_scale);
    if (!loadGlyph(character) || m_face->glyph->format != FT_GLYPH_FORMAT_OUTLINE) return builder.finish();
    FT_Outline_Funcs functions{};
    functions.move_to = [](const FT_Vector* to, void* data) {
      static_cast<OutlineBuilder*>(data)->moveTo(point(to));
      return 0;
    };
    functions.line_to = [](const FT_Vector* to, void* data) {
      static_cast<OutlineBuilder*>(data)->lineTo(point(to));
      return 0;
    };
    functions.conic_to = [](const FT_Vector* control, const FT_Vector* to, void* data) {
      static_cast<OutlineBuilder*>(data)->quadTo(point(control), point(to));
      return 0;
    };
    functions.cubic_to = [](const FT_Vector* control1, const FT_Vector* control2, const FT_Vector* to, void* data) {
      static_cast<OutlineBuilder*>(data)->cubicTo(point(control1), point(control2), point(to));
      return 0;
    };
    FT_Outline_Decompose(&m_face->glyph->outline, &functions, &builder);
    return builder.finish();
  }

private:
  VerticalMetrics toMetrics(int ascent, int descent, int lineGap) const {
    return {static_cast<float>(ascent) * m_scale, static_cast<float>(descent) * m_scale,
            static_cast<float>(std::max(lineGap, 0)) * m_scale};
  }
  static NbVec2f point(const FT_Vector* v) { return NbVec2f(static_cast<float>(v->x), static_cast<float>(v->y)); }

  bool loadGlyph(char32_t character) {
    FT_UInt index = FT_Get_Char_Index(m_face.get(), character);
    // Symbol fonts keep their glyphs in the private use area.
    if (index == 0 && character < 0x100 && m_face->charmap && m_face->charmap->encoding == FT_ENCODING_MS_SYMBOL)
      index = FT_Get_Char_Index(m_face.get(), 0xF000 + character);
    return FT_Load_Glyph(m_face.get(), index, FT_LOAD_NO_SCALE) == 0;
  }

  std::shared_ptr<FontSystem> m_system; // Outlives the face.
  FreeTypeFace m_face;
  float m_scale; // font units to ems
};

/// What is asked of fontconfig for a family, with the substitutions of its configuration.
Pattern askFor(FcConfig* config, const char* family) {
  Pattern pattern(FcPatternCreate());
  FcPatternAddString(pattern.get(), FC_FAMILY, bytes(family));
  FcPatternAddBool(pattern.get(), FC_SCALABLE, FcTrue);
  FcPatternAddBool(pattern.get(), FC_OUTLINE, FcTrue);
  FcConfigSubstitute(config, pattern.get(), FcMatchPattern);
  FcDefaultSubstitute(pattern.get());
  return pattern;
}

Pattern findMatch(FcConfig* config, const Pattern& asked) {
  FcResult result;
  return Pattern(FcFontMatch(config, asked.get(), &result));
}

} // namespace

FontSystem::FontSystem() : m_config(FcInitLoadConfigAndFonts()) {
  if (FT_Init_FreeType(&m_freeType) != 0) m_freeType = nullptr;
  // Wine keeps its Tahoma, the face that dialogs are made for, outside the folders that fontconfig knows. A Tahoma
  // that the user installed stands ahead of it.
  for (const char* folder : {"/usr/share/wine/fonts/", "/opt/wine-stable/share/wine/fonts/"}) {
    for (const char* file : {"tahoma.ttf", "tahomabd.ttf"}) {
      if (m_config) FcConfigAppFontAddFile(m_config, bytes((std::string(folder) + file).c_str()));
    }
  }
}

FontSystem::~FontSystem() {
  if (m_freeType) FT_Done_FreeType(m_freeType);
  if (m_config) FcConfigDestroy(m_config);
}

std::shared_ptr<FontSystem> FontSystem::get() {
  static std::weak_ptr<FontSystem> s_system;
  std::shared_ptr<FontSystem> system = s_system.lock();
  if (!system) {
    system = std::make_shared<FontSystem>();
    s_system = system;
  }
  return system;
}

FontSystem::Match FontSystem::findFace(const NbName& face) const {
  Match match;
  if (!m_config || !m_freeType) return match;
  const bool generic = getGenericFamily(face) != GenericFamily::NONE;
  const char* name = !face ? "sans-serif" : face.getString();
  const Pattern asked = askFor(m_config, name);
  Pattern found = findMatch(m_config, asked);
  match.isAsAsked = generic || (found && isSameFamily(asked.get(), found.get()));
  if (!match.isAsAsked) {
    if (Pattern byFullName = findByFullName(m_config, bytes(name))) {
      found = std::move(byFullName);
      match.isAsAsked = true;
    } else {
      // Not what resembles the name, but the same face for all that are missing.
      found = findMatch(m_config, askFor(m_config, "sans-serif"));
    }
  }
  FcChar8* file = nullptr;
  FcChar8* family = nullptr;
  int index = 0;
  if (!found || FcPatternGetString(found.get(), FC_FILE, 0, &file) != FcResultMatch) return match;
  FcPatternGetInteger(found.get(), FC_INDEX, 0, &index);
  FcPatternGetString(found.get(), FC_FAMILY, 0, &family);
  FT_Face opened = nullptr;
  if (FT_New_Face(m_freeType, reinterpret_cast<const char*>(file), index, &opened) != 0) return match;
  FreeTypeFace owner(opened);
  if (!FT_IS_SCALABLE(opened) || opened->units_per_EM == 0) return match;
  match.face = std::move(owner);
  match.family = family ? reinterpret_cast<const char*>(family) : "";
  return match;
}

OpenedFace openSystemFace(const NbName& face) {
  std::shared_ptr<FontSystem> system = FontSystem::get();
  FontSystem::Match match = system->findFace(face);
  OpenedFace opened;
  opened.isAsAsked = match.isAsAsked;
  opened.family = match.family;
  if (match.face) opened.source = std::make_unique<FreeTypeGlyphs>(std::move(system), std::move(match.face));
  return opened;
}

const char* getFontInstallHint() { return "Install the font (fc-list shows what is there; Debian: fonts-dejavu-core)"; }

} // namespace arbora
