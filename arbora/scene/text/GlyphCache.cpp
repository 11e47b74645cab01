#include "arbora/scene/text/GlyphCache.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "arbora/base/NkDebugError.h"
#include "arbora/scene/text/Tessellator.h"

namespace arbora {

namespace {

using Faces = std::unordered_map<NbName, std::unique_ptr<GlyphFace>>;

Faces& faces() {
  // Emptied where the scene layer ends, but never destroyed: it may outlive the pool of meshes.
  static Faces* const s_faces = new Faces;
  return *s_faces;
}

FaceOpener s_opener = nullptr;

/// Stands in where the system has no font: each glyph is a frame, so that a form keeps its shape.
class BoxGlyphs : public GlyphSource {
public:
  VerticalMetrics getVerticalMetrics() const override { return {0.8f, 0.2f, 0.0f}; }
  float getAdvance(char32_t) override { return kAdvance; }
  GlyphOutline getOutline(char32_t character) override {
    OutlineBuilder builder(1.0f);
    if (character != U' ') {
      addRectangle(builder, {kMargin, 0.0f}, {kAdvance - kMargin, kHeight});
      // The other way round, so that it is a hole.
      addRectangle(builder, {kAdvance - kMargin - kLine, kLine}, {kMargin + kLine, kHeight - kLine});
    }
    return builder.finish();
  }

private:
  static constexpr float kAdvance = 0.5f;
  static constexpr float kMargin = 0.05f;
  static constexpr float kHeight = 0.7f;
  static constexpr float kLine = 0.06f;

