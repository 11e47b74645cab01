#include "Panelix/NkDialogComponent.h"

#include "Panelix/NkRowDialog.h"
#include "tests/desktop/Control_win.h"
#include "tests/desktop/DesktopTest_win.h"

namespace {

/// While it lives it notes the windows that are told that they are created, and not by the system.
class CreationLog {
public:
  CreationLog() : m_hook(SetWindowsHookExA(WH_CALLWNDPROC, note, nullptr, GetCurrentThreadId())) { s_told.clear(); }
  ~CreationLog() { UnhookWindowsHookEx(m_hook); }
  CreationLog(const CreationLog&) = delete;
  CreationLog& operator=(const CreationLog&) = delete;

  static const std::vector<HWND>& told() { return s_told; }

private:
  static LRESULT CALLBACK note(int code, WPARAM wParam, LPARAM lParam) {
    const auto* sent = reinterpret_cast<CWPSTRUCT*>(lParam);
    if (code == HC_ACTION && sent->message == WM_CREATE && !sent->lParam) s_told.push_back(sent->hwnd);
    return CallNextHookEx(nullptr, code, wParam, lParam);
  }

  static inline std::vector<HWND> s_told;
  HHOOK m_hook;
};

class ComponentWindow : public DesktopTest {
protected:
  /// A control in a window of the application, without a dialog.
  arbora::Ref<Control> build(const arbora::Ref<Control>& control, NbVec2i32 size = NbVec2i32(0, 0),
                             NbVec2i32 position = NbVec2i32(0, 0)) {
    if (!m_application) {
      m_application = makeApplicationWindow();
      ShowWindow(m_application, SW_SHOW);
    }
    control->buildWidget(m_application, size, position, 1);
    return control;
  }
  static NbVec2i32 sizeFieldsOf(const arbora::Ref<Control>& control) {
    return NbVec2i32(control->width.getValue(), control->height.getValue());
  }

  HWND m_application = nullptr;
};

} // namespace

TEST_F(ComponentWindow, IsAFrame) {
  const auto control = build(new Control, NbVec2i32(0, 0), NbVec2i32(12, 34));
  const HWND frame = control->getWidget();
  EXPECT_EQ(classOf(frame), "NkDialogComponent");
  EXPECT_EQ(textOf(frame), "NkDialogComponent");
  EXPECT_EQ(GetParent(frame), m_application);
  EXPECT_EQ(styleOf(frame), 0x56000000U);
  EXPECT_EQ(extendedStyleOf(frame), 0x10000U);
  EXPECT_EQ(GetClassLongPtrA(frame, GCL_STYLE), 0x83U);
  EXPECT_EQ(GetClassLongPtrA(frame, GCL_CBWNDEXTRA), 8U);
  EXPECT_EQ(GetClassLongPtrA(frame, GCL_CBCLSEXTRA), 0U);
  EXPECT_EQ(GetClassLongPtrA(frame, GCLP_HICON), 0U);
  EXPECT_EQ(GetClassLongPtrA(frame, GCLP_HCURSOR), reinterpret_cast<ULONG_PTR>(LoadCursorA(nullptr, IDC_ARROW)));
  EXPECT_EQ(GetClassLongPtrA(frame, GCLP_HMODULE), reinterpret_cast<ULONG_PTR>(NkWin::getInstance()));
  EXPECT_EQ(GetWindowLongPtrA(frame, GWLP_USERDATA), reinterpret_cast<LONG_PTR>(control.get()));
  EXPECT_EQ(rectangleOf(frame), rectangle(12, 34, 60, 30));
  EXPECT_EQ(control->getLabelWidget(), nullptr);
}

TEST_F(ComponentWindow, TheEdgeIsTheFramesStyle) {
  const auto control = build(new Control("button", NbVec2i32(106, 56)));
  const auto expectLook = [&](int edge, DWORD extended, const std::string& area) {
    control->edgeStyle = edge;
    EXPECT_EQ(extendedStyleOf(control->getWidget()) & ~static_cast<DWORD>(WS_EX_WINDOWEDGE), extended);
    build(control);
    EXPECT_EQ(rectangleOf(control->getControl()), area);
    EXPECT_EQ(rectangleOf(control->getWidget()), rectangle(0, 0, 106, 56));
  };
  control->labelVisibility = FALSE;
  expectLook(NkDialogComponent::SHADOW_IN, 0x30000, rectangle(2, 2, 100, 50));
  expectLook(NkDialogComponent::SHADOW_OUT, 0x10001, rectangle(0, 0, 100, 50));
  expectLook(NkDialogComponent::NONE, 0x10000, rectangle(3, 3, 100, 50));
}

