#include <utility>

#include "Panelix/NkColumnDialog.h"
#include "Panelix/NkDialogLabel.h"
#include "Panelix/NkDialogSeparator.h"
#include "Panelix/NkRowDialog.h"
#include "tests/desktop/Control_win.h"
#include "tests/desktop/DesktopTest_win.h"
#include "tests/desktop/MessageLog_win.h"

// Windows that come and go. The runner counts nodes, windows and drawing objects around each test.

namespace {

class WindowLifetime : public DesktopTest {
protected:
  /// A dialog with a control in a row; the only reference is the caller's.
  static arbora::Ref<NkTopLevelDialog> makeDialog(Control*& control) {
    arbora::Ref<NkTopLevelDialog> dialog(new NkTopLevelDialog);
    auto* row = new NkRowDialog;
    control = new Control;
    row->addChild(control);
    dialog->addChild(row);
    dialog->addChild(new NkDialogLabel);
    dialog->buildDialog(nullptr, 0);
    return dialog;
  }
  static void notify(Control* control) {
    SendMessageA(control->getWidget(), WM_COMMAND, MAKEWPARAM(0, BN_CLICKED),
                 reinterpret_cast<LPARAM>(control->getControl()));
  }
};

} // namespace

TEST_F(WindowLifetime, AThousandDialogsLeaveNothing) {
  for (int i = 0; i < 1000; ++i) {
    const arbora::Ref<NkTopLevelDialog> dialog(new NkTopLevelDialog);
    auto* row = new NkRowDialog;
    row->addChild(new NkDialogLabel);
    row->addChild(new NkDialogSeparator);
    dialog->addChild(row);
    dialog->buildDialog(nullptr, 0);
    ASSERT_TRUE(IsWindow(dialog->getWidget())) << i;
  }
}

TEST_F(WindowLifetime, AThousandChildrenComeAndGo) {
  auto* dialog = open("TopLevelDialog { width 300 height 200 RowDialog { auditorID \"row\" } }");
  auto* row = find<NkRowDialog>(dialog, "row");
  for (int i = 0; i < 1000; ++i) {
    row->addChild(new NkDialogLabel);
    ASSERT_TRUE(IsWindow(row->getChild(0)->getWidget())) << i;
    row->removeChild(0);
  }
  EXPECT_EQ(GetWindow(row->getWidget(), GW_CHILD), nullptr);
}

TEST_F(WindowLifetime, AGroupsWindowGoesBehindThoseOfItsChildren) {
  Control* control = nullptr;
  const auto dialog = makeDialog(control);
  const arbora::Ref<NkRowDialog> row(static_cast<NkRowDialog*>(dialog->getChild(0)));
  auto* second = new Control;
  row->addChild(second);
  MessageLog log({{row->getWidget(), "row"}, {control->getWidget(), "first"}, {second->getWidget(), "second"}},
                 {{WM_DESTROY, "goes"}});
  row->destroyWidget();
  EXPECT_EQ(log.take(), "first goes, second goes, row goes");
}

TEST_F(WindowLifetime, TheWindowsOfADialogGoFromTheInsideOut) {
  Control* control = nullptr;
  arbora::Ref<NkTopLevelDialog> dialog = makeDialog(control);
  const auto frameOf = [&](int index) { return static_cast<NkDialogComponent*>(dialog->getChild(index))->getWidget(); };
  MessageLog log(
      {{dialog->getWidget(), "inside"}, {frameOf(0), "row"}, {frameOf(1), "label"}, {control->getWidget(), "control"}},
      {{WM_DESTROY, "goes"}});
  dialog = arbora::Ref<NkTopLevelDialog>();
  EXPECT_EQ(log.take(), "control goes, row goes, label goes, inside goes");
}

TEST_F(WindowLifetime, ADialogTakesTheFocusedAndTheScrolledWindowAlong) {
  Control* control = nullptr;
  arbora::Ref<NkTopLevelDialog> dialog = makeDialog(control);
  const HWND focused = makeApplicationWindow();
  const HWND scrolled = makeApplicationWindow();
  dialog->setCurrentFocusedWidget(focused);
  dialog->setCurrentScrolledWidget(scrolled);
  dialog = arbora::Ref<NkTopLevelDialog>();
  EXPECT_FALSE(IsWindow(focused));
  EXPECT_FALSE(IsWindow(scrolled));
}

TEST_F(WindowLifetime, AComponentGoesInsideItsOwnMessage) {
  Control* control = nullptr;
  const auto dialog = makeDialog(control);
  const HWND frame = control->getWidget();
  control->onNotify = [&](unsigned int) { static_cast<NkRowDialog*>(dialog->getChild(0))->removeAllChildren(); };
  notify(control);
  EXPECT_FALSE(IsWindow(frame));
  EXPECT_EQ(static_cast<NkRowDialog*>(dialog->getChild(0))->getNumChildren(), 0);
}

