#pragma once

#include "DialogTest.h"
#include "Panelix/NkDialogCheckBox.h"
#include "Panelix/NkDialogLabel.h"
#include "Panelix/NkDialogPushButton.h"
#include "Panelix/NkDialogSeparator.h"
#include "Panelix/NkTopLevelDialog.h"
#include "arbora/base/NkPreferences.h"
#include "arbora/scene/NkDBImpl.h"
#include "tests/dialog/OnWrite.h"
#include "tests/dialog/SceneUser.h"

/// A component whose natural sizes a test sets, and which notes what it is told.
class Block : public NkDialogComponent {
public:
  explicit Block(const panelix::SizeTriple& standard = {{100, 30}, {10, 10}, {1000, 1000}}) : m_standard(standard) {}

  NbVec2i32 getComponentInitSize() override { return natural; }
  NbVec2i32 getLabelInitSize() override { return naturalLabel; }
  void buildWidget(HWND parent, NbVec2i32& size, NbVec2i32& position, int is2D) override {
    offered = size;
    place = position;
    ++builds;
    NkDialogComponent::buildWidget(parent, size, position, is2D);
  }
  /// As `buildWidget`, for a component without a parent.
  void build(int is2D, NbVec2i32 size = NbVec2i32(0, 0)) {
    NbVec2i32 corner(0, 0);
    buildWidget(nullptr, size, corner, is2D);
  }
  NbVec2i32 size() const { return NbVec2i32(width.getValue(), height.getValue()); }
  NbVec2i32 min() const { return NbVec2i32(minWidth.getValue(), minHeight.getValue()); }
  NbVec2i32 max() const { return NbVec2i32(maxWidth.getValue(), maxHeight.getValue()); }
  NbVec2i32 labelSize() const { return m_labelSize; }
  NbVec2i32 componentSize() const { return m_componentSize; }

  NbVec2i32 natural{0, 0};
  NbVec2i32 naturalLabel{0, 0};
  NbVec2i32 offered{0, 0};
  NbVec2i32 place{0, 0};
  int builds = 0;
  int asked = 0; ///< For its standard sizes.

protected:
  void getDefaultSize(NbVec2i32& size, NbVec2i32& min, NbVec2i32& max) override {
    ++asked;
    size = m_standard.size;
    min = m_standard.min;
    max = m_standard.max;
  }

private:
  panelix::SizeTriple m_standard;
};

/// A component with a label area of a known size, which is built without a parent.
template <class Component>
class Alone : public Opened<Component> {
public:
  using Component::change3DLabelVisibility;
  using Component::getDefaultState;

  NbVec2i32 getLabelInitSize() override { return labelArea; }
  void build(int w, int h) {
    NbVec2i32 size(w, h);
    NbVec2i32 corner(0, 0);
    this->buildWidget(nullptr, size, corner, 0);
  }
  panelix::SizeTriple defaults() {
    panelix::SizeTriple triple;
    this->getDefaultSize(triple.size, triple.min, triple.max);
    return triple;
  }

  NbVec2i32 labelArea{40, 16};
};

/// The sizes that a component or a dialog was given, ahead of all layouts.
template <class Component>
panelix::SizeTriple stateOf(const Component& component) {
  panelix::SizeTriple triple;
  component.getDefaultState(triple.size, triple.min, triple.max);
  return triple;
}

/// Holds the 3D input until another component takes it.
class Holder : public Opened<Block> {
public:
  void take() { set3DCurrentActive(this); }
  void set3DInactive() override {
    ++told;
    NkPanelix::set3DInactive();
  }
  int told = 0;
};

/// Fixture for forms: dialogs are built in 3D on every system.
class FormsTest : public DialogTest {
protected:
  FormsTest() : m_wasVerra(NkDBImpl::m_isVerra) { NkDBImpl::m_isVerra = true; }
  ~FormsTest() override { NkDBImpl::m_isVerra = m_wasVerra; }

  /// Skins live for the process, so that the first form of each class leaves some nodes.
  static void SetUpTestSuite() {
    NkPanelix::init();
    NkPreferences::setString("ARBORAHOME", sourceDir().c_str());
    {
      const arbora::Ref<NkTopLevelDialog> dialog(new NkTopLevelDialog);
      dialog->addChild(new NkDialogLabel);
      dialog->addChild(new NkDialogSeparator);
      dialog->addChild(new NkDialogPushButton);
      dialog->addChild(new NkDialogCheckBox);
      NbVec2i32 size(0, 0);
      NbVec2i32 corner(0, 0);
      dialog->buildWidget(nullptr, size, corner, 0);
    }
    NkPreferences::removeValue("ARBORAHOME");
    NkPanelix::finish();
  }

private:
  const bool m_wasVerra;
};

using Pixels = std::vector<float>;

inline void expectPixels(const Pixels& pixels, const Pixels& expected) {
  ASSERT_EQ(pixels.size(), expected.size());
  for (std::size_t i = 0; i < pixels.size(); ++i) EXPECT_NEAR(pixels[i], expected[i], 1e-3) << "value " << i;
}

/// Fixture for a panel of 200 by 150 in a scene.
class PanelTest : public FormsTest, protected SceneUser {
protected:
  PanelTest() {
    panel->width = 200;
    panel->height = 150;
    root->addChild(panel);
  }

  void build() { panel->buildDialog(nullptr, 0); }

  Opened<NkTopLevelDialog>* panel = new Opened<NkTopLevelDialog>;
};
