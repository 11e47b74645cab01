#include <cstdlib>

#include "arbora/base/NkDebugError.h"
#include "arbora/scene/NkCube.h"
#include "arbora/win/NkRenderArea.h"
#include "arbora/win/NkWin.h"
#include "tests/scene/SceneTest.h"

namespace {

using NkRenderAreaWithoutDisplay = SceneTest;

/// Uses an area that has no window in all ways; true if it takes that well.
bool useClosedArea() {
  const arbora::Ref<NkNode> scene = new NkCube;
  NkRenderArea area(nullptr, "title");
  area.setSceneGraph(scene.get());
  area.show();
  area.setSize({100, 100});
  area.viewAll();
  area.redraw();
  area.setTitle("other");
  const bool isEmpty = !area.isOpen() && !area.isVisible() && area.getSize() == NbVec2i32(0, 0);
  return isEmpty && area.getTitle() == "other" && area.getSceneGraph() == scene.get() && NkWin::mainLoop() == 0;
}

TEST_F(NkRenderAreaWithoutDisplay, SaysWhatToDoAndStaysClosed) {
  // In a process of its own: this one may have its display open.
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        unsetenv("DISPLAY");
        unsetenv("WAYLAND_DISPLAY");
        NkDebugError::setHandler(nullptr, nullptr);
        std::exit(useClosedArea() ? 0 : 1);
      },
      testing::ExitedWithCode(0), "Error in NkRenderArea::NkRenderArea\\(\\): No display: set DISPLAY");
}

} // namespace