TEST_F(WindowLifetime, ADialogGoesInsideAMessageOfItsComponent) {
  const int live = NkBase::getLiveCount();
  Control* control = nullptr;
  arbora::Ref<NkTopLevelDialog> dialog = makeDialog(control);
  dialog->show();
  const HWND base = dialog->getBaseWidget();
  control->onNotify = [&](unsigned int) { dialog = arbora::Ref<NkTopLevelDialog>(); };
  notify(control);
  EXPECT_FALSE(IsWindow(base));
  EXPECT_EQ(NkBase::getLiveCount(), live);
}

TEST_F(WindowLifetime, ADialogGoesInsideTheUsersClick) {
  const int live = NkBase::getLiveCount();
  Control* control = nullptr;
  arbora::Ref<NkTopLevelDialog> dialog = makeDialog(control);
  dialog->show();
  desktop::serveAWhile();
  const HWND base = dialog->getBaseWidget();
  control->onNotify = [&](unsigned int) { dialog = arbora::Ref<NkTopLevelDialog>(); };
  const RECT button = outlineOf(control->getControl());
  click((button.left + button.right) / 2, (button.top + button.bottom) / 2);
  EXPECT_FALSE(IsWindow(base));
  EXPECT_EQ(NkBase::getLiveCount(), live);
}

namespace {

/// Runs `act` once as soon as `isDue` holds, from whatever loop then serves the messages.
class Alarm {
public:
  Alarm(std::function<bool()> isDue, std::function<void()> act) {
    s_isDue = std::move(isDue);
    s_act = std::move(act);
    constexpr UINT kPeriod = 5; // In ms.
    s_timer = SetTimer(nullptr, 0, kPeriod, ring);
  }
  ~Alarm() { stop(); }
  Alarm(const Alarm&) = delete;
  Alarm& operator=(const Alarm&) = delete;
  static bool hasRung() { return s_timer == 0; }

private:
  static void stop() {
    if (s_timer) KillTimer(nullptr, s_timer);
    s_timer = 0;
  }
  static void CALLBACK ring(HWND, UINT, UINT_PTR, DWORD) {
    if (!s_timer || !s_isDue()) return;
    stop();
    s_act();
  }

  static inline std::function<bool()> s_isDue;
  static inline std::function<void()> s_act;
  static inline UINT_PTR s_timer = 0;
};

} // namespace

TEST_F(WindowLifetime, ADialogGoesWhileItsUserSizesIt) {
  const int live = NkBase::getLiveCount();
  Control* control = nullptr;
  arbora::Ref<NkTopLevelDialog> dialog = makeDialog(control);
  dialog->position = NbVec2i32(100, 100);
  dialog->show();
  desktop::serveAWhile();
  const HWND base = dialog->getBaseWidget();
  const RECT frame = outlineOf(base);
  const NbVec2i32 before = sizeOf(base);
  {
    const Alarm alarm([&] { return sizeOf(base) != before; },
                      [&] {
                        dialog = arbora::Ref<NkTopLevelDialog>();
                        // Wine's loop waits for the button, whose message finds no window any more.
                        PostThreadMessageA(GetCurrentThreadId(), WM_LBUTTONUP, 0, 0);
                      });
    drag(frame.right - 2, frame.bottom - 2, 80, 60);
    EXPECT_TRUE(Alarm::hasRung());
  }
  EXPECT_FALSE(IsWindow(base));
  EXPECT_EQ(NkBase::getLiveCount(), live);
}

TEST_F(WindowLifetime, ADialogGoesWhileItsUserScrollsIt) {
  const int live = NkBase::getLiveCount();
  arbora::Ref<NkTopLevelDialog> dialog(new NkTopLevelDialog);
  auto* label = new NkDialogLabel;
  label->minHeight = 2000;
  dialog->position = NbVec2i32(100, 100);
  dialog->width = 200;
  dialog->height = 300;
  dialog->minHeight = 100;
  dialog->addChild(label);
  dialog->buildDialog(nullptr, 0);
  dialog->show();
  desktop::serveAWhile();
  const HWND base = dialog->getBaseWidget();
  const HWND inside = dialog->getWidget();
  const RECT area = outlineOf(inside);
  {
    const Alarm alarm([&] { return GetScrollPos(inside, SB_VERT) > 0; },
                      [&] { dialog = arbora::Ref<NkTopLevelDialog>(); });
    const int bar = GetSystemMetrics(SM_CXVSCROLL);
    drag(area.right - bar / 2, area.top + bar + 4, 0, 100);
    EXPECT_TRUE(Alarm::hasRung());
  }
  EXPECT_FALSE(IsWindow(base));
  EXPECT_EQ(NkBase::getLiveCount(), live);
}

TEST_F(WindowLifetime, ADialogGoesInsideItsGroupsScrolling) {
  // The group's own scrolling comes behind the component's word about it.
  class Ending : public NkRowDialog {
  public:
    void eventNotify(unsigned int message, std::uint64_t) override {
      if (message == WM_HSCROLL) onScroll();
    }
    std::function<void()> onScroll;
  };
  const int live = NkBase::getLiveCount();
  arbora::Ref<NkTopLevelDialog> dialog(new NkTopLevelDialog);
  auto* row = new Ending;
  row->hScrollVisibility = NkDialogGroup::ALWAYS;
  row->onScroll = [&] { dialog = arbora::Ref<NkTopLevelDialog>(); };
  dialog->addChild(row);
  dialog->buildDialog(nullptr, 0);
  const HWND frame = row->getWidget();
  SendMessageA(frame, WM_HSCROLL, SB_LINERIGHT, 0);
  EXPECT_FALSE(IsWindow(frame));
  EXPECT_EQ(NkBase::getLiveCount(), live);
}

