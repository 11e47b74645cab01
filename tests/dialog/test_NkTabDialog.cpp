#include "Panelix/NkTabDialog.h"

#include "BevelledButton.h"
#include "ClassTables.h"
#include "DialogTest.h"
#include "Panelix/NkRowDialog.h"
#include "Panelix/NkTabDialogAuditor.h"
#include "Panelix/NkTopLevelDialog.h"
#include "arbora/scene/NkGetBoundingBoxAction.h"

using arbora::Ref;

class TabDialog : public DialogTest {
protected:
  const Ref<NkTabDialog> tabs{new NkTabDialog};
};

TEST_F(TabDialog, HasItsDefaults) {
  EXPECT_EQ(tabs->selectedPage.getValue(), 0);
  EXPECT_EQ(tabs->tabsLocation.getValue(), NkTabDialog::TOP);
  EXPECT_TRUE(tabs->windowResizedByChildren.getValue());
}

TEST_F(TabDialog, HasItsFieldsAndPartsInOrder) {
  EXPECT_EQ(ownFields(tabs.get(), *NkDialogGroup::getFieldDataPtr()),
            "selectedPage tabsLocation pagesSep pageSwitch pageSep labelSep labelSwitch unselected selected textSep "
            "textProp buttonsSep lButtonSep lButtonSwtch lButtonReleased lButtonPressed rButtonSep rButtonSwtch "
            "rButtonReleased rButtonPressed frameSep frame ");
  EXPECT_EQ(ownParts(tabs.get(), NkDialogGroup::getClassNodekitCatalog()), "Separator pagesSep < geomSwitch\n"
                                                                           "Switch pageSwitch < pagesSep\n"
                                                                           "Separator pageSep < pageSwitch\n"
                                                                           "Separator labelSep < pageSep\n"
                                                                           "Switch labelSwitch < labelSep\n"
                                                                           "Group unselected < labelSwitch +\n"
                                                                           "Group selected < labelSwitch +\n"
                                                                           "Separator textSep < pageSep\n"
                                                                           "Group textProp < textSep +\n"
                                                                           "Separator buttonsSep < geomSwitch\n"
                                                                           "Separator lButtonSep < buttonsSep\n"
                                                                           "Switch lButtonSwtch < lButtonSep\n"
                                                                           "Group lButtonReleased < lButtonSwtch +\n"
                                                                           "Group lButtonPressed < lButtonSwtch +\n"
                                                                           "Separator rButtonSep < buttonsSep\n"
                                                                           "Switch rButtonSwtch < rButtonSep\n"
                                                                           "Group rButtonReleased < rButtonSwtch +\n"
                                                                           "Group rButtonPressed < rButtonSwtch +\n"
                                                                           "Separator frameSep < geomSwitch\n"
                                                                           "Group frame < frameSep +\n");
}

TEST_F(TabDialog, ReadsItsFields) {
  for (const char* location : {"TOP", "BOTTOM", "LEFT", "RIGHT"}) {
    const auto read =
        readOne<NkTabDialog>(std::string("TabDialog { selectedPage 2 tabsLocation ") + location + " RowDialog { } }");
    ASSERT_TRUE(read);
    EXPECT_EQ(read->selectedPage.getValue(), 2);
    EXPECT_EQ(read->tabsLocation.get(), location);
    EXPECT_EQ(read->getNumChildren(), 1);
  }
  EXPECT_EQ(NkTabDialog::TOP, 0);
  EXPECT_EQ(NkTabDialog::BOTTOM, 1);
  EXPECT_EQ(NkTabDialog::LEFT, 2);
  EXPECT_EQ(NkTabDialog::RIGHT, 3);
}

// Children

TEST_F(TabDialog, HoldsPagesLikeAGroup) {
  auto* first = new NkRowDialog;
  auto* second = new NkRowDialog;
  auto* third = new NkRowDialog;
  tabs->addChild(second);
  tabs->insertChild(first, 0);
  tabs->replaceChild(second, third);
  EXPECT_EQ(tabs->getNumChildren(), 2);
  EXPECT_EQ(tabs->getChild(0), first);
  EXPECT_EQ(tabs->getChild(1), third);
  EXPECT_EQ(third->getParent(), tabs.get());
  tabs->removeChild(first);
  tabs->removeChild(0);
  EXPECT_EQ(tabs->getNumChildren(), 0);
}

