#include "Panelix/PlacedText.h"

#include "arbora/scene/NkGroup.h"
#include "arbora/scene/NkText3.h"
#include "arbora/scene/NkTranslation.h"

namespace panelix {

PlacedText::PlacedText() = default;

PlacedText::~PlacedText() = default;

void PlacedText::addTo(NkGroup* group) {
  translation = arbora::Ref<NkTranslation>(new NkTranslation);
  group->insertChild(translation.get(), 0);
  text = arbora::Ref<NkText3>(new NkText3);
  text->parts = NkText3::FRONT;
  group->addChild(text.get());
}

} // namespace panelix
