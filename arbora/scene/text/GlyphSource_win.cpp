#include "arbora/scene/text/GlyphSource.h"

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cwchar>
#include <optional>
#include <utility>

#include "arbora/base/NbString.h"

namespace arbora {

namespace {

using Bytes = std::vector<std::uint8_t>;

/// Big-endian numbers of a font's tables; what lies behind the end reads as 0.
std::uint32_t readNumber(const Bytes& table, std::size_t offset, std::size_t size) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < size; ++i) value = value << 8 | (offset + i < table.size() ? table[offset + i] : 0u);
  return value;
}
std::uint32_t readU32(const Bytes& table, std::size_t offset) { return readNumber(table, offset, 4); }
std::uint16_t readU16(const Bytes& table, std::size_t offset) {
  return static_cast<std::uint16_t>(readNumber(table, offset, 2));
}
std::int16_t readI16(const Bytes& table, std::size_t offset) {
  return static_cast<std::int16_t>(readU16(table, offset));
}

/// A memory device context with one font in it, whose height in pixels is its number of units per em: then all
/// measures are whole font units, and hinting has nothing to do.
class FontContext {
public:
  explicit FontContext(LOGFONTW description) : m_dc(CreateCompatibleDC(nullptr)) {
    description.lfOutPrecision = OUT_OUTLINE_PRECIS;
    description.lfCharSet = DEFAULT_CHARSET;
    description.lfHeight = -1024;
    if (!m_dc || !selectFont(description)) return;
    OUTLINETEXTMETRICW metrics{};
    metrics.otmSize = sizeof(metrics);
    if (GetOutlineTextMetricsW(m_dc, sizeof(metrics), &metrics) == 0 || metrics.otmEMSquare == 0) return;
    description.lfHeight = -static_cast<LONG>(metrics.otmEMSquare);
    if (selectFont(description)) m_unitsPerEm = static_cast<int>(metrics.otmEMSquare);
  }
  ~FontContext() {
    if (m_dc) DeleteDC(m_dc);
    if (m_font) DeleteObject(m_font);
  }
  FontContext(const FontContext&) = delete;
  FontContext& operator=(const FontContext&) = delete;

  HDC getDC() const { return m_dc; }
  /// 0 if there is no font, or one without outlines.
  int getUnitsPerEm() const { return m_unitsPerEm; }

  std::string getFamily() const {
    wchar_t name[LF_FACESIZE] = {};
    GetTextFaceW(m_dc, LF_FACESIZE, name);
    return NbString(name).toUtf8();
  }

  Bytes getTable(const char (&tag)[5]) const {
    const DWORD name = static_cast<DWORD>(tag[0]) | static_cast<DWORD>(tag[1]) << 8 | static_cast<DWORD>(tag[2]) << 16 |
                       static_cast<DWORD>(tag[3]) << 24;
    const DWORD size = GetFontData(m_dc, name, 0, nullptr, 0);
    Bytes table(size == GDI_ERROR ? 0 : size);
    if (!table.empty() && GetFontData(m_dc, name, 0, table.data(), size) == GDI_ERROR) table.clear();
    return table;
  }

private:
  bool selectFont(const LOGFONTW& description) {
    HFONT font = CreateFontIndirectW(&description);
    if (!font) return false;
    SelectObject(m_dc, font);
    if (m_font) DeleteObject(m_font);
    m_font = font;
    return true;
  }

  HDC m_dc;
  HFONT m_font = nullptr;
  int m_unitsPerEm = 0;
};

/// The characters beyond the first 65536, which GDI's own look-up can't be asked for: the segments of the character
/// map of format 12.
class WideCharacterMap {
public:
  explicit WideCharacterMap(Bytes table) : m_table(std::move(table)) {
    const std::size_t count = readU16(m_table, 2);
    for (std::size_t i = 0; i < count; ++i) {
      const std::size_t subtable = readU32(m_table, 4 + 8 * i + 4);
      if (readU16(m_table, 4 + 8 * i) == 3 && readU16(m_table, subtable) == 12 && subtable < m_table.size()) {
        m_groups = subtable + 16;
        m_count = std::min<std::size_t>(readU32(m_table, subtable + 12), m_table.size() / kGroupSize);
        return;
      }
    }
  }

