#include <utility>

#include "Panelix/NkDialogLabel.h"
#include "Panelix/NkMenuBar.h"
#include "Panelix/NkRowDialog.h"
#include "tests/desktop/Control_win.h"
#include "tests/desktop/DesktopTest_win.h"
#include "tests/desktop/MessageLog_win.h"

namespace {

class TopLevelDialogWindow : public DesktopTest {
protected:
  static DWORD_PTR classWord(HWND window, int index) { return GetClassLongPtrA(window, index); }

  static COLORREF backgroundOf(HWND window) {
    LOGBRUSH brush{};
    GetObjectA(reinterpret_cast<HGDIOBJ>(classWord(window, GCLP_HBRBACKGROUND)), sizeof brush, &brush);
    return brush.lbColor;
  }

  /// What the frame and the caption add to the size of the components.
  static NbVec2i32 borderOf(NkTopLevelDialog* dialog) {
    TITLEBARINFO bar{};
    bar.cbSize = sizeof bar;
    GetTitleBarInfo(dialog->getBaseWidget(), &bar);
    return NbVec2i32(2 * GetSystemMetrics(SM_CXFRAME),
                     bar.rcTitleBar.bottom - bar.rcTitleBar.top + 2 * GetSystemMetrics(SM_CYFRAME));
  }

  static NbVec2i32 sizeFieldsOf(NkTopLevelDialog* dialog) {
    return NbVec2i32(dialog->width.getValue(), dialog->height.getValue());
  }
  static NbVec2i32 minFieldsOf(NkTopLevelDialog* dialog) {
    return NbVec2i32(dialog->minWidth.getValue(), dialog->minHeight.getValue());
  }
  static NbVec2i32 maxFieldsOf(NkTopLevelDialog* dialog) {
    return NbVec2i32(dialog->maxWidth.getValue(), dialog->maxHeight.getValue());
  }
  static Control* add(NkTopLevelDialog* dialog, const char* text) {
    auto* control = new Control(text);
    dialog->addChild(control);
    return control;
  }
  static void expectFilled(NkTopLevelDialog* dialog) {
    RECT area{};
    GetClientRect(dialog->getBaseWidget(), &area);
    EXPECT_EQ(rectangleOf(dialog->getWidget()), rectangle(0, 0, area.right, area.bottom));
  }
};

/// Notes the titles that the windows of a class are made with.
class Titles {
public:
  explicit Titles(std::string className) {
    s_class = std::move(className);
    s_titles.clear();
    m_hook = SetWindowsHookExA(WH_CBT, note, nullptr, GetCurrentThreadId());
  }
  ~Titles() { UnhookWindowsHookEx(m_hook); }
  Titles(const Titles&) = delete;
  Titles& operator=(const Titles&) = delete;
  static const std::vector<std::string>& get() { return s_titles; }

private:
  static LRESULT CALLBACK note(int code, WPARAM window, LPARAM creation) {
    char name[256] = "";
    if (code == HCBT_CREATEWND) GetClassNameA(reinterpret_cast<HWND>(window), name, sizeof name);
    if (name == s_class) s_titles.emplace_back(reinterpret_cast<CBT_CREATEWNDA*>(creation)->lpcs->lpszName);
    return CallNextHookEx(nullptr, code, window, creation);
  }

  static inline std::string s_class;
  static inline std::vector<std::string> s_titles;
  HHOOK m_hook;
};

/// The colours of an icon, byte by byte.
std::vector<unsigned char> pixelsOf(HICON icon) {
  ICONINFO parts{};
  GetIconInfo(icon, &parts);
  BITMAP bitmap{};
  GetObjectA(parts.hbmColor, sizeof bitmap, &bitmap);
  std::vector<unsigned char> pixels(static_cast<std::size_t>(bitmap.bmWidthBytes) * bitmap.bmHeight);
  GetBitmapBits(parts.hbmColor, static_cast<LONG>(pixels.size()), pixels.data());
  DeleteObject(parts.hbmColor);
  DeleteObject(parts.hbmMask);
  return pixels;
}

constexpr const char* kOneLabel = "DialogLabel { auditorID \"label\" label \"text\" }";

} // namespace

TEST_F(TopLevelDialogWindow, IsAFrameWithAWindowForTheComponents) {
  auto* dialog = open("TopLevelDialog { label \"Hello\" DialogLabel { label \"text\" } }");
  const HWND base = dialog->getBaseWidget();
  const HWND inside = dialog->getWidget();
  EXPECT_EQ(classOf(base), "NkTopLevelDialogBase");
  EXPECT_EQ(classOf(inside), "NkTopLevelDialog");
  EXPECT_EQ(textOf(base), "Hello");
  EXPECT_EQ(textOf(inside), "NkTopLevelDialog");
  EXPECT_EQ(GetParent(inside), base);
  EXPECT_EQ(GetParent(base), nullptr);
  EXPECT_EQ(styleOf(inside), 0x56000000U);
  EXPECT_EQ(extendedStyleOf(inside), 0U);
  for (HWND window : {base, inside}) {
    EXPECT_EQ(GetWindowLongPtrA(window, GWLP_USERDATA), reinterpret_cast<LONG_PTR>(dialog));
    EXPECT_EQ(classWord(window, GCL_CBWNDEXTRA), 8U);
    EXPECT_EQ(classWord(window, GCLP_HCURSOR), 0U);
    EXPECT_EQ(classWord(window, GCLP_MENUNAME), 0U);
    EXPECT_EQ(backgroundOf(window), GetSysColor(COLOR_BTNFACE));
  }
  EXPECT_EQ(classWord(base, GCL_STYLE), 35U);
  EXPECT_EQ(classWord(inside, GCL_STYLE), 131U);
  EXPECT_NE(classWord(base, GCLP_HICON), 0U);
  EXPECT_EQ(classWord(inside, GCLP_HICON), 0U);
  expectFilled(dialog);
}

TEST_F(TopLevelDialogWindow, ItsFrameIsMadeUnderTheNameOfItsClass) {
  const Titles titles("NkTopLevelDialogBase");
  open("TopLevelDialog { label \"Hello\" }");
  EXPECT_EQ(Titles::get(), std::vector<std::string>{"NkTopLevelDialogBase"});
}