TEST_F(WindowLifetime, ADialogGoesWhileItIsShown) {
  const int live = NkBase::getLiveCount();
  static arbora::Ref<NkTopLevelDialog> s_dialog;
  static WNDPROC s_procedure = nullptr;
  static UINT s_last = 0;
  for (const UINT last : {WM_SHOWWINDOW, WM_WINDOWPOSCHANGED, WM_PAINT}) {
    s_last = last;
    Control* control = nullptr;
    s_dialog = makeDialog(control);
    const HWND base = s_dialog->getBaseWidget();
    s_procedure = reinterpret_cast<WNDPROC>(GetWindowLongPtrA(base, GWLP_WNDPROC));
    const WNDPROC ending = [](HWND window, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT {
      const LRESULT result = CallWindowProcA(s_procedure, window, message, wParam, lParam);
      if (message == s_last) s_dialog = arbora::Ref<NkTopLevelDialog>();
      return result;
    };
    SetWindowLongPtrA(base, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(ending));
    s_dialog->show();
    desktop::serveAWhile();
    EXPECT_FALSE(IsWindow(base)) << last;
    EXPECT_EQ(NkBase::getLiveCount(), live);
  }
}

TEST_F(WindowLifetime, ADialogGoesWithinItsLayout) {
  // A component that ends the dialog when the window's size reaches it.
  class Ending : public Control {
  public:
    void buildWidget(HWND parent, NbVec2i32& size, NbVec2i32& position, int is2D) override {
      Control::buildWidget(parent, size, position, is2D);
      if (onBuild) onBuild();
    }
    std::function<void()> onBuild;
  };
  const int live = NkBase::getLiveCount();
  arbora::Ref<NkTopLevelDialog> dialog(new NkTopLevelDialog);
  auto* ending = new Ending;
  dialog->addChild(ending);
  dialog->addChild(new NkDialogLabel);
  dialog->buildDialog(nullptr, 0);
  const HWND base = dialog->getBaseWidget();
  ending->onBuild = [&] { dialog = arbora::Ref<NkTopLevelDialog>(); };
  resize(base, 400, 300);
  EXPECT_FALSE(IsWindow(base));
  EXPECT_EQ(NkBase::getLiveCount(), live);
}

TEST_F(WindowLifetime, ADialogGoesWhileItsFieldChanges) {
  const int live = NkBase::getLiveCount();
  arbora::Ref<NkTopLevelDialog> dialog(new NkTopLevelDialog);
  dialog->buildDialog(nullptr, 0);
  const HWND base = dialog->getBaseWidget();
  NkFieldSensor sensor([](void* data, NkSensor*) { *static_cast<arbora::Ref<NkTopLevelDialog>*>(data) = {}; }, &dialog);
  sensor.setPriority(0);
  sensor.attach(&dialog->label);
  dialog->label = "the end";
  EXPECT_FALSE(IsWindow(base));
  EXPECT_EQ(NkBase::getLiveCount(), live);
}

TEST_F(WindowLifetime, AComponentOutlivesItsDialog) {
  Control* inside = nullptr;
  arbora::Ref<NkTopLevelDialog> dialog = makeDialog(inside);
  const arbora::Ref<Control> control(inside);
  dialog = arbora::Ref<NkTopLevelDialog>();
  EXPECT_EQ(control->getWidget(), nullptr);
  control->enable = FALSE;
  control->label = "alone";
  const arbora::Ref<NkTopLevelDialog> next(new NkTopLevelDialog);
  next->addChild(control.get());
  next->buildDialog(nullptr, 0);
  EXPECT_TRUE(IsWindow(control->getControl()));
  EXPECT_FALSE(IsWindowEnabled(control->getWidget()));
}

TEST_F(WindowLifetime, BothFormsStandOnOneObject) {
  auto* dialog = open("TopLevelDialog { position 30 40 width 300 height 200 DialogLabel { auditorID \"a\" } }");
  auto* label = find<NkDialogLabel>(dialog, "a");
  NbVec2i32 none(0, 0);
  dialog->buildWidget(nullptr, none, none, 0);
  EXPECT_TRUE(dialog->isBuilt3D());
  EXPECT_TRUE(IsWindowVisible(label->getWidget()));
  dialog->addChild(new NkDialogLabel);
  EXPECT_EQ(rectangleOf(dialog->getBaseWidget()), rectangle(30, 40, 300, 200));
  resize(dialog->getBaseWidget(), 320, 220);
  EXPECT_EQ(dialog->getTopLevelSize(), NbVec3f(300, 200, 1));
  dialog->updateAfterSceneGraphChange();
  EXPECT_EQ(dialog->getTopLevelSize(), NbVec3f(320, 220, 1));
}
