#include "arbora/scene/text/GlyphSource.h"

#include <algorithm>
#include <cmath>

namespace arbora {

namespace {

// How far a flattened curve may lie from the true one, in ems: at a size of 100 pixels a quarter of a pixel.
constexpr float kTolerance = 1.0f / 400.0f;
// Against outlines with huge coordinates in a broken font.
constexpr float kMaxSegments = 64.0f;

NbVec2f mix(const NbVec2f& a, const NbVec2f& b, float t) { return a * (1.0f - t) + b * t; }

/// The number of lines for a curve whose error with one line is `error` ems; it falls with the square of the number.
int segmentsFor(float error) {
  const float count = std::ceil(std::sqrt(error / kTolerance));
  return count >= 1.0f ? static_cast<int>(std::min(count, kMaxSegments)) : 1;
}

} // namespace

void OutlineBuilder::addPoint(const NbVec2f& point) {
  m_current = point;
  const NbVec2f scaled = point * m_scale;
  if (!std::isfinite(scaled[0]) || !std::isfinite(scaled[1]) || m_outline.contours.empty()) return;
  std::vector<NbVec2f>& contour = m_outline.contours.back();
  if (contour.empty() || contour.back() != scaled) contour.push_back(scaled);
}

void OutlineBuilder::closeContour() {
  if (m_outline.contours.empty()) return;
  std::vector<NbVec2f>& contour = m_outline.contours.back();
  while (contour.size() > 1 && contour.front() == contour.back()) contour.pop_back();
  if (contour.size() < 3) m_outline.contours.pop_back();
}

void OutlineBuilder::moveTo(const NbVec2f& point) {
  closeContour();
  m_outline.contours.emplace_back();
  addPoint(point);
}

void OutlineBuilder::lineTo(const NbVec2f& point) { addPoint(point); }

void OutlineBuilder::quadTo(const NbVec2f& control, const NbVec2f& end) {
  const NbVec2f start = m_current;
  const int count = segmentsFor((start - control * 2.0f + end).length() * m_scale / 4.0f);
  for (int i = 1; i < count; ++i) {
    const float t = static_cast<float>(i) / static_cast<float>(count);
    addPoint(mix(mix(start, control, t), mix(control, end, t), t));
  }
  addPoint(end);
}

void OutlineBuilder::cubicTo(const NbVec2f& control1, const NbVec2f& control2, const NbVec2f& end) {
  const NbVec2f start = m_current;
  const float bend =
      std::max((start - control1 * 2.0f + control2).length(), (control1 - control2 * 2.0f + end).length());
  const int count = segmentsFor(bend * m_scale * 0.75f);
  for (int i = 1; i < count; ++i) {
    const float t = static_cast<float>(i) / static_cast<float>(count);
    const NbVec2f middle = mix(control1, control2, t);
    addPoint(mix(mix(mix(start, control1, t), middle, t), mix(middle, mix(control2, end, t), t), t));
  }
  addPoint(end);
}

GlyphOutline OutlineBuilder::finish() {
  closeContour();
  return std::move(m_outline);
}

GenericFamily getGenericFamily(const NbName& face) {
  std::string name(face.getView());
  std::transform(name.begin(), name.end(), name.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  if (name.empty() || name == "sans" || name == "sans-serif") return GenericFamily::SANS_SERIF;
  if (name == "serif") return GenericFamily::SERIF;
  if (name == "mono" || name == "monospace") return GenericFamily::MONOSPACE;
  return GenericFamily::NONE;
}

} // namespace arbora
