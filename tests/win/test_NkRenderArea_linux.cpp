#include <cstdlib>
#include <string>

#include "arbora/base/NkDebugError.h"
#include "arbora/scene/NkCube.h"
#include "arbora/win/NkRenderArea.h"
#include "arbora/win/NkWin.h"
#include "tests/scene/SceneTest.h"

namespace {

/// Takes the display away and gives it back.
class WithoutDisplay {
public:
  WithoutDisplay() {
    if (const char* display = std::getenv("DISPLAY")) m_display = display;
    unsetenv("DISPLAY");
    unsetenv("WAYLAND_DISPLAY");
  }
  WithoutDisplay(const WithoutDisplay&) = delete;
  WithoutDisplay& operator=(const WithoutDisplay&) = delete;
  ~WithoutDisplay() {
    if (!m_display.empty()) setenv("DISPLAY", m_display.c_str(), 1);
  }

private:
  std::string m_display;
};

using NkRenderAreaWithoutDisplay = SceneTest;

TEST_F(NkRenderAreaWithoutDisplay, SaysWhatToDoAndStaysClosed) {
  const WithoutDisplay noDisplay;
  expectMessage("NkRenderArea::NkRenderArea(): No display: set DISPLAY");
  const arbora::Ref<NkNode> scene = new NkCube;
  NkRenderArea area(nullptr, "title");
  EXPECT_FALSE(area.isOpen());
  area.setSceneGraph(scene.get());
  area.show();
  area.setSize({100, 100});
  area.viewAll();
  area.redraw();
  area.setTitle("other");
  EXPECT_EQ(area.getTitle(), "other");
  EXPECT_FALSE(area.isVisible());
  EXPECT_EQ(area.getSize(), NbVec2i32(0, 0));
  EXPECT_EQ(area.getSceneGraph(), scene.get());
  EXPECT_EQ(NkWin::mainLoop(), 0);
  NkWin::finish();
}

} // namespace
