#pragma once

#include "Panelix/export.h"
#include "arbora/base/NbBox3f.h"
#include "arbora/scene/NkRefCounter.h"

class NkGroup;
class NkText3;
class NkTranslation;

namespace panelix {

/// A text of a 3D form and the translation that places it.
struct PANELIX_API PlacedText {
  PlacedText();
  ~PlacedText();
  /// Makes both: the translation at the head of a group, the text, of which only the front shows, at its end.
  void addTo(NkGroup* group);

  arbora::Ref<NkTranslation> translation;
  arbora::Ref<NkText3> text;
};

} // namespace panelix