  static void addRectangle(OutlineBuilder& builder, const NbVec2f& a, const NbVec2f& b) {
    builder.moveTo(a);
    builder.lineTo({b[0], a[1]});
    builder.lineTo(b);
    builder.lineTo({a[0], b[1]});
  }
};

/// Whether the character shows nothing and takes no room: controls other than the tab, joiners, direction marks.
bool isInvisible(char32_t c) {
  return c < 0x20 || (c >= 0x7F && c < 0xA0) || (c >= 0x200B && c <= 0x200F) || (c >= 0x202A && c <= 0x202E) ||
         (c >= 0x2060 && c <= 0x2064) || c == 0xFEFF;
}

void postReplacedFace(const NbName& face, const OpenedFace& opened) {
  if (!opened.source) {
    NkDebugError::postWarning("NkText3", "The system has no font with outlines: text shows as boxes. %s.",
                              getFontInstallHint());
  } else if (!opened.isAsAsked) {
    NkDebugError::postWarning(
        "NkText3",
        "The font \"%s\" is missing: \"%s\" is shown in its place. %s, or name another one in the "
        "font node.",
        face.getString(), opened.family.c_str(), getFontInstallHint());
  }
}

float signedArea(const std::vector<NbVec2f>& contour) {
  float area = 0.0f;
  for (std::size_t i = 0; i < contour.size(); ++i) {
    const NbVec2f& a = contour[i];
    const NbVec2f& b = contour[(i + 1) % contour.size()];
    area += a[0] * b[1] - a[1] * b[0];
  }
  return area * 0.5f;
}

NbVec3f normalized(NbVec3f v) {
  v.normalize();
  return v;
}

/// Walls from z 0 to z -1 along the contours, facing away from the ink.
Ref<Mesh> makeSides(const GlyphOutline& outline) {
  // Below this angle two walls are one curved surface.
  constexpr float kSmoothCosine = 0.8f;

  // Font formats differ in which way the outer contours turn.
  float area = 0.0f;
  for (const std::vector<NbVec2f>& contour : outline.contours) area += signedArea(contour);
  const bool outerIsCounterclockwise = area >= 0.0f;

  std::vector<Vertex> vertices;
  std::vector<std::uint32_t> indices;
  for (std::vector<NbVec2f> contour : outline.contours) {
    if (!outerIsCounterclockwise) std::reverse(contour.begin(), contour.end());
    const std::size_t count = contour.size();
    std::vector<NbVec3f> normals(count);
    for (std::size_t i = 0; i < count; ++i) {
      const NbVec2f edge = contour[(i + 1) % count] - contour[i];
      normals[i] = normalized(NbVec3f(edge[1], -edge[0], 0.0f));
    }
    const auto blend = [&](std::size_t own, std::size_t other) {
      return normals[own].dot(normals[other]) > kSmoothCosine ? normalized(normals[own] + normals[other])
                                                              : normals[own];
    };
    for (std::size_t i = 0; i < count; ++i) {
      const NbVec2f& a = contour[i];
      const NbVec2f& b = contour[(i + 1) % count];
      const NbVec3f normalA = blend(i, (i + count - 1) % count);
      const NbVec3f normalB = blend(i, (i + 1) % count);
      const auto first = static_cast<std::uint32_t>(vertices.size());
      vertices.push_back({NbVec3f(a[0], a[1], 0.0f), normalA, a});
      vertices.push_back({NbVec3f(a[0], a[1], -1.0f), normalA, a});
      vertices.push_back({NbVec3f(b[0], b[1], -1.0f), normalB, b});
      vertices.push_back({NbVec3f(b[0], b[1], 0.0f), normalB, b});
      for (const std::uint32_t corner : {0u, 1u, 2u, 0u, 2u, 3u}) indices.push_back(first + corner);
    }
  }
  return Mesh::intern(std::move(vertices), std::move(indices));
}

/// The front or the back, turned to that side.
Ref<Mesh> makeFace(const TessellatedPolygon& polygon, float z, float normalZ) {
  std::vector<Vertex> vertices;
  vertices.reserve(polygon.points.size());
  for (const NbVec2f& p : polygon.points) vertices.push_back({NbVec3f(p[0], p[1], z), NbVec3f(0.0f, 0.0f, normalZ), p});
  std::vector<std::uint32_t> indices = polygon.triangles;
  if (normalZ < 0.0f) std::reverse(indices.begin(), indices.end());
  return Mesh::intern(std::move(vertices), std::move(indices));
}

} // namespace

const Ref<Mesh>& Glyph::getMesh(Part part, GlyphSource& source, char32_t character) {
  if (!m_hasMeshes) {
    m_hasMeshes = true;
    if (character != U'\t' && !isInvisible(character)) makeMeshes(source.getOutline(character));
  }
  return m_meshes[part];
}

void Glyph::makeMeshes(const GlyphOutline& outline) {
  const TessellatedPolygon polygon = tessellate(outline.contours);
  if (polygon.triangles.empty()) return;
  m_meshes[FRONT] = makeFace(polygon, 0.0f, 1.0f);
  m_meshes[BACK] = makeFace(polygon, -1.0f, -1.0f);
  m_meshes[SIDES] = makeSides(outline);
}

GlyphFace::GlyphFace(std::unique_ptr<GlyphSource> source)
    : m_source(std::move(source)), m_metrics(m_source->getVerticalMetrics()) {}

Glyph& GlyphFace::add(char32_t character) {
  constexpr float kTabInBlanks = 4.0f;
  auto entry = m_glyphs.find(character);
  if (entry == m_glyphs.end()) {
    float advance = 0.0f;
    if (character == U'\t')
      advance = kTabInBlanks * m_source->getAdvance(U' ');
    else if (!isInvisible(character))
      advance = m_source->getAdvance(character);
    entry = m_glyphs.emplace(character, Glyph(advance)).first;
  }
  if (character < kTableSize) m_table[character] = &entry->second;
  return entry->second;
}

GlyphFace& getGlyphFace(const NbName& face) {
  std::unique_ptr<GlyphFace>& entry = faces()[face];
  if (!entry) {
    OpenedFace opened = s_opener ? s_opener(face) : openSystemFace(face);
    postReplacedFace(face, opened);
    if (!opened.source) opened.source = std::make_unique<BoxGlyphs>();
    entry = std::make_unique<GlyphFace>(std::move(opened.source));
  }
  return *entry;
}

void clearGlyphCache() {
  faces().clear();
  releaseSystemFonts();
}

void setFaceOpener(FaceOpener opener) {
  s_opener = opener;
  clearGlyphCache();
}

FontMetrics::FontMetrics(const FontStyle& style)
    : m_face(&getGlyphFace(style.face)), m_size(getEffectiveFontSize(style)) {}

float FontMetrics::getAscent() const { return m_face->getVerticalMetrics().ascent * m_size; }
float FontMetrics::getDescent() const { return m_face->getVerticalMetrics().descent * m_size; }
float FontMetrics::getLineGap() const { return m_face->getVerticalMetrics().lineGap * m_size; }
float FontMetrics::getEmAdvance(char32_t character) const { return m_face->getAdvance(character); }

float FontMetrics::getWidth(const NbString& line) const {
  float ems = 0.0f;
  forEachCharacter(line, [&](char32_t character) { ems += m_face->getAdvance(character); });
  return ems * m_size;
}

float getEffectiveFontSize(const FontStyle& style) {
  return std::isfinite(style.size) && style.size > 0.0f ? style.size : 0.0f;
}

} // namespace arbora