TEST_F(ComponentWindow, TheEdgeOfTheFileIsThereFromTheStart) {
  const arbora::Ref<Control> control(new Control);
  control->edgeStyle = NkDialogComponent::SHADOW_IN;
  build(control);
  EXPECT_EQ(extendedStyleOf(control->getWidget()), 0x30000U);
  // The area is where the system lets it begin: inside the edge.
  RECT area{};
  GetClientRect(control->getWidget(), &area);
  EXPECT_EQ(sizeOf(control->getWidget()) - NbVec2i32(area.right, area.bottom), NbVec2i32(2, 2));
}

TEST_F(ComponentWindow, AnotherEdgeTakesItsRoomAtOnce) {
  const auto control = build(new Control);
  const auto widthTaken = [&](int edge) {
    control->edgeStyle = edge;
    RECT area{};
    GetClientRect(control->getWidget(), &area);
    return sizeOf(control->getWidget())[0] - static_cast<int>(area.right);
  };
  EXPECT_EQ(widthTaken(NkDialogComponent::SHADOW_IN), 2);
  EXPECT_EQ(widthTaken(NkDialogComponent::SHADOW_OUT), 6);
  EXPECT_EQ(widthTaken(NkDialogComponent::NONE), 0);
}

TEST_F(ComponentWindow, TheLabelTakesRoomAtTheLeft) {
  const arbora::Ref<Control> control(new Control("button", NbVec2i32(206, 36)));
  build(control);
  NbVec2i32 label(50, 10);
  control->setLabelSize(label);
  NbVec2i32 size, position;
  control->get2DComponentSize(size, position);
  EXPECT_EQ(size, NbVec2i32(200 - 52, 30));
  EXPECT_EQ(position, NbVec2i32(3 + 52, 3));
  control->labelVisibility = FALSE;
  control->get2DComponentSize(size, position);
  EXPECT_EQ(size, NbVec2i32(200, 30));
  EXPECT_EQ(position, NbVec2i32(3, 3));
}

// Sizes

TEST_F(ComponentWindow, AComponentOfItsOwnMeasuresItself) {
  const arbora::Ref<Control> control(new Control);
  control->label = "some label";
  build(control);
  EXPECT_GT(control->numLabelsAsked, 0);
  NbVec2i32 size, position;
  control->get2DComponentSize(size, position);
  EXPECT_EQ(position[0], 3 + 2 + NkPanelix::getLabelPixelSize("some label", nullptr)[0]);

  const arbora::Ref<NkRowDialog> row(new NkRowDialog);
  auto* inside = new Control;
  row->addChild(inside);
  NbVec2i32 none(0, 0);
  row->buildWidget(m_application, none, none, 1);
  // In a parent it is told.
  inside->numLabelsAsked = 0;
  inside->buildWidget(row->getWidget(), none, none, 1);
  EXPECT_EQ(inside->numLabelsAsked, 0);
}

TEST_F(ComponentWindow, TheDefaultsAreOnlyAskedForWhatIsMissing) {
  const arbora::Ref<Control> control(new Control);
  for (NkSFInt32* field : {&control->width, &control->height, &control->minWidth, &control->minHeight,
                           &control->maxWidth, &control->maxHeight})
    *field = 70;
  NbVec2i32 size, min, max;
  control->getSize(size, min, max);
  EXPECT_EQ(control->numSizesAsked, 0);
  EXPECT_EQ(size, NbVec2i32(70, 70));
  control->maxHeight = 0;
  control->getSize(size, min, max);
  EXPECT_EQ(control->numSizesAsked, 1);
  EXPECT_EQ(max, NbVec2i32(70, 1000));
}

TEST_F(ComponentWindow, LimitsOutOfOrder) {
  const arbora::Ref<Control> control(new Control);
  control->minWidth = 300;
  control->maxWidth = 200;
  control->width = 250;
  NbVec2i32 size, min, max;
  control->getSize(size, min, max);
  EXPECT_EQ(size[0], 200);
  EXPECT_EQ(min[0], 300);
  EXPECT_EQ(max[0], 200);
  build(control, NbVec2i32(250, 0));
  EXPECT_EQ(rectangleOf(control->getWidget()), rectangle(0, 0, 300, 30));
}