TEST_F(TopLevelDialogWindow, HasTheIconOfTheProgram) {
  auto* dialog = open("TopLevelDialog { }");
  char path[MAX_PATH] = "";
  GetModuleFileNameA(nullptr, path, sizeof path);
  SHFILEINFOA program{};
  SHGetFileInfoA(path, FILE_ATTRIBUTE_NORMAL, &program, sizeof program, SHGFI_ICON);
  const auto expected = pixelsOf(program.hIcon);
  DestroyIcon(program.hIcon);
  EXPECT_FALSE(expected.empty());
  EXPECT_EQ(pixelsOf(reinterpret_cast<HICON>(classWord(dialog->getBaseWidget(), GCLP_HICON))), expected);
}

TEST_F(TopLevelDialogWindow, AWindowThatIsNotAdoptedDoesNotCount) {
  auto* dialog = read<NkTopLevelDialog>("TopLevelDialog { }");
  const HWND application = makeApplicationWindow();
  dialog->buildDialog(application, 0);
  EXPECT_NE(dialog->getBaseWidget(), application);
  EXPECT_EQ(GetParent(dialog->getBaseWidget()), nullptr);
  EXPECT_EQ(GetWindow(dialog->getBaseWidget(), GW_OWNER), nullptr);
}

// Styles

TEST_F(TopLevelDialogWindow, ResizableHasASizingFrame) {
  auto* dialog = open("TopLevelDialog { }", false);
  EXPECT_EQ(styleOf(dialog->getBaseWidget()), 0x06CF0000U);
  EXPECT_EQ(extendedStyleOf(dialog->getBaseWidget()), 256U);
  dialog->show();
  EXPECT_EQ(styleOf(dialog->getBaseWidget()), 0x06CF0000U | WS_VISIBLE);
}

TEST_F(TopLevelDialogWindow, NotResizableShowsFromTheStart) {
  auto* dialog = open("TopLevelDialog { resizable FALSE }", false);
  EXPECT_EQ(styleOf(dialog->getBaseWidget()), 0x16C80000U);
  EXPECT_EQ(extendedStyleOf(dialog->getBaseWidget()), 256U);
}

TEST_F(TopLevelDialogWindow, ModalFrameStaysOnTopWhetherResizableOrNot) {
  for (const char* resizable : {"TRUE", "FALSE"}) {
    auto* dialog = open(std::string("TopLevelDialog { modalFrame TRUE resizable ") + resizable + " }", false);
    EXPECT_EQ(styleOf(dialog->getBaseWidget()), 0x86C80000U);
    EXPECT_EQ(extendedStyleOf(dialog->getBaseWidget()), 393U);
  }
}

TEST_F(TopLevelDialogWindow, ModalFrameChangesTheStacking) {
  auto* dialog = open("TopLevelDialog { }");
  dialog->modalFrame = TRUE;
  EXPECT_EQ(extendedStyleOf(dialog->getBaseWidget()), 264U);
  EXPECT_EQ(styleOf(dialog->getBaseWidget()), 0x06CF0000U | WS_VISIBLE);
  dialog->modalFrame = FALSE;
  EXPECT_EQ(extendedStyleOf(dialog->getBaseWidget()), 256U);
}

