#include "Panelix/NkDialogLabel.h"

#include "Panelix/NkDialogSeparator.h"
#include "tests/desktop/DesktopTest_win.h"
#include "tests/desktop/MessageLog_win.h"

namespace {

class LabelWindow : public DesktopTest {
protected:
  template <class Component>
  Component* build(const std::string& text, NbVec2i32 size = NbVec2i32(0, 0)) {
    auto* component = read<Component>(text);
    if (!m_application) m_application = makeApplicationWindow();
    NbVec2i32 corner(0, 0);
    component->buildWidget(m_application, size, corner, 1);
    return component;
  }
  static HWND controlOf(NkDialogComponent* component) { return GetWindow(component->getWidget(), GW_CHILD); }
  static int textHeight(const char* text) { return NkPanelix::getLabelPixelSize(text, nullptr)[1]; }

  HWND m_application = nullptr;
};

using SeparatorWindow = LabelWindow;

} // namespace

TEST_F(LabelWindow, IsAStaticControl) {
  auto* label = build<NkDialogLabel>("DialogLabel { label \"some text\" }");
  const HWND control = controlOf(label);
  EXPECT_EQ(classOf(control), "Static");
  EXPECT_EQ(textOf(control), "some text");
  EXPECT_EQ(styleOf(control), 0x52000000U | SS_LEFT);
  EXPECT_EQ(extendedStyleOf(control), 0U);
  EXPECT_EQ(reinterpret_cast<HFONT>(SendMessageA(control, WM_GETFONT, 0, 0)), NkPanelix::getPanelixFont());
  EXPECT_EQ(GetWindow(control, GW_HWNDNEXT), nullptr);
  EXPECT_EQ(label->getLabelWidget(), nullptr);
  EXPECT_TRUE(label->labelAlignment.isDefault());
}

TEST_F(LabelWindow, IsAsLargeAsItsText) {
  auto* label = build<NkDialogLabel>("DialogLabel { label \"some text that is long\" }");
  const NbVec2i32 text = NkPanelix::getLabelPixelSize("some text that is long", nullptr);
  EXPECT_EQ(sizeOf(label->getWidget()), NbVec2i32(text[0] + 4, 25));
  auto* empty = build<NkDialogLabel>("DialogLabel { }");
  EXPECT_EQ(sizeOf(empty->getWidget()), NbVec2i32(25, 25));
  auto* high = build<NkDialogLabel>("DialogLabel { label \"one\\ntwo\\nthree\" }");
  EXPECT_EQ(sizeOf(high->getWidget())[1], textHeight("one\ntwo\nthree"));
  EXPECT_EQ(textOf(controlOf(high)), "one\ntwo\nthree");
}

TEST_F(LabelWindow, ItsTextStandsInTheMiddle) {
  auto* label = build<NkDialogLabel>("DialogLabel { label \"text\" }", NbVec2i32(120, 60));
  const int height = textHeight("text");
  EXPECT_EQ(rectangleOf(controlOf(label)), rectangle(3, 3 + (54 - height) / 2, 114, height));
  label->edgeStyle = NkDialogComponent::SHADOW_IN;
  EXPECT_EQ(rectangleOf(controlOf(label)), rectangle(2, 2 + (54 - height) / 2, 114, height));
  label->edgeStyle = NkDialogComponent::SHADOW_OUT;
  EXPECT_EQ(rectangleOf(controlOf(label)), rectangle(0, (54 - height) / 2, 114, height));
  label->label = "one\\ntwo";
  const int both = textHeight("one\ntwo");
  EXPECT_EQ(textOf(controlOf(label)), "one\ntwo");
  EXPECT_EQ(rectangleOf(controlOf(label)), rectangle(0, (54 - both) / 2, 114, both));
}

TEST_F(LabelWindow, ATextHigherThanItsRoomStandsOutAtBothSides) {
  auto* label = build<NkDialogLabel>("DialogLabel { label \"one\\ntwo\\nthree\" }");
  const int height = textHeight("one\ntwo\nthree");
  // Of an odd difference the larger part stands out below.
  label->maxHeight = height - 3;
  NbVec2i32 none(0, 0);
  label->buildWidget(m_application, none, none, 1);
  ASSERT_EQ(label->height.getValue(), height - 3);
  EXPECT_EQ(rectangleOf(controlOf(label)), rectangle(3, 3 - 4, label->width.getValue() - 6, height));
}

TEST_F(LabelWindow, ItsEdgeIsTheFrames) {
  auto* label = build<NkDialogLabel>("DialogLabel { label \"text\" }");
  label->edgeStyle = NkDialogComponent::SHADOW_IN;
  EXPECT_EQ(extendedStyleOf(label->getWidget()), 0x30000U);
}

TEST_F(LabelWindow, AlignmentIsTheControlsStyle) {
  auto* label = build<NkDialogLabel>("DialogLabel { label \"text\" labelAlignment CENTER }");
  EXPECT_EQ(styleOf(controlOf(label)), 0x52000000U | SS_CENTER);
  label->labelAlignment = NkPanelix::RIGHT;
  EXPECT_EQ(styleOf(controlOf(label)), 0x52000000U | SS_RIGHT);
  label->labelAlignment = NkPanelix::LEFT;
  EXPECT_EQ(styleOf(controlOf(label)), 0x52000000U | SS_LEFT);
}