  /// 0 if the face lacks it.
  unsigned getGlyph(char32_t character) const {
    std::size_t first = 0;
    std::size_t end = m_count;
    while (first < end) {
      const std::size_t middle = first + (end - first) / 2;
      const std::size_t group = m_groups + middle * kGroupSize;
      const char32_t groupFirst = readU32(m_table, group);
      if (character < groupFirst)
        end = middle;
      else if (character > readU32(m_table, group + 4))
        first = middle + 1;
      else
        return readU32(m_table, group + 8) + (character - groupFirst);
    }
    return 0;
  }

private:
  static constexpr std::size_t kGroupSize = 12;
  Bytes m_table;
  std::size_t m_groups = 0;
  std::size_t m_count = 0;
};

class GdiGlyphs : public GlyphSource {
public:
  explicit GdiGlyphs(std::unique_ptr<FontContext> context)
      : m_context(std::move(context)), m_scale(1.0f / static_cast<float>(m_context->getUnitsPerEm())) {}

  VerticalMetrics getVerticalMetrics() const override {
    VerticalMetrics metrics;
    const Bytes header = m_context->getTable("hhea");
    const int ascender = readI16(header, 4);
    const int descender = readI16(header, 6);
    if (ascender != 0 || descender != 0) {
      metrics.ascent = static_cast<float>(ascender) * m_scale;
      metrics.descent = static_cast<float>(-descender) * m_scale;
      metrics.lineGap = static_cast<float>(std::max<int>(readI16(header, 8), 0)) * m_scale;
      return metrics;
    }
    TEXTMETRICW system{};
    GetTextMetricsW(m_context->getDC(), &system);
    metrics.ascent = static_cast<float>(system.tmAscent) * m_scale;
    metrics.descent = static_cast<float>(system.tmDescent) * m_scale;
    metrics.lineGap = static_cast<float>(system.tmExternalLeading) * m_scale;
    return metrics;
  }

  float getAdvance(char32_t character) override {
    GLYPHMETRICS metrics{};
    const DWORD result = GetGlyphOutlineW(m_context->getDC(), getGlyph(character), GGO_METRICS | kFlags, &metrics, 0,
                                          nullptr, &kIdentity);
    return result == GDI_ERROR ? 0.0f : static_cast<float>(metrics.gmCellIncX) * m_scale;
  }

  GlyphOutline getOutline(char32_t character) override {
    const UINT glyph = getGlyph(character);
    OutlineBuilder builder(m_scale);
    GLYPHMETRICS metrics{};
    const DWORD size =
        GetGlyphOutlineW(m_context->getDC(), glyph, GGO_NATIVE | kFlags, &metrics, 0, nullptr, &kIdentity);
    if (size == GDI_ERROR || size == 0) return builder.finish();
    // Whole words, so that the headers in it are aligned.
    std::vector<std::uint32_t> buffer(size / sizeof(std::uint32_t) + 1);
    if (GetGlyphOutlineW(m_context->getDC(), glyph, GGO_NATIVE | kFlags, &metrics, size, buffer.data(), &kIdentity) ==
        GDI_ERROR)
      return builder.finish();
    const auto* data = reinterpret_cast<const std::byte*>(buffer.data());
    const std::byte* const end = data + size;
    while (static_cast<std::size_t>(end - data) >= sizeof(TTPOLYGONHEADER)) {
      const auto* header = reinterpret_cast<const TTPOLYGONHEADER*>(data);
      const std::size_t length = std::min<std::size_t>(header->cb, static_cast<std::size_t>(end - data));
      if (length < sizeof(TTPOLYGONHEADER)) break;
      builder.moveTo(point(header->pfxStart));
      addCurves(builder, data + sizeof(TTPOLYGONHEADER), data + length);
      data += length;
    }
    return builder.finish();
  }

private:
  static constexpr UINT kFlags = GGO_GLYPH_INDEX | GGO_UNHINTED;
  static constexpr MAT2 kIdentity{{0, 1}, {0, 0}, {0, 0}, {0, 1}};

  static float number(const FIXED& f) { return static_cast<float>(f.value) + static_cast<float>(f.fract) / 65536.0f; }
  static NbVec2f point(const POINTFX& p) { return NbVec2f(number(p.x), number(p.y)); }