TEST_F(TabDialog, PostsMisuseInPartUnderTheNameOfTheGroup) {
  const Ref<NkRowDialog> page(new NkRowDialog);
  const auto lastMessage = [] { return postedMessages().empty() ? std::string() : postedMessages().back(); };
  const auto expectPosted = [&](const std::string& message, auto&& call) {
    expectMessage(message);
    call();
    EXPECT_EQ(lastMessage(), message);
  };
  expectPosted("NkTabDialog::addChild(): NULL child node", [&] { tabs->addChild(nullptr); });
  expectPosted("NkTabDialog::insertChild(): NULL child node", [&] { tabs->insertChild(nullptr, 5); });
  expectPosted("NkDialogGroup::insertChild(): Index 1 is out of range 0 - 0",
               [&] { tabs->insertChild(page.get(), 1); });
  expectPosted("NkTabDialog::removeChild(): Index 0 is out of range 0 - -1", [&] { tabs->removeChild(0); });
  expectPosted("NkTabDialog::removeChild(): Index -1 is out of range 0 - -1", [&] { tabs->removeChild(page.get()); });
  expectPosted("NkDialogGroup::getChild(): Index 0 is out of range 0 - -1",
               [&] { EXPECT_EQ(tabs->getChild(0), nullptr); });
  expectPosted("NkDialogGroup::replaceChild(): Index 0 is out of range 0 - -1",
               [&] { tabs->replaceChild(0, page.get()); });
  EXPECT_EQ(tabs->getNumChildren(), 0);
  EXPECT_EQ(page->getParent(), nullptr);
}

TEST_F(TabDialog, IsCopiedWrittenAndReadWithItsPages) {
  const auto read = readOne<NkTabDialog>("TabDialog { selectedPage 1 RowDialog { label \"a\" } RowDialog { } }");
  ASSERT_TRUE(read);
  const Ref<NkNode> copy(read->copy());
  EXPECT_EQ(static_cast<NkTabDialog*>(copy.get())->getNumChildren(), 2);
  EXPECT_EQ(writeText(copy.get()), writeText(read.get()));
  const auto again = readOne<NkTabDialog>(writeBinary(read.get()));
  ASSERT_TRUE(again);
  EXPECT_EQ(writeText(again.get()), writeText(read.get()));
}

// Auditors

namespace {

class PageListener : public NkTabDialogAuditor {
public:
  std::vector<NkTabDialog*> heard;
  void tabDialog(NkTabDialog* dialog) override { heard.push_back(dialog); }
};

} // namespace

TEST_F(TabDialog, TellsItsOwnAuditorsOfAPage) {
  PageListener first;
  PageListener second;
  tabs->addAuditor(&first);
  tabs->addAuditor(&second);
  tabs->addAuditor(&first);
  tabs->applyDlgCptAuditor();
  EXPECT_EQ(first.heard, std::vector<NkTabDialog*>({tabs.get()}));
  EXPECT_EQ(second.heard, first.heard);
  tabs->removeAuditor(&first);
  tabs->applyDlgCptAuditor();
  EXPECT_EQ(first.heard.size(), 1U);
  EXPECT_EQ(second.heard.size(), 2U);
}

// Skin

TEST_F(TabDialog, HasASkinOfThreeFramesAndTwoButtonsUsedTwice) {
  const std::string text = NkTabDialog::TabDialog;
  EXPECT_EQ(text.size(), 3138U);
  const Ref<NkSeparator> parts = read(text);
  ASSERT_TRUE(parts);
  std::vector<std::string> names;
  for (int i = 0; i < parts->getNumChildren(); ++i) names.emplace_back(parts->getChild(i)->getName().getString());
  ASSERT_EQ(names, std::vector<std::string>(
                       {"TabDialogFrame", "TabDialogSelectedTabFrame", "TabDialogUnselectedTabFrame",
                        "_TabDialogButtonPressed_", "_TabDialogButtonReleased_", "TabDialogLeftButtonPressed",
                        "TabDialogLeftButtonReleased", "TabDialogRightButtonPressed", "TabDialogRightButtonReleased"}));
  NkGetBoundingBoxAction box;
  box.apply(parts->getChild(1));
  EXPECT_EQ(box.getBoundingBox(), NbBox3f(-0.5F, -0.5F, 0, 0.5F, 0.5F, 1));
  for (const int released : {6, 8}) {
    expectBevelledButton(parts->getChild(released),
                         {{{0.7F, 0.7F, 0.7F}, {0.2F, 0.2F, 0.2F}, {1, 1, 1}, {0.5F, 0.5F, 0.5F}, {0.7F, 0.7F, 0.7F}}});
  }
  for (const int pressed : {5, 7}) {
    expectBevelledButton(parts->getChild(pressed),
                         {{{0.5F, 0.5F, 0.5F}, {1, 1, 1}, {0.2F, 0.2F, 0.2F}, {0.7F, 0.7F, 0.7F}, {0.7F, 0.7F, 0.7F}}});
    EXPECT_EQ(static_cast<NkGroup*>(parts->getChild(pressed))->getChild(0), parts->getChild(3));
  }
}