TEST_F(LabelWindow, ANewAlignmentIsShownAnewAndForgetsThatTheLabelIsDisabled) {
  auto* label = build<NkDialogLabel>("DialogLabel { label \"text\" enable FALSE }");
  MessageLog log({{controlOf(label), "text"}}, {{WM_STYLECHANGED, "style"}, {WM_SHOWWINDOW, "show"}});
  label->labelAlignment = NkPanelix::CENTER;
  EXPECT_EQ(log.take(), "text style, text show, text show");
  EXPECT_EQ(styleOf(controlOf(label)), 0x52000000U | SS_CENTER);
}

TEST_F(LabelWindow, IsEnabledOutwards) {
  auto* label = build<NkDialogLabel>("DialogLabel { label \"text\" }");
  MessageLog log({{label->getWidget(), "frame"}, {controlOf(label), "text"}}, {{WM_ENABLE, "enable"}});
  label->enable = FALSE;
  EXPECT_EQ(log.take(), "text enable, frame enable");
  label->enable = TRUE;
  log.take();
  label->changeWidgetEnable(0);
  EXPECT_EQ(log.take(), "text enable, frame enable");
}

TEST_F(LabelWindow, EnableHoldsForTheTextToo) {
  auto* label = build<NkDialogLabel>("DialogLabel { label \"text\" enable FALSE }");
  const auto expectEnabled = [&](bool isEnabled) {
    EXPECT_EQ(IsWindowEnabled(controlOf(label)) != 0, isEnabled);
    EXPECT_EQ(IsWindowEnabled(label->getWidget()) != 0, isEnabled);
  };
  expectEnabled(false);
  label->changeWidgetEnable(1);
  expectEnabled(false);
  label->enable = TRUE;
  expectEnabled(true);
  label->changeWidgetEnable(0);
  expectEnabled(false);
}

TEST_F(LabelWindow, ShowsLettersOfBothKinds) {
  auto* narrow = build<NkDialogLabel>("DialogLabel { }");
  narrow->label = NbString("caf\xE9");
  wchar_t text[20] = L"";
  GetWindowTextW(controlOf(narrow), text, 20);
  EXPECT_STREQ(text, L"caf\u00E9");
  // The file's UTF-8 makes a wide text.
  auto* wide = build<NkDialogLabel>("DialogLabel { label \"caf\u00E9\" }");
  GetWindowTextW(controlOf(wide), text, 20);
  EXPECT_STREQ(text, L"caf\u00E9");
}

TEST_F(LabelWindow, GoesWithItsFrame) {
  auto* label = build<NkDialogLabel>("DialogLabel { label \"text\" }");
  const HWND control = controlOf(label);
  label->destroyWidget();
  EXPECT_FALSE(IsWindow(control));
  label->label = "changed meanwhile";
  NbVec2i32 none(0, 0);
  label->buildWidget(m_application, none, none, 1);
  EXPECT_EQ(textOf(controlOf(label)), "changed meanwhile");
}

TEST_F(SeparatorWindow, IsAStaticControlWithAnEdge) {
  auto* separator = build<NkDialogSeparator>("DialogSeparator { }", NbVec2i32(100, 0));
  const HWND control = controlOf(separator);
  EXPECT_EQ(classOf(control), "Static");
  EXPECT_EQ(textOf(control), "");
  EXPECT_EQ(styleOf(control), 0x56000000U);
  EXPECT_EQ(extendedStyleOf(control), 0x20000U);
  EXPECT_EQ(rectangleOf(separator->getWidget()), rectangle(0, 0, 100, 8));
  EXPECT_EQ(rectangleOf(control), rectangle(3, 3, 94, 2));
}

TEST_F(SeparatorWindow, WithoutAParentItHasNoLength) {
  auto* lying = build<NkDialogSeparator>("DialogSeparator { }");
  EXPECT_EQ(sizeOf(lying->getWidget()), NbVec2i32(0, 8));
  auto* standing = read<NkDialogSeparator>("DialogSeparator { }");
  standing->setOrientationHorz(0);
  NbVec2i32 none(0, 0);
  standing->buildWidget(m_application, none, none, 1);
  EXPECT_EQ(sizeOf(standing->getWidget()), NbVec2i32(8, 0));
}

TEST_F(SeparatorWindow, ItsFrameKeepsItsLook) {
  auto* separator = build<NkDialogSeparator>("DialogSeparator { }", NbVec2i32(100, 0));
  separator->edgeStyle = NkDialogComponent::SHADOW_IN;
  EXPECT_EQ(extendedStyleOf(separator->getWidget()), 0x10000U);
  EXPECT_EQ(rectangleOf(controlOf(separator)), rectangle(2, 2, 94, 2));
  separator->edgeStyle = NkDialogComponent::SHADOW_OUT;
  EXPECT_EQ(extendedStyleOf(separator->getWidget()), 0x10000U);
  EXPECT_EQ(rectangleOf(controlOf(separator)), rectangle(0, 0, 94, 2));
}

TEST_F(SeparatorWindow, EnableHoldsForTheLineFromTheStart) {
  auto* separator = build<NkDialogSeparator>("DialogSeparator { enable FALSE }", NbVec2i32(100, 0));
  EXPECT_FALSE(IsWindowEnabled(controlOf(separator)));
  separator->enable = TRUE;
  EXPECT_TRUE(IsWindowEnabled(separator->getWidget()));
}

TEST_F(SeparatorWindow, GoesWithItsFrameAndComesBack) {
  auto* separator = build<NkDialogSeparator>("DialogSeparator { }", NbVec2i32(100, 0));
  const HWND control = controlOf(separator);
  separator->destroyWidget();
  EXPECT_FALSE(IsWindow(control));
  NbVec2i32 none(0, 0);
  separator->buildWidget(m_application, none, none, 1);
  EXPECT_EQ(rectangleOf(controlOf(separator)), rectangle(3, 3, 94, 2));
}