TEST_F(TopLevelDialogWindow, ResizableChangesTheFrameAndTakesTheLimitsOfTheContent) {
  auto* dialog = open("TopLevelDialog { margin 5 DialogLabel { minWidth 90 minHeight 40 } }");
  const NbVec2i32 size = sizeOf(dialog->getBaseWidget());
  dialog->resizable = FALSE;
  EXPECT_EQ(styleOf(dialog->getBaseWidget()), 0x16C80000U);
  EXPECT_EQ(sizeOf(dialog->getBaseWidget()), size);
  EXPECT_EQ(minFieldsOf(dialog), NbVec2i32(100, 50));
  EXPECT_EQ(maxFieldsOf(dialog), NbVec2i32(0, 0));
  EXPECT_TRUE(dialog->maxWidth.isDefault() && dialog->maxHeight.isDefault());
  NbVec2i32 given, min, max;
  dialog->getDefaultState(given, min, max);
  EXPECT_EQ(min, NbVec2i32(100, 50));
  dialog->resizable = TRUE;
  EXPECT_EQ(styleOf(dialog->getBaseWidget()), 0x06CF0000U | WS_VISIBLE);
  MINMAXINFO limits{};
  SendMessageA(dialog->getBaseWidget(), WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
  EXPECT_EQ(limits.ptMinTrackSize.x, 100);
  EXPECT_EQ(limits.ptMinTrackSize.y, 50);
  EXPECT_EQ(limits.ptMaxTrackSize.x, 0x7FFFFFFF);
  EXPECT_EQ(limits.ptMaxTrackSize.y, 0x7FFFFFFF);
}

TEST_F(TopLevelDialogWindow, ResizableTakesABoundedMaxAndLeavesTheWindowInItsPlace) {
  auto* dialog = open(
      "TopLevelDialog { position 120 90 width 300 height 200 margin 5 DialogLabel { maxWidth 400 maxHeight 250 } }");
  dialog->resizable = FALSE;
  EXPECT_EQ(rectangleOf(dialog->getBaseWidget()), rectangle(120, 90, 300, 200));
  EXPECT_EQ(dialog->position.getValue(), NbVec2i32(120, 90));
  EXPECT_EQ(maxFieldsOf(dialog), NbVec2i32(410, 260));
  EXPECT_FALSE(dialog->maxWidth.isDefault() || dialog->maxHeight.isDefault());
}

TEST_F(TopLevelDialogWindow, ResizableDoesNotLookAtTheModalFrame) {
  auto* dialog = open("TopLevelDialog { modalFrame TRUE }");
  dialog->resizable = FALSE;
  EXPECT_EQ(styleOf(dialog->getBaseWidget()), 0x16C80000U);
}

TEST_F(TopLevelDialogWindow, ResizableOfAHiddenDialogShowsIt) {
  auto* dialog = open("TopLevelDialog { }", false);
  dialog->resizable = FALSE;
  EXPECT_TRUE(IsWindowVisible(dialog->getBaseWidget()));
}

// Sizes and places

TEST_F(TopLevelDialogWindow, IsAsLargeAsItsContentAndItsFrame) {
  auto* dialog = open(
      "TopLevelDialog { margin 7 rowSpacing 5 DialogLabel { width 200 height 40 } DialogLabel { width 150 height 30 } "
      "}");
  EXPECT_EQ(sizeFieldsOf(dialog), borderOf(dialog) + NbVec2i32(200 + 2 * 7, 40 + 5 + 30 + 2 * 7));
  EXPECT_EQ(sizeOf(dialog->getBaseWidget()), sizeFieldsOf(dialog));
  expectFilled(dialog);
}

TEST_F(TopLevelDialogWindow, HasTheSizeOfTheFileWithinTheLimits) {
  auto* large = open(std::string("TopLevelDialog { width 320 height 240 ") + kOneLabel + " }");
  EXPECT_EQ(sizeOf(large->getBaseWidget()), NbVec2i32(320, 240));
  auto* small = open("TopLevelDialog { width 20 DialogLabel { minWidth 150 } }");
  EXPECT_EQ(small->width.getValue(), 150 + borderOf(small)[0]);
  EXPECT_EQ(sizeOf(small->getBaseWidget()), sizeFieldsOf(small));
  auto* limited = open("TopLevelDialog { width 300 maxWidth 200 DialogLabel { } }");
  EXPECT_EQ(limited->width.getValue(), 200);
  EXPECT_EQ(limited->maxWidth.getValue(), 200);
}

TEST_F(TopLevelDialogWindow, LimitsOutOfOrderEndWithTheSystems) {
  auto* dialog = read<NkTopLevelDialog>("TopLevelDialog { minWidth 300 maxWidth 200 DialogLabel { } }");
  NbVec2i32 size, min, max;
  dialog->getSize(size, min, max);
  EXPECT_EQ(size[0], 200);
  NbVec2i32 offered(250, 0);
  NbVec2i32 corner(0, 0);
  dialog->buildWidget(nullptr, offered, corner, 1);
  // The field goes down to its max; the system then makes no window below its min.
  EXPECT_EQ(dialog->width.getValue(), 300);
  EXPECT_EQ(sizeOf(dialog->getBaseWidget())[0], 300);
}

TEST_F(TopLevelDialogWindow, NotResizableHasOneSize) {
  auto* dialog = open(std::string("TopLevelDialog { resizable FALSE width 300 ") + kOneLabel + " }");
  EXPECT_EQ(sizeOf(dialog->getBaseWidget()), sizeFieldsOf(dialog));
  EXPECT_EQ(dialog->width.getValue(), 300);
  EXPECT_EQ(minFieldsOf(dialog), sizeFieldsOf(dialog));
  EXPECT_EQ(maxFieldsOf(dialog), sizeFieldsOf(dialog));
  for (NkSFInt32* field : {&dialog->minWidth, &dialog->minHeight, &dialog->maxWidth, &dialog->maxHeight})
    EXPECT_TRUE(field->isDefault());
}

TEST_F(TopLevelDialogWindow, ASizeThatTheUserMakesIsWritten) {
  auto* dialog = open("TopLevelDialog { DialogLabel { } }");
  EXPECT_TRUE(dialog->width.isDefault() && dialog->height.isDefault() && dialog->maxHeight.isDefault());
  resize(dialog->getBaseWidget(), 333, dialog->height.getValue());
  EXPECT_FALSE(dialog->width.isDefault());
  EXPECT_TRUE(dialog->height.isDefault() && dialog->minWidth.isDefault() && dialog->maxWidth.isDefault());
}

TEST_F(TopLevelDialogWindow, ASizeThatTheUserMakesIsNotRecorded) {
  auto* dialog = open("TopLevelDialog { width 300 height 200 DialogLabel { } }");
  dialog->width = 310;
  dialog->minWidth = 250;
  resize(dialog->getBaseWidget(), 333, 222);
  EXPECT_EQ(sizeFieldsOf(dialog), NbVec2i32(333, 222));
  NbVec2i32 size, min, max;
  dialog->getDefaultState(size, min, max);
  EXPECT_EQ(size, NbVec2i32(310, 0));
  EXPECT_EQ(min[0], 250);
}

TEST_F(TopLevelDialogWindow, TheFirstBuildRecordsNoSizes) {
  auto* dialog = open(std::string("TopLevelDialog { width 320 height 240 ") + kOneLabel + " }");
  NbVec2i32 size(1, 1), min(1, 1), max(1, 1);
  dialog->getDefaultState(size, min, max);
  EXPECT_EQ(size, NbVec2i32(0, 0));
  EXPECT_EQ(min, NbVec2i32(0, 0));
  EXPECT_EQ(max, NbVec2i32(0, 0));
  EXPECT_TRUE(dialog->width.isDefault());
}

TEST_F(TopLevelDialogWindow, StandsWhereItIsToStand) {
  auto* dialog = open(std::string("TopLevelDialog { position 120 90 ") + kOneLabel + " }");
  EXPECT_EQ(dialog->position.getValue(), NbVec2i32(120, 90));
  EXPECT_EQ(rectangleOf(dialog->getBaseWidget()),
            rectangle(120, 90, dialog->width.getValue(), dialog->height.getValue()));
  dialog->position = NbVec2i32(40, 30);
  EXPECT_EQ(rectangleOf(dialog->getBaseWidget()),
            rectangle(40, 30, dialog->width.getValue(), dialog->height.getValue()));
}

TEST_F(TopLevelDialogWindow, APlaceInTheCornerIsNotWritten) {
  auto* dialog = open("TopLevelDialog { width 300 height 200 DialogLabel { } }");
  EXPECT_TRUE(dialog->position.isDefault());
  dialog->position = NbVec2i32(50, 60);
  EXPECT_FALSE(dialog->position.isDefault());
  dialog->setPosition(NbVec2i32(0, 0));
  EXPECT_TRUE(dialog->position.isDefault());
  // That was the window's own word: it doesn't move.
  EXPECT_EQ(outlineOf(dialog->getBaseWidget()).left, 50);
}

TEST_F(TopLevelDialogWindow, AMovedWindowTellsItsPlaceWithItsNextSize) {
  auto* dialog = open("TopLevelDialog { position 100 100 width 300 height 200 DialogLabel { } }");
  const RECT frame = outlineOf(dialog->getBaseWidget());
  drag(frame.left + 150, frame.top + GetSystemMetrics(SM_CYFRAME) + 8, 60, 40);
  EXPECT_EQ(rectangleOf(dialog->getBaseWidget()), rectangle(160, 140, 300, 200));
  EXPECT_EQ(dialog->position.getValue(), NbVec2i32(100, 100));
  resize(dialog->getBaseWidget(), 310, 200);
  EXPECT_EQ(dialog->position.getValue(), NbVec2i32(160, 140));
}

TEST_F(TopLevelDialogWindow, ANewChildLeavesAMovedWindowInItsPlace) {
  auto* dialog = open("TopLevelDialog { position 100 100 windowResizedByChildren TRUE DialogLabel { } }");
  SetWindowPos(dialog->getBaseWidget(), nullptr, 160, 140, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  add(dialog, "new");
  EXPECT_EQ(outlineOf(dialog->getBaseWidget()).left, 160);
  EXPECT_EQ(outlineOf(dialog->getBaseWidget()).top, 140);
  EXPECT_EQ(dialog->position.getValue(), NbVec2i32(160, 140));
}

TEST_F(TopLevelDialogWindow, APlaceIsOnlyTakenFromTheWindowInside) {
  auto* dialog = open("TopLevelDialog { position 100 100 width 300 height 200 DialogLabel { } }");
  const auto procedure = reinterpret_cast<WNDPROC>(GetWindowLongPtrA(dialog->getBaseWidget(), GWLP_WNDPROC));
  const LPARAM place = MAKELPARAM(static_cast<WORD>(-16), 123);
  CallWindowProcA(procedure, dialog->getBaseWidget(), WM_MOVE, 0, place);
  EXPECT_EQ(dialog->position.getValue(), NbVec2i32(100, 100));
  CallWindowProcA(procedure, dialog->getWidget(), WM_MOVE, 0, place);
  EXPECT_EQ(dialog->position.getValue(), NbVec2i32(-20, 100));
  EXPECT_EQ(outlineOf(dialog->getBaseWidget()).left, 100);
}

TEST_F(TopLevelDialogWindow, TheUserResizesItWithinItsLimits) {
  auto* dialog = open(
      "TopLevelDialog { position 100 100 width 300 height 200 minWidth 250 minHeight 150 maxWidth 400 maxHeight 260"
      " DialogLabel { auditorID \"label\" label \"text\" } }");
  auto* label = find<NkDialogLabel>(dialog, "label");
  const int labelWidth = label->width.getValue();
  const auto dragCorner = [&](int byX, int byY) {
    const RECT frame = outlineOf(dialog->getBaseWidget());
    drag(frame.right - 2, frame.bottom - 2, byX, byY);
  };
  dragCorner(40, 30);
  EXPECT_EQ(rectangleOf(dialog->getBaseWidget()), rectangle(100, 100, 340, 230));
  EXPECT_EQ(sizeFieldsOf(dialog), NbVec2i32(340, 230));
  EXPECT_EQ(label->width.getValue(), labelWidth + 40);
  expectFilled(dialog);
  // The system keeps the mouse within the largest window, whose last pixel it may not reach.
  dragCorner(300, 300);
  EXPECT_NEAR(dialog->width.getValue(), 400, 1);
  EXPECT_NEAR(dialog->height.getValue(), 260, 1);
  EXPECT_EQ(sizeFieldsOf(dialog), sizeOf(dialog->getBaseWidget()));
  resize(dialog->getBaseWidget(), 700, 700);
  EXPECT_EQ(sizeFieldsOf(dialog), NbVec2i32(400, 260));
  dragCorner(-300, -150);
  EXPECT_EQ(rectangleOf(dialog->getBaseWidget()), rectangle(100, 100, 250, 150));
  EXPECT_EQ(sizeFieldsOf(dialog), NbVec2i32(250, 150));
  EXPECT_EQ(minFieldsOf(dialog), NbVec2i32(250, 150));
  EXPECT_EQ(maxFieldsOf(dialog), NbVec2i32(400, 260));
}

TEST_F(TopLevelDialogWindow, LimitsThatChangeHoldForTheWindow) {
  auto* dialog = open("TopLevelDialog { width 300 height 200 DialogLabel { } }");
  dialog->minWidth = 280;
  dialog->maxWidth = 320;
  MINMAXINFO limits{};
  SendMessageA(dialog->getBaseWidget(), WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
  EXPECT_EQ(limits.ptMinTrackSize.x, 280);
  EXPECT_EQ(limits.ptMaxTrackSize.x, 320);
  NbVec2i32 size, min, max;
  dialog->getDefaultState(size, min, max);
  EXPECT_EQ(min[0], 280);
  EXPECT_EQ(max[0], 320);
}

TEST_F(TopLevelDialogWindow, AWidthFromTheApplicationMovesNothing) {
  auto* dialog = open("TopLevelDialog { width 300 height 200 DialogLabel { } }");
  dialog->width = 400;
  EXPECT_EQ(sizeOf(dialog->getBaseWidget()), NbVec2i32(300, 200));
  NbVec2i32 size, min, max;
  dialog->getDefaultState(size, min, max);
  EXPECT_EQ(size, NbVec2i32(400, 0));
}

TEST_F(TopLevelDialogWindow, MarginAndSpacingWaitForTheNextLayout) {
  auto* dialog =
      open("TopLevelDialog { width 300 height 300 DialogLabel { auditorID \"a\" } DialogLabel { auditorID \"b\" } }");
  auto* first = find<NkDialogLabel>(dialog, "a");
  auto* second = find<NkDialogLabel>(dialog, "b");
  const std::string before = rectangleOf(second->getWidget());
  dialog->margin = 10;
  dialog->rowSpacing = 20;
  EXPECT_EQ(rectangleOf(second->getWidget()), before);
  resize(dialog->getBaseWidget(), 310, 300);
  const NbVec2i32 content = NbVec2i32(310, 300) - borderOf(dialog);
  EXPECT_EQ(rectangleOf(first->getWidget()), rectangle(10, 10, content[0] - 20, first->height.getValue()));
  EXPECT_EQ(rectangleOf(second->getWidget()),
            rectangle(10, 10 + first->height.getValue() + 20, content[0] - 20, second->height.getValue()));
  EXPECT_EQ(first->height.getValue() + second->height.getValue(), content[1] - 2 * 10 - 20);
}

// The children

TEST_F(TopLevelDialogWindow, ANewChildShowsAtOnce) {
  auto* dialog = open("TopLevelDialog { width 300 height 300 rowSpacing 4 DialogLabel { auditorID \"a\" } }");
  auto* first = find<NkDialogLabel>(dialog, "a");
  const int wholeHeight = first->height.getValue();
  Control* control = add(dialog, "new");
  EXPECT_TRUE(IsWindowVisible(control->getControl()));
  EXPECT_EQ(GetParent(control->getWidget()), dialog->getWidget());
  EXPECT_EQ(sizeOf(dialog->getBaseWidget()), NbVec2i32(300, 300));
  EXPECT_EQ(first->height.getValue() + 4 + control->height.getValue(), wholeHeight);
  EXPECT_EQ(rectangleOf(control->getWidget()),
            rectangle(0, first->height.getValue() + 4, control->width.getValue(), control->height.getValue()));
}

TEST_F(TopLevelDialogWindow, AWindowResizedByItsChildrenFollowsThem) {
  auto* dialog = open("TopLevelDialog { width 300 height 300 windowResizedByChildren TRUE DialogLabel { } }");
  EXPECT_EQ(sizeOf(dialog->getBaseWidget()), NbVec2i32(300, 300));
  Control* control = add(dialog, "new");
  // The first build has recorded nothing, so that the content alone decides now.
  EXPECT_EQ(sizeFieldsOf(dialog), borderOf(dialog) + NbVec2i32(60, 25 + 30));
  EXPECT_EQ(sizeOf(dialog->getBaseWidget()), sizeFieldsOf(dialog));
  dialog->removeChild(control);
  EXPECT_EQ(dialog->height.getValue(), borderOf(dialog)[1] + 25);
}

TEST_F(TopLevelDialogWindow, AChildThatGoesTakesItsWindowsAlong) {
  auto* dialog = read<NkTopLevelDialog>("TopLevelDialog { width 300 height 300 }");
  const arbora::Ref<Control> control(add(dialog, "first"));
  Control* second = add(dialog, "second");
  dialog->buildDialog(nullptr, 0);
  dialog->show();
  const HWND frame = control->getWidget();
  dialog->removeChild(control.get());
  EXPECT_FALSE(IsWindow(frame));
  EXPECT_FALSE(IsWindow(control->getControl()));
  EXPECT_EQ(control->getWidget(), nullptr);
  EXPECT_EQ(outlineOf(second->getWidget()).top, outlineOf(dialog->getWidget()).top);
  dialog->replaceChild(second, control.get());
  EXPECT_TRUE(IsWindowVisible(control->getControl()));
  EXPECT_EQ(GetWindow(dialog->getWidget(), GW_CHILD), control->getWidget());
  EXPECT_EQ(GetWindow(control->getWidget(), GW_HWNDNEXT), nullptr);
  dialog->removeAllChildren();
  EXPECT_EQ(GetWindow(dialog->getWidget(), GW_CHILD), nullptr);
}

TEST_F(TopLevelDialogWindow, ChildrenComeAtTheirPlace) {
  auto* dialog = open("TopLevelDialog { width 300 height 300 DialogLabel { } }");
  Control* last = add(dialog, "last");
  EXPECT_GT(outlineOf(last->getWidget()).top, outlineOf(dialog->getWidget()).top);
  auto* first = new Control("first");
  dialog->insertChild(first, 0);
  EXPECT_LT(outlineOf(first->getWidget()).top, outlineOf(last->getWidget()).top);
}

TEST_F(TopLevelDialogWindow, AMenuBarHangsOnTheFrameAboveTheComponents) {
  class Bar : public NkMenuBar {
  public:
    void buildWidget(HWND parent, NbVec2i32& size, NbVec2i32& corner, int is2D) override {
      NkMenuBar::buildWidget(parent, size, corner, is2D);
      parentAtBuild = parent;
      sizeAtBuild = size;
      cornerAtBuild = corner;
    }
    HWND parentAtBuild = nullptr;
    NbVec2i32 sizeAtBuild, cornerAtBuild;
  };
  auto* dialog = read<NkTopLevelDialog>("TopLevelDialog { margin 7 rowSpacing 5 }");
  auto* bar = new Bar;
  dialog->addChild(bar);
  Control* first = add(dialog, "first");
  Control* second = add(dialog, "second");
  dialog->buildDialog(nullptr, 0);
  EXPECT_EQ(sizeFieldsOf(dialog),
            borderOf(dialog) + NbVec2i32(60 + 2 * 7, 30 + 5 + 30 + 2 * 7 + GetSystemMetrics(SM_CYMENU)));
  EXPECT_EQ(sizeOf(dialog->getBaseWidget()), sizeFieldsOf(dialog));
  EXPECT_EQ(bar->parentAtBuild, dialog->getBaseWidget());
  EXPECT_EQ(bar->sizeAtBuild, NbVec2i32(60, 0));
  EXPECT_EQ(bar->cornerAtBuild, NbVec2i32(7, 7));
  EXPECT_EQ(rectangleOf(first->getWidget()), rectangle(7, 7, 60, 30));
  EXPECT_EQ(rectangleOf(second->getWidget()), rectangle(7, 7 + 30 + 5, 60, 30));
}

// Showing and hiding

TEST_F(TopLevelDialogWindow, TheCloseBoxHidesIt) {
  auto* dialog = open("TopLevelDialog { label \"Close me\" width 300 height 200 DialogLabel { } }");
  Control* control = add(dialog, "control");
  const RECT frame = outlineOf(dialog->getBaseWidget());
  click(frame.right - GetSystemMetrics(SM_CXFRAME) - 8, frame.top + GetSystemMetrics(SM_CYFRAME) + 8);
  EXPECT_FALSE(IsWindowVisible(dialog->getBaseWidget()));
  EXPECT_TRUE(IsWindow(control->getControl()));
  dialog->show();
  EXPECT_TRUE(IsWindowVisible(control->getControl()));
  EXPECT_EQ(sizeOf(dialog->getBaseWidget()), NbVec2i32(300, 200));
}

TEST_F(TopLevelDialogWindow, OnlyTheCloseBoxIsKeptFromTheSystem) {
  auto* dialog = open("TopLevelDialog { }");
  SendMessageA(dialog->getBaseWidget(), WM_SYSCOMMAND, SC_CLOSE, 0);
  EXPECT_FALSE(IsWindowVisible(dialog->getBaseWidget()));
  dialog->show();
  SendMessageA(dialog->getBaseWidget(), WM_SYSCOMMAND, SC_MAXIMIZE, 0);
  EXPECT_TRUE(IsZoomed(dialog->getBaseWidget()));
}

TEST_F(TopLevelDialogWindow, ShowsAndHides) {
  auto* dialog = open("TopLevelDialog { }", false);
  EXPECT_FALSE(IsWindowVisible(dialog->getBaseWidget()));
  dialog->show();
  EXPECT_TRUE(IsWindowVisible(dialog->getBaseWidget()));
  EXPECT_EQ(NkWin::getActiveTopLevelWidget(), dialog->getBaseWidget());
  dialog->hide();
  EXPECT_FALSE(IsWindowVisible(dialog->getBaseWidget()));
}

TEST_F(TopLevelDialogWindow, BeforeItIsBuiltThereIsNothingToShow) {
  auto* dialog = read<NkTopLevelDialog>("TopLevelDialog { }");
  dialog->show();
  dialog->hide();
  EXPECT_EQ(dialog->destroyDialog(), 0);
  EXPECT_EQ(dialog->getBaseWidget(), nullptr);
  dialog->modalFrame = TRUE;
  dialog->resizable = FALSE;
  EXPECT_EQ(dialog->getBaseWidget(), nullptr);
}

TEST_F(TopLevelDialogWindow, CloseIsTheEndOfADialogThatNobodyElseHolds) {
  const int live = NkBase::getLiveCount();
  auto* dialog = new NkTopLevelDialog;
  dialog->ref();
  add(dialog, "control");
  dialog->buildDialog(nullptr, 0);
  dialog->show();
  const HWND base = dialog->getBaseWidget();
  dialog->close();
  EXPECT_EQ(NkBase::getLiveCount(), live);
  EXPECT_FALSE(IsWindow(base));
}

TEST_F(TopLevelDialogWindow, CloseHidesADialogThatSomebodyElseHolds) {
  auto* dialog = open("TopLevelDialog { }");
  dialog->ref();
  dialog->close();
  EXPECT_TRUE(IsWindow(dialog->getBaseWidget()));
  EXPECT_FALSE(IsWindowVisible(dialog->getBaseWidget()));
  dialog->show();
  EXPECT_TRUE(IsWindowVisible(dialog->getBaseWidget()));
}

TEST_F(TopLevelDialogWindow, MinimisingLaysNothingOut) {
  auto* dialog = open("TopLevelDialog { position 50 40 width 300 height 200 DialogLabel { auditorID \"a\" } }");
  auto* label = find<NkDialogLabel>(dialog, "a");
  const std::string before = rectangleOf(label->getWidget());
  SendMessageA(dialog->getBaseWidget(), WM_SYSCOMMAND, SC_MINIMIZE, 0);
  ASSERT_TRUE(IsIconic(dialog->getBaseWidget()));
  const RECT icon = outlineOf(dialog->getBaseWidget());
  EXPECT_EQ(sizeFieldsOf(dialog), sizeOf(dialog->getBaseWidget()));
  EXPECT_EQ(dialog->position.getValue(), NbVec2i32(icon.left, icon.top));
  EXPECT_NE(sizeFieldsOf(dialog), NbVec2i32(300, 200));
  EXPECT_EQ(rectangleOf(label->getWidget()), before);
  dialog->show();
  EXPECT_EQ(sizeFieldsOf(dialog), NbVec2i32(300, 200));
  EXPECT_EQ(dialog->position.getValue(), NbVec2i32(50, 40));
  EXPECT_EQ(rectangleOf(label->getWidget()), before);
}

TEST_F(TopLevelDialogWindow, RebuildsWhatTheSystemHasDestroyed) {
  auto* dialog = open("TopLevelDialog { label \"again\" width 300 height 200 DialogLabel { } }");
  Control* control = add(dialog, "control");
  DestroyWindow(dialog->getBaseWidget());
  dialog->show();
  dialog->buildDialog(nullptr, 0);
  dialog->show();
  EXPECT_EQ(textOf(dialog->getBaseWidget()), "again");
  EXPECT_EQ(sizeOf(dialog->getBaseWidget()), NbVec2i32(300, 200));
  EXPECT_TRUE(IsWindowVisible(control->getControl()));
}

// Adoption

TEST_F(TopLevelDialogWindow, AnAdoptedWindowBecomesTheFrame) {
  const HWND application = makeApplicationWindow();
  {
    const arbora::Ref<NkTopLevelDialog> dialog(new NkTopLevelDialog);
    dialog->label = "adopted";
    Control* control = add(dialog.get(), "control");
    dialog->buildDialog(application, 1);
    EXPECT_EQ(dialog->getBaseWidget(), application);
    EXPECT_EQ(textOf(application), "adopted");
    EXPECT_EQ(styleOf(application), 0x06CF0000U);
    EXPECT_EQ(extendedStyleOf(application), 256U);
    EXPECT_EQ(GetWindowLongPtrA(application, GWLP_USERDATA), reinterpret_cast<LONG_PTR>(dialog.get()));
    EXPECT_EQ(GetParent(dialog->getWidget()), application);
    // Showing is the application's affair.
    dialog->show();
    EXPECT_FALSE(IsWindowVisible(application));
    ShowWindow(application, SW_SHOW);
    dialog->hide();
    EXPECT_TRUE(IsWindowVisible(control->getControl()));
    resize(application, 333, 222);
    EXPECT_EQ(sizeFieldsOf(dialog.get()), NbVec2i32(333, 222));
  }
  EXPECT_TRUE(IsWindow(application));
  EXPECT_EQ(GetWindow(application, GW_CHILD), nullptr);
  EXPECT_EQ(GetWindowLongPtrA(application, GWLP_USERDATA), 0);
  resize(application, 320, 200);
}

TEST_F(TopLevelDialogWindow, TheCloseBoxOfAnAdoptedWindowEndsTheMessageLoop) {
  const HWND application = makeApplicationWindow();
  auto* dialog = read<NkTopLevelDialog>("TopLevelDialog { }");
  dialog->buildDialog(application, 1);
  ShowWindow(application, SW_SHOW);
  desktop::serveAWhile();
  PostMessageA(application, WM_SYSCOMMAND, SC_CLOSE, 0);
  MSG message{};
  int result = 1;
  while ((result = GetMessageA(&message, nullptr, 0, 0)) > 0) DispatchMessageA(&message);
  EXPECT_EQ(result, 0);
  EXPECT_EQ(message.wParam, 0U);
  EXPECT_TRUE(IsWindowVisible(application));
}

// Texts and enabling

TEST_F(TopLevelDialogWindow, TheLabelIsTheTitle) {
  auto* dialog = open("TopLevelDialog { label \"before\" }");
  dialog->label = NbString("after \\n it");
  EXPECT_EQ(textOf(dialog->getBaseWidget()), "after \\n it");
  wchar_t text[20] = L"";
  dialog->label = NbString("M\xFCnchen");
  GetWindowTextW(dialog->getBaseWidget(), text, 20);
  EXPECT_STREQ(text, L"M\u00FCnchen");
  // A wide text goes through its bytes.
  dialog->label = NbString(L"M\u00FCnchen \u0416");
  GetWindowTextW(dialog->getBaseWidget(), text, 20);
  EXPECT_EQ(std::wstring(text).substr(0, 8), L"M\u00FCnchen ");
  EXPECT_EQ(textOf(dialog->getBaseWidget()), dialog->label.getValue().toLatin1());
}

TEST_F(TopLevelDialogWindow, EnableHoldsForBothWindows) {
  auto* dialog = open("TopLevelDialog { }");
  dialog->enable = FALSE;
  EXPECT_FALSE(IsWindowEnabled(dialog->getBaseWidget()));
  EXPECT_FALSE(IsWindowEnabled(dialog->getWidget()));
  dialog->enable = TRUE;
  EXPECT_TRUE(IsWindowEnabled(dialog->getBaseWidget()));
  EXPECT_TRUE(IsWindowEnabled(dialog->getWidget()));
}

TEST_F(TopLevelDialogWindow, EnableTellsTheFrameFirst) {
  auto* dialog = open("TopLevelDialog { }");
  MessageLog log({{dialog->getBaseWidget(), "base"}, {dialog->getWidget(), "inside"}}, {{WM_ENABLE, "enable"}});
  dialog->enable = FALSE;
  EXPECT_EQ(log.take(), "base enable, inside enable");
}

// Keys

// The tab order of the system is that of the stacking, in which each child comes above the one before it: the last is
// the first, and Tab, which walks backwards in it, walks down the dialog.

TEST_F(TopLevelDialogWindow, TheControlAtTheTopOfTheStackHasTheFocusFirst) {
  auto* dialog = read<NkTopLevelDialog>("TopLevelDialog { DialogLabel { label \"text\" } }");
  add(dialog, "first");
  Control* last = add(dialog, "last");
  dialog->buildDialog(nullptr, 0);
  EXPECT_EQ(GetWindow(dialog->getWidget(), GW_CHILD), last->getWidget());
  EXPECT_EQ(dialog->getCurrentFocusedWidget(), last->getControl());
  EXPECT_EQ(dialog->getCurrentScrolledWidget(), dialog->getWidget());
}

TEST_F(TopLevelDialogWindow, ASecondBuildLeavesTheFocusedControl) {
  auto* dialog = read<NkTopLevelDialog>("TopLevelDialog { }");
  Control* first = add(dialog, "first");
  add(dialog, "last");
  dialog->buildDialog(nullptr, 0);
  dialog->setCurrentFocusedWidget(first->getControl());
  dialog->buildDialog(nullptr, 0);
  EXPECT_EQ(dialog->getCurrentFocusedWidget(), first->getControl());
}

TEST_F(TopLevelDialogWindow, TabWalksDownTheDialogAndShiftTabUp) {
  auto* dialog = read<NkTopLevelDialog>("TopLevelDialog { position 100 100 width 300 height 250 }");
  Control* above[] = {add(dialog, "first"), add(dialog, "second"), add(dialog, "third")};
  auto* row = new NkRowDialog;
  auto* inRow = new Control("in a row");
  row->addChild(inRow);
  dialog->addChild(row);
  dialog->buildDialog(nullptr, 0);
  dialog->show();
  // The keyboard is surely the dialog's once its user has clicked on it.
  click(200, 100 + GetSystemMetrics(SM_CYFRAME) + 8);
  SetFocus(dialog->getCurrentFocusedWidget());
  ASSERT_EQ(GetFocus(), inRow->getControl());
  const auto expectAfter = [&](const char* keys, Control* control) {
    EXPECT_TRUE(desktop::act(keys));
    EXPECT_EQ(textOf(GetFocus()), textOf(control->getControl())) << keys;
    EXPECT_EQ(dialog->getCurrentFocusedWidget(), GetFocus());
  };
  expectAfter("key Tab", above[0]);
  expectAfter("key Tab", above[1]);
  expectAfter("key Tab", above[2]);
  expectAfter("key Tab", inRow);
  expectAfter("key shift+Tab", above[2]);
  expectAfter("keydown shift key Tab key Tab keyup shift", above[0]);
  expectAfter("key Tab", above[1]);
  // The walk goes on from the control that the user acted on last.
  dialog->setCurrentFocusedWidget(inRow->getControl());
  expectAfter("key Tab", above[0]);
}

TEST_F(TopLevelDialogWindow, BothWindowsTakeTheTabKey) {
  auto* dialog = read<NkTopLevelDialog>("TopLevelDialog { }");
  const Control* first = add(dialog, "first");
  const Control* second = add(dialog, "second");
  add(dialog, "third");
  dialog->buildDialog(nullptr, 0);
  dialog->show();
  const auto press = [](HWND window, WPARAM key) { SendMessageA(window, WM_KEYDOWN, key, 0); };
  press(dialog->getBaseWidget(), VK_TAB);
  EXPECT_EQ(dialog->getCurrentFocusedWidget(), first->getControl());
  press(dialog->getWidget(), VK_TAB);
  EXPECT_EQ(dialog->getCurrentFocusedWidget(), second->getControl());
  press(dialog->getWidget(), VK_RETURN);
  EXPECT_EQ(dialog->getCurrentFocusedWidget(), second->getControl());
  press(dialog->getWidget(), VK_SHIFT);
  press(dialog->getWidget(), VK_TAB);
  EXPECT_EQ(dialog->getCurrentFocusedWidget(), first->getControl());
  SendMessageA(dialog->getWidget(), WM_KEYUP, VK_SHIFT, 0);
  press(dialog->getWidget(), VK_TAB);
  EXPECT_EQ(dialog->getCurrentFocusedWidget(), second->getControl());
}

TEST_F(TopLevelDialogWindow, AShiftKeyHoldsForAllDialogs) {
  auto* pressed = open("TopLevelDialog { }");
  auto* dialog = read<NkTopLevelDialog>("TopLevelDialog { }");
  const Control* first = add(dialog, "first");
  const Control* second = add(dialog, "second");
  add(dialog, "third");
  dialog->buildDialog(nullptr, 0);
  SendMessageA(pressed->getBaseWidget(), WM_KEYDOWN, VK_SHIFT, 0);
  dialog->setCurrentFocusedWidget(second->getControl());
  SendMessageA(dialog->getBaseWidget(), WM_KEYDOWN, VK_TAB, 0);
  EXPECT_EQ(dialog->getCurrentFocusedWidget(), first->getControl());
  SendMessageA(pressed->getBaseWidget(), WM_KEYUP, VK_SHIFT, 0);
  SendMessageA(dialog->getBaseWidget(), WM_KEYDOWN, VK_TAB, 0);
  EXPECT_EQ(dialog->getCurrentFocusedWidget(), second->getControl());
}

TEST_F(TopLevelDialogWindow, AShiftKeyThatIsReleasedElsewhereStaysDown) {
  auto* dialog = read<NkTopLevelDialog>("TopLevelDialog { position 100 100 width 300 height 250 }");
  add(dialog, "first");
  const Control* second = add(dialog, "second");
  const Control* third = add(dialog, "third");
  dialog->buildDialog(nullptr, 0);
  dialog->show();
  click(200, 100 + GetSystemMetrics(SM_CYFRAME) + 8);
  SetFocus(third->getControl());
  EXPECT_TRUE(desktop::act("keydown shift"));
  const HWND application = makeApplicationWindow();
  ShowWindow(application, SW_SHOW);
  SetFocus(application);
  EXPECT_TRUE(desktop::act("keyup shift"));
  SetFocus(third->getControl());
  EXPECT_TRUE(desktop::act("key Tab"));
  EXPECT_EQ(textOf(GetFocus()), textOf(second->getControl()));
  EXPECT_TRUE(desktop::act("keydown shift keyup shift key Tab"));
  EXPECT_EQ(textOf(GetFocus()), textOf(third->getControl()));
}

TEST_F(TopLevelDialogWindow, ACommandOfAMenuEntryIsTheEntrys) {
  class Entry : public NkMenuItem {
  public:
    void menuEvent(void* menu, int id) override { events.emplace_back(menu, id); }
    std::vector<std::pair<void*, int>> events;
  };
  auto* dialog = open("TopLevelDialog { }");
  const arbora::Ref<Entry> entry(new Entry);
  const HMENU menu = CreateMenu();
  const auto insert = [menu](UINT id, NkMenuItem* item, HMENU submenu) {
    MENUITEMINFOA info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_ID | MIIM_SUBMENU | MIIM_DATA;
    info.wID = id;
    info.hSubMenu = submenu;
    info.dwItemData = reinterpret_cast<ULONG_PTR>(item);
    EXPECT_TRUE(InsertMenuItemA(menu, 0, TRUE, &info));
  };
  insert(7, entry.get(), nullptr);
  insert(8, entry.get(), CreatePopupMenu());
  insert(9, nullptr, nullptr);
  SetMenu(dialog->getBaseWidget(), menu);
  for (const int id : {7, 8, 9}) EXPECT_EQ(SendMessageA(dialog->getBaseWidget(), WM_COMMAND, MAKEWPARAM(id, 1), 0), 0);
  EXPECT_EQ(entry->events, (std::vector<std::pair<void*, int>>{{menu, 7}}));
}

TEST_F(TopLevelDialogWindow, ACommandOfNoMenuIsTaken) {
  auto* dialog = open("TopLevelDialog { }");
  EXPECT_EQ(SendMessageA(dialog->getBaseWidget(), WM_COMMAND, 12345, 0), 0);
}

// Failures

TEST_F(TopLevelDialogWindow, WithoutAFrameThereIsNothingInside) {
  auto* dialog = read<NkTopLevelDialog>("TopLevelDialog { label \"text\" width 300 height 200 DialogLabel { } }");
  {
    const WindowRefusal refusal("NkTopLevelDialogBase");
    dialog->buildDialog(nullptr, 0);
  }
  EXPECT_EQ(takeErrors(), (std::vector<std::string>{"NkTopLevelDialog Error: Create Base Window failed",
                                                    "NkTopLevelDialog Error: Create TopLevel Window failed"}));
  EXPECT_EQ(dialog->getBaseWidget(), nullptr);
  EXPECT_EQ(dialog->width.getValue(), 300);
  dialog->show();
  // The next build tries again.
  dialog->buildDialog(nullptr, 0);
  EXPECT_TRUE(IsWindow(dialog->getWidget()));
  EXPECT_EQ(textOf(dialog->getBaseWidget()), "text");
}

TEST_F(TopLevelDialogWindow, AMissingWindowInsideIsTold) {
  auto* dialog = read<NkTopLevelDialog>("TopLevelDialog { width 300 height 200 DialogLabel { } }");
  {
    const WindowRefusal refusal("NkTopLevelDialog");
    dialog->buildDialog(makeApplicationWindow(), 1);
  }
  EXPECT_EQ(takeErrors(), std::vector<std::string>{"NkTopLevelDialog Error: Create TopLevel Window failed"});
  EXPECT_EQ(sizeOf(dialog->getBaseWidget()), NbVec2i32(300, 200));
}