TEST_F(ComponentWindow, AnOfferedSizeIsHeldWithinTheLimits) {
  const auto control = build(new Control, NbVec2i32(2000, 5));
  EXPECT_EQ(rectangleOf(control->getWidget()), rectangle(0, 0, 1000, 10));
  build(control, NbVec2i32(0, 50), NbVec2i32(-5, 7));
  EXPECT_EQ(rectangleOf(control->getWidget()), rectangle(-5, 7, 1000, 50));
}

TEST_F(ComponentWindow, AFixedSizeIsItsOwnLimit) {
  const arbora::Ref<Control> control(new Control);
  control->fixedWidth = TRUE;
  build(control, NbVec2i32(0, 40));
  EXPECT_EQ(sizeFieldsOf(control), NbVec2i32(60, 40));
  EXPECT_EQ(control->minWidth.getValue(), 60);
  EXPECT_EQ(control->maxWidth.getValue(), 60);
  EXPECT_TRUE(control->minWidth.isDefault() && control->maxWidth.isDefault());
  EXPECT_EQ(control->maxHeight.getValue(), 1000);
}

TEST_F(ComponentWindow, NegotiatedSizesAreNotWritten) {
  const arbora::Ref<Control> control(new Control);
  control->height = 44;
  control->maxWidth = 0x7FFFFFFF;
  control->maxHeight = 500;
  build(control);
  EXPECT_TRUE(control->width.isDefault());
  EXPECT_FALSE(control->height.isDefault());
  EXPECT_TRUE(control->minWidth.isDefault());
  EXPECT_TRUE(control->maxWidth.isDefault());
  EXPECT_FALSE(control->maxHeight.isDefault());
  NbVec2i32 size, min, max;
  control->getDefaultState(size, min, max);
  EXPECT_EQ(size, NbVec2i32(0, 44));
  EXPECT_EQ(max, NbVec2i32(0x7FFFFFFF, 500));
  // Of the application's own changes the state is told, and no window moves.
  control->width = 80;
  control->minHeight = 20;
  control->getDefaultState(size, min, max);
  EXPECT_EQ(size, NbVec2i32(80, 44));
  EXPECT_EQ(min, NbVec2i32(10, 20));
  EXPECT_EQ(sizeOf(control->getWidget()), NbVec2i32(60, 44));
  build(control);
  EXPECT_EQ(sizeOf(control->getWidget()), NbVec2i32(80, 44));
  EXPECT_FALSE(control->width.isDefault());
}

TEST_F(ComponentWindow, AResetGoesBackToTheDefaults) {
  const arbora::Ref<Control> control(new Control);
  control->width = 300;
  build(control);
  control->resetSize();
  EXPECT_EQ(sizeFieldsOf(control), NbVec2i32(0, 0));
  EXPECT_EQ(control->minWidth.getValue(), 10);
  build(control);
  EXPECT_EQ(sizeOf(control->getWidget()), NbVec2i32(60, 30));
}

// Lifecycle

TEST_F(ComponentWindow, ASecondBuildOnlyMovesIt) {
  const auto control = build(new Control);
  const HWND frame = control->getWidget();
  const HWND button = control->getControl();
  build(control, NbVec2i32(90, 40), NbVec2i32(5, 6));
  EXPECT_EQ(control->getWidget(), frame);
  EXPECT_EQ(control->getControl(), button);
  EXPECT_EQ(rectangleOf(frame), rectangle(5, 6, 90, 40));
}

TEST_F(ComponentWindow, ItsWindowsGoAndComeBack) {
  const auto control = build(new Control);
  const HWND frame = control->getWidget();
  control->destroyWidget();
  EXPECT_FALSE(IsWindow(frame));
  EXPECT_EQ(control->getWidget(), nullptr);
  // Changes of a component without windows touch none.
  control->enable = FALSE;
  control->edgeStyle = NkDialogComponent::SHADOW_OUT;
  build(control);
  EXPECT_TRUE(IsWindow(control->getControl()));
  EXPECT_FALSE(IsWindowEnabled(control->getWidget()));
  EXPECT_EQ(extendedStyleOf(control->getWidget()) & 1U, 1U);
  // Nor does the end of a window that the system has destroyed.
  DestroyWindow(control->getWidget());
  control->destroyWidget();
}

