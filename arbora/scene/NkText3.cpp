#include "arbora/scene/NkText3.h"

#include <algorithm>
#include <cmath>

#include "arbora/scene/NkPickStyle.h"
#include "arbora/scene/NkRayPickAction.h"
#include "arbora/scene/text/GlyphCache.h"

NK_NODE_SOURCE(NkText3, NkShape, "Text3");

NkText3::NkText3() {
  NK_NODE_CONSTRUCTOR(NkText3);
  NK_NODE_DEFINE_ENUM_VALUE(Justification, LEFT);
  NK_NODE_DEFINE_ENUM_VALUE(Justification, RIGHT);
  NK_NODE_DEFINE_ENUM_VALUE(Justification, CENTER);
  NK_NODE_DEFINE_ENUM_VALUE(Part, FRONT);
  NK_NODE_DEFINE_ENUM_VALUE(Part, SIDES);
  NK_NODE_DEFINE_ENUM_VALUE(Part, BACK);
  NK_NODE_DEFINE_ENUM_VALUE(Part, ALL);
  NK_NODE_ADD_FIELD(string, (""));
  NK_NODE_ADD_FIELD(spacing, (1.0f));
  NK_NODE_ADD_FIELD(justification, (LEFT));
  NK_NODE_ADD_FIELD(parts, (FRONT));
  NK_NODE_SET_SF_ENUM_TYPE(justification, Justification);
  NK_NODE_SET_SF_ENUM_TYPE(parts, Part);
}

NkText3::~NkText3() = default;

float NkText3::lineWidth(const NbString& line, const arbora::FontStyle& style) {
  return arbora::FontMetrics(style).getWidth(line);
}

void NkText3::updateLines(NkState& state) {
  state.markUsed(NkState::FONT);
  if (m_hasLines && m_style == state.font) return;
  m_style = state.font;
  const arbora::FontMetrics metrics(m_style);
  m_ascent = metrics.getAscent();
  m_descent = metrics.getDescent();
  const float lineSpacing = std::isfinite(spacing.getValue()) ? spacing.getValue() : 1.0f;
  const float step = metrics.getLineHeight() * lineSpacing;
  m_lines.clear();
  float widest = 0.0f;
  for (int i = 0; i < string.getNum(); ++i) {
    const float width = metrics.getWidth(string[i]);
    widest = std::max(widest, width);
    m_lines.push_back({0.0f, width, -static_cast<float>(i) * step});
  }
  for (Line& line : m_lines) {
    if (justification.getValue() == RIGHT) line.left = widest - line.width;
    if (justification.getValue() == CENTER) line.left = -line.width * 0.5f;
  }
  m_hasLines = true;
  m_hasMeshes = false;
}

NbBox3f NkText3::getLineBox(const Line& line) const {
  const float back = parts.getValue() & (SIDES | BACK) ? -1.0f : 0.0f;
  return NbBox3f(line.left, line.baseline - m_descent, back, line.left + line.width, line.baseline + m_ascent, 0.0f);
}

const std::vector<arbora::PlacedMesh>& NkText3::getMeshes(NkState& state) {
  updateLines(state);
  if (m_hasMeshes) return m_meshes;
  m_meshes.clear();
  m_hasMeshes = true;
  const float size = arbora::getEffectiveFontSize(m_style);
  if (size == 0.0f) return m_meshes;
  struct PartOfGlyph {
    Part bit;
    arbora::Glyph::Part part;
  };
  static constexpr PartOfGlyph kParts[] = {
      {FRONT, arbora::Glyph::FRONT}, {SIDES, arbora::Glyph::SIDES}, {BACK, arbora::Glyph::BACK}};
  arbora::GlyphFace& face = arbora::getGlyphFace(m_style.face);
  for (std::size_t i = 0; i < m_lines.size(); ++i) {
    float ems = 0.0f;
    arbora::forEachCharacter(string[static_cast<int>(i)], [&](char32_t character) {
      const NbVec3f offset(m_lines[i].left + ems * size, m_lines[i].baseline, 0.0f);
      for (const PartOfGlyph& part : kParts) {
        if (!(parts.getValue() & part.bit)) continue;
        if (const arbora::Ref<arbora::Mesh>& mesh = face.getMesh(character, part.part))
          m_meshes.push_back({mesh, NbVec3f(size, size, 1.0f), offset});
      }
      ems += face.getAdvance(character);
    });
  }
  return m_meshes;
}

NbBox3f NkText3::computeBox(NkState& state) {
  updateLines(state);
  NbBox3f box;
  if (parts.getValue() & ALL) {
    for (const Line& line : m_lines) box.extendBy(getLineBox(line));
  }
  return box;
}

void NkText3::rayPick(NkRayPickAction* action) {
  NkState& state = *action->getState();
  if (state.pickStyle != NkPickStyle::SHAPE) {
    NkShape::rayPick(action);
    return;
  }
  NbVec3f start;
  NbVec3f direction;
  if (!(parts.getValue() & ALL) || !action->getLocalRay(start, direction)) return;
  updateLines(state);
  // A shape counts once: the ray comes to the lines in this order, and the first hit is the nearest one.
  const bool linesGoDown = m_lines.size() < 2 || m_lines.back().baseline <= m_lines.front().baseline;
  const bool forward = (direction[1] <= 0.0f) == linesGoDown;
  for (std::size_t i = 0; i < m_lines.size(); ++i) {
    if (action->pickBox(getLineBox(m_lines[forward ? i : m_lines.size() - 1 - i]))) return;
  }
}

void NkText3::fieldHasChanged(NkField* field) {
  if (field == &parts)
    m_hasMeshes = false;
  else
    m_hasLines = false;
  NkShape::fieldHasChanged(field);
}
