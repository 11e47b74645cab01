#pragma once

#include <vector>

#include "arbora/scene/NkShape.h"
#include "arbora/scene/NkState.h"

/// Text of any number of lines, drawn with the outlines of the font that the state names. The baseline of the first
/// line lies at y 0, each further one `spacing` line heights below the one before. A line reaches from 0 to the sum of
/// its characters' advances in x, as `justification` moves it, and from the font's descent to its ascent in y, whatever
/// its characters: labels that stand side by side share a baseline.
class ARBORA_API NkText3 : public NkShape {
  NK_NODE_HEADER(NkText3);

public:
  enum Justification { LEFT = 1, RIGHT = 2, CENTER = 3 };
  enum Part { FRONT = 1, SIDES = 2, BACK = 4, ALL = 7 };

  NkMFString string; ///< One value per line. Control characters show nothing; a tab is four blanks wide.
  NkSFFloat spacing; ///< From baseline to baseline, in line heights of the font.
  /// LEFT: the lines begin at x 0. RIGHT: they end where the widest one does, which begins at x 0. CENTER: their
  /// middles lie at x 0.
  NkSFEnum justification;
  NkSFBitMask parts; ///< What is shown: the front at z 0, the back at z -1, the sides between them.

  NkText3();

  const std::vector<arbora::PlacedMesh>& getMeshes(NkState& state) override;
  NbBox3f computeBox(NkState& state) override;
  /// The whole box of each line takes the ray, also between and within the letters: who points at a word means the
  /// word.
  void rayPick(NkRayPickAction* action) override;
  void fieldHasChanged(NkField* field) override;

  /// Width of a line in a font, in scene units: the width of the box that it gives as the only line of a text.
  static float lineWidth(const NbString& line, const arbora::FontStyle& style);

protected:
  ~NkText3() override;

private:
  struct Line {
    float left;
    float width;
    float baseline;
  };
  void updateLines(NkState& state);
  NbBox3f getLineBox(const Line& line) const;

  // For `m_style`, as long as `m_hasLines` and `m_hasMeshes` say so.
  arbora::FontStyle m_style;
  std::vector<Line> m_lines;
  std::vector<arbora::PlacedMesh> m_meshes;
  float m_ascent = 0.0f;
  float m_descent = 0.0f;
  bool m_hasLines = false;
  bool m_hasMeshes = false;
};
