#include "Panelix/NkDialogLabel.h"
#include "tests/desktop/DesktopTest_win.h"

namespace {

/// A system that registers no window class of the toolkit: others have taken all names for it. Their windows can be
/// made, unless a test wants otherwise.
class MissingClasses : public DesktopTest {
protected:
  MissingClasses() {
    NkWin::finish();
    hearErrors();
    for (const char* name : {"NkDialogComponent", "NkTopLevelDialogBase", "NkTopLevelDialog"}) {
      takeName(name);
      for (int number = 2; number <= kMostNames; ++number) takeName(std::string(name) + "#" + std::to_string(number));
    }
  }
  ~MissingClasses() override {
    release();
    for (const std::string& name : m_names) UnregisterClassA(name.c_str(), NkWin::getInstance());
    // The classes and the main window that the other tests count on.
    NkWin::init("desktop tests");
    hearErrors();
    open("TopLevelDialog { DialogLabel { } }", false);
    release();
  }

  static inline bool canMakeWindows = true;

private:
  static constexpr int kMostNames = 100;
  static LRESULT CALLBACK others(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE && !canMakeWindows) return FALSE;
    return DefWindowProcA(window, message, wParam, lParam);
  }
  void takeName(const std::string& name) {
    WNDCLASSA record{};
    record.lpfnWndProc = others;
    record.hInstance = NkWin::getInstance();
    record.lpszClassName = name.c_str();
    ASSERT_NE(RegisterClassA(&record), 0) << name;
    m_names.push_back(name);
  }

  std::vector<std::string> m_names;
};

using Errors = std::vector<std::string>;

} // namespace

TEST_F(MissingClasses, AreToldAndTheWindowsAreMadeAllTheSame) {
  auto* dialog = open("TopLevelDialog { label \"title\" width 300 height 200 DialogLabel { auditorID \"label\" } }");
  auto* label = find<NkDialogLabel>(dialog, "label");
  EXPECT_EQ(takeErrors(), (Errors{"NkTopLevelDialog Error: Register Base Class failed",
                                  "NkTopLevelDialog Error: RegisterClass failed"}));
  EXPECT_EQ(textOf(dialog->getBaseWidget()), "title");
  EXPECT_EQ(sizeOf(dialog->getBaseWidget()), NbVec2i32(300, 200));
  EXPECT_EQ(GetParent(dialog->getWidget()), dialog->getBaseWidget());
  // Windows that don't answer to the dialog lay nothing out by themselves; its next layout does.
  EXPECT_EQ(label->getWidget(), nullptr);
  dialog->addChild(new NkDialogLabel);
  EXPECT_EQ(takeErrors(),
            (Errors{"NkDialogComponent Error: RegisterClass failed", "NkDialogComponent Error: RegisterClass failed"}));
  EXPECT_EQ(GetParent(label->getWidget()), dialog->getWidget());
}

TEST_F(MissingClasses, WithoutWindowsTheSizesAreTold) {
  const HWND parent = makeApplicationWindow();
  const arbora::Ref<NkDialogComponent> component(new NkDialogComponent);
  NbVec2i32 size(120, 40);
  NbVec2i32 corner(0, 0);
  canMakeWindows = false;
  component->buildWidget(parent, size, corner, 1);
  canMakeWindows = true;
  EXPECT_EQ(takeErrors(),
            (Errors{"NkDialogComponent Error: RegisterClass failed", "NkDialogComponent Error: CreateWindow failed"}));
  EXPECT_EQ(component->getWidget(), nullptr);
  EXPECT_EQ(component->width.getValue(), 120);
}
