#pragma once

#include <memory>
#include <string>
#include <vector>

#include "arbora/base/NbName.h"
#include "arbora/base/NbVec2f.h"
#include "arbora/scene/export.h"

namespace arbora {

/// Closed contours in em units: y up, the baseline at 0, curves flattened. What lies inside by the nonzero rule is ink.
struct GlyphOutline {
  std::vector<std::vector<NbVec2f>> contours;
};

/// Takes the segments of an outline in any unit and flattens them.
class ARBORA_API OutlineBuilder {
public:
  /// `scale` turns the segments' unit into ems.
  explicit OutlineBuilder(float scale) : m_scale(scale) {}

  void moveTo(const NbVec2f& point);
  void lineTo(const NbVec2f& point);
  void quadTo(const NbVec2f& control, const NbVec2f& end);
  void cubicTo(const NbVec2f& control1, const NbVec2f& control2, const NbVec2f& end);
  /// The last point of the open contour, in the segments' unit.
  const NbVec2f& getCurrent() const { return m_current; }
  /// Closes the open contour and gives them all.
  GlyphOutline finish();

private:
  void closeContour();
  void addPoint(const NbVec2f& point);

  float m_scale;
  NbVec2f m_current;
  GlyphOutline m_outline;
};

/// Distances from the baseline in ems, all of them positive in an ordinary font.
struct VerticalMetrics {
  float ascent = 0.0f;  // up
  float descent = 0.0f; // down
  float lineGap = 0.0f; // between the descent of a line and the ascent of the next
};

/// The glyphs of one face, unhinted, so that they fit every size. A character that the face lacks has the glyph that
/// the face shows for it, as a rule a box.
class ARBORA_API GlyphSource {
public:
  virtual ~GlyphSource() = default;
  virtual VerticalMetrics getVerticalMetrics() const = 0;
  /// In ems.
  virtual float getAdvance(char32_t character) = 0;
  virtual GlyphOutline getOutline(char32_t character) = 0;
};

struct OpenedFace {
  std::unique_ptr<GlyphSource> source; // NULL if the system has no font with outlines at all.
  std::string family;                  // The name of the family that was taken.
  bool isAsAsked = true;               // False if the face is missing and another one was taken.
};

/// The names that stand for a kind of face rather than for one: every system has something for them.
enum class GenericFamily { NONE, SANS_SERIF, SERIF, MONOSPACE };
/// The empty name is the sans serif.
GenericFamily getGenericFamily(const NbName& face);

/// Opens a face by the name of its family, a generic family, or its full name with the style ("DejaVu Sans Bold").
ARBORA_API OpenedFace openSystemFace(const NbName& face);

/// Frees what is kept of the system's fonts beside the open faces, until it is needed again.
void releaseSystemFonts();

/// What a user does to get a font that is missing on this system.
const char* getFontInstallHint();

} // namespace arbora