  static void addCurves(OutlineBuilder& builder, const std::byte* data, const std::byte* end) {
    constexpr std::size_t kHeaderSize = offsetof(TTPOLYCURVE, apfx);
    while (static_cast<std::size_t>(end - data) >= kHeaderSize) {
      const auto* curve = reinterpret_cast<const TTPOLYCURVE*>(data);
      const std::size_t size = kHeaderSize + curve->cpfx * sizeof(POINTFX);
      if (size > static_cast<std::size_t>(end - data)) return;
      const POINTFX* points = curve->apfx;
      const std::size_t count = curve->cpfx;
      if (curve->wType == TT_PRIM_QSPLINE) {
        // Each point but the last is a control point; the curve passes half-way between two of them.
        for (std::size_t i = 0; i + 1 < count; ++i) {
          const NbVec2f control = point(points[i]);
          const NbVec2f next = point(points[i + 1]);
          builder.quadTo(control, i + 2 < count ? (control + next) * 0.5f : next);
        }
      } else if (curve->wType == TT_PRIM_CSPLINE) {
        for (std::size_t i = 0; i + 2 < count; i += 3)
          builder.cubicTo(point(points[i]), point(points[i + 1]), point(points[i + 2]));
      } else {
        for (std::size_t i = 0; i < count; ++i) builder.lineTo(point(points[i]));
      }
      data += size;
    }
  }

  UINT getGlyph(char32_t character) {
    if (character > 0xFFFF) {
      if (!m_wideCharacters) m_wideCharacters.emplace(m_context->getTable("cmap"));
      return m_wideCharacters->getGlyph(character);
    }
    const auto text = static_cast<wchar_t>(character);
    WORD glyph = 0;
    constexpr WORD kMissing = 0xFFFF;
    const DWORD result = GetGlyphIndicesW(m_context->getDC(), &text, 1, &glyph, GGI_MARK_NONEXISTING_GLYPHS);
    return result == GDI_ERROR || glyph == kMissing ? 0 : glyph;
  }

  std::unique_ptr<FontContext> m_context;
  float m_scale; // font units to ems
  std::optional<WideCharacterMap> m_wideCharacters;
};

/// Whether the system has that face with outlines.
bool isInstalled(const std::wstring& name) {
  LOGFONTW description{};
  if (name.empty() || name.size() >= LF_FACESIZE) return false;
  name.copy(description.lfFaceName, LF_FACESIZE - 1);
  description.lfCharSet = DEFAULT_CHARSET;
  HDC dc = CreateCompatibleDC(nullptr);
  bool found = false;
  EnumFontFamiliesExW(
      dc, &description,
      [](const LOGFONTW*, const TEXTMETRICW*, DWORD type, LPARAM data) -> int {
        if (type & RASTER_FONTTYPE) return 1;
        *reinterpret_cast<bool*>(data) = true;
        return 0;
      },
      reinterpret_cast<LPARAM>(&found), 0);
  DeleteDC(dc);
  return found;
}

LOGFONTW describe(const std::wstring& name, BYTE pitchAndFamily) {
  LOGFONTW description{};
  name.copy(description.lfFaceName, LF_FACESIZE - 1);
  description.lfPitchAndFamily = pitchAndFamily;
  return description;
}

LOGFONTW describeGeneric(GenericFamily family) {
  if (family == GenericFamily::SERIF)
    return describe(isInstalled(L"Times New Roman") ? L"Times New Roman" : L"", FF_ROMAN | VARIABLE_PITCH);
  if (family == GenericFamily::MONOSPACE)
    return describe(isInstalled(L"Courier New") ? L"Courier New" : L"", FF_MODERN | FIXED_PITCH);
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof(metrics);
  std::wstring name;
  if (SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0))
    name = metrics.lfMessageFont.lfFaceName;
  for (const wchar_t* known : {L"Segoe UI", L"Tahoma", L"Arial"}) {
    if (!isInstalled(name)) name = known;
  }
  return describe(isInstalled(name) ? name : L"", FF_SWISS | VARIABLE_PITCH);
}

} // namespace

OpenedFace openSystemFace(const NbName& face) {
  const GenericFamily generic = getGenericFamily(face);
  const std::wstring name = NbString::fromUtf8(face.getView()).toWideChar();
  OpenedFace opened;
  LOGFONTW description{};
  if (generic != GenericFamily::NONE) {
    description = describeGeneric(generic);
  } else if (isInstalled(name)) {
    description = describe(name, DEFAULT_PITCH | FF_DONTCARE);
  } else {
    description = describeGeneric(GenericFamily::SANS_SERIF);
    opened.isAsAsked = false;
  }
  auto context = std::make_unique<FontContext>(description);
  if (context->getUnitsPerEm() > 0) {
    opened.family = context->getFamily();
    opened.source = std::make_unique<GdiGlyphs>(std::move(context));
  }
  return opened;
}

void releaseSystemFonts() {} // Windows keeps them itself.

const char* getFontInstallHint() { return "Install the font (Settings, Fonts)"; }

} // namespace arbora