TEST_F(ComponentWindow, EnableIsTheFrames) {
  const arbora::Ref<Control> control(new Control);
  control->enable = FALSE;
  build(control);
  EXPECT_FALSE(IsWindowEnabled(control->getWidget()));
  control->enable = TRUE;
  EXPECT_TRUE(IsWindowEnabled(control->getWidget()));
  control->changeWidgetEnable(0);
  EXPECT_FALSE(IsWindowEnabled(control->getWidget()));
  control->changeWidgetEnable(1);
  EXPECT_TRUE(IsWindowEnabled(control->getWidget()));
  control->enable = FALSE;
  control->changeWidgetEnable(1);
  EXPECT_FALSE(IsWindowEnabled(control->getWidget()));
}

TEST_F(ComponentWindow, AWindowThatCannotBeMadeIsTold) {
  const arbora::Ref<Control> control(new Control);
  {
    const WindowRefusal refusal("NkDialogComponent");
    build(control);
  }
  EXPECT_EQ(takeErrors(), std::vector<std::string>{"NkDialogComponent Error: CreateWindow failed"});
  EXPECT_EQ(sizeFieldsOf(control), NbVec2i32(60, 30));
  build(control);
  EXPECT_TRUE(IsWindow(control->getControl()));
}

TEST_F(ComponentWindow, AGroupIsToldThatItsWindowIsThere) {
  const arbora::Ref<NkRowDialog> row(new NkRowDialog);
  row->addChild(new Control);
  NbVec2i32 none(0, 0);
  const CreationLog log;
  row->buildWidget(makeApplicationWindow(), none, none, 1);
  EXPECT_EQ(CreationLog::told(), std::vector<HWND>{row->getWidget()});
}

// Messages

TEST_F(ComponentWindow, TellsOfTheControlsMessages) {
  const auto control = build(new Control);
  const HWND frame = control->getWidget();
  EXPECT_EQ(SendMessageA(frame, WM_COMMAND, MAKEWPARAM(7, 9), 1234567890123), 0);
  EXPECT_EQ(SendMessageA(frame, WM_NOTIFY, 5, 42), 0);
  EXPECT_EQ(SendMessageA(frame, WM_DRAWITEM, 5, 43), 0);
  EXPECT_EQ(SendMessageA(frame, WM_HSCROLL, MAKEWPARAM(SB_PAGEDOWN, 8), 0), 0);
  EXPECT_EQ(SendMessageA(frame, WM_VSCROLL, SB_LINEDOWN, 0), 0);
  EXPECT_EQ(control->notes,
            (std::vector<std::string>{"9 1234567890123", std::to_string(WM_NOTIFY) + " 42",
                                      std::to_string(WM_HSCROLL) + " " + std::to_string(SB_PAGEDOWN | 8 << 16)}));
}

TEST_F(ComponentWindow, AFrameWithoutItsComponentIsTheSystems) {
  const auto control = build(new Control);
  const HWND frame = control->getWidget();
  const LONG_PTR component = SetWindowLongPtrA(frame, GWLP_USERDATA, 0);
  SendMessageA(frame, WM_COMMAND, MAKEWPARAM(7, 9), 0);
  SendMessageA(frame, WM_SETTEXT, 0, reinterpret_cast<LPARAM>("text"));
  SetWindowLongPtrA(frame, GWLP_USERDATA, component);
  EXPECT_TRUE(control->notes.empty());
  EXPECT_EQ(textOf(frame), "text");
}

TEST_F(ComponentWindow, TheUsersClickComesAsTheControlsNotification) {
  const auto control = build(new Control);
  desktop::serveAWhile();
  const RECT button = outlineOf(control->getControl());
  click((button.left + button.right) / 2, (button.top + button.bottom) / 2);
  const std::string clicked =
      std::to_string(BN_CLICKED) + " " + std::to_string(reinterpret_cast<std::uint64_t>(control->getControl()));
  EXPECT_EQ(control->notes, std::vector<std::string>{clicked});
  // A disabled one takes no input.
  control->enable = FALSE;
  click((button.left + button.right) / 2, (button.top + button.bottom) / 2);
  EXPECT_EQ(control->notes.size(), 1U);
}
