#include "arbora/gl/NkOffscreenRenderer.h"
#include "arbora/scene/NkDB.h"
#include "arbora/scene/NkInput.h"
#include "arbora/scene/NkInteraction.h"
#include "arbora/scene/NkSeparator.h"

int main() {
  NkInteraction::init(); // The library with all its node classes.
  bool done = false;
  {
    NkInput input;
    NkOffscreenRenderer renderer(NbViewportRegion(640, 480));
    if (input.openFile("scene.arb")) {
      const arbora::Ref<NkSeparator> scene(NkDB::readAll(&input));
      done = scene && renderer.render(scene.get()) && renderer.writePng("scene.png");
    }
  }
  NkInteraction::finish();
  return done ? 0 : 1;
}
