#include <vector>

#include "DialogTest.h"
#include "Panelix/NkDialogChoice.h"
#include "arbora/scene/NkFieldSensor.h"

using arbora::Ref;

namespace {

class OpenChoice : public NkDialogChoice {
public:
  using NkDialogChoice::fixItemsNumber;
  using NkDialogChoice::getNumEntries;
};

std::string joined(const NkMFString& items) {
  std::string result;
  for (int i = 0; i < items.getNum(); ++i) result += items[i].toUtf8() + "|";
  return result;
}

} // namespace

class Choice : public DialogTest {
protected:
  const Ref<OpenChoice> choice{new OpenChoice};

  void setItems(std::vector<NbString> items) {
    choice->items.setValues(std::move(items));
    choice->fixItemsNumber();
  }
  std::string items() const { return joined(choice->items); }
};

TEST_F(Choice, AnEmptyListHasAPlaceholderThatIsNoEntry) {
  EXPECT_EQ(items(), "|");
  EXPECT_EQ(choice->getNumEntries(), 0);
  choice->items.setNum(0);
  choice->fixItemsNumber();
  EXPECT_EQ(items(), "|");
  EXPECT_EQ(choice->getNumEntries(), 0);
}

TEST_F(Choice, TheFirstEntryTakesThePlaceOfThePlaceholder) {
  choice->addItem("a");
  EXPECT_EQ(items(), "a|");
  EXPECT_EQ(choice->getNumEntries(), 1);
  choice->addItem("b");
  EXPECT_EQ(items(), "a|b|");

  const Ref<OpenChoice> inserted(new OpenChoice);
  inserted->insertItem(7, "a");
  ASSERT_EQ(inserted->items.getNum(), 1);
  EXPECT_EQ(inserted->items[0], "a");
  EXPECT_EQ(inserted->getNumEntries(), 1);
}

TEST_F(Choice, AnEntryMayBeEmpty) {
  choice->addItem("");
  EXPECT_EQ(choice->getNumEntries(), 1);
  choice->fixItemsNumber();
  EXPECT_EQ(choice->getNumEntries(), 1);
  choice->addItem("");
  EXPECT_EQ(items(), "||");
}

TEST_F(Choice, EntriesOfAFileCountOnceTheyWereLookedAt) {
  const Ref<OpenChoice> several(new OpenChoice);
  several->items.setValues({"a", "b"});
  several->addItem("c");
  EXPECT_EQ(several->items.getNum(), 3);

  setItems({"a"});
  EXPECT_EQ(choice->getNumEntries(), 1);
  choice->addItem("b");
  EXPECT_EQ(items(), "a|b|");
}

TEST_F(Choice, EntriesAreInsertedWithinTheList) {
  setItems({"a", "b", "c"});
  choice->insertItem(1, "between");
  EXPECT_EQ(items(), "a|between|b|c|");
  choice->insertItem(1000, "last");
  choice->insertItem(-5, "first");
  EXPECT_EQ(items(), "first|a|between|b|c|last|");
}

TEST_F(Choice, AnInsertionIsOneChange) {
  setItems({"a", "b"});
  struct Listener {
    const NkMFString& items;
    std::vector<std::string> seen;
  } listener{choice->items, {}};
  NkFieldSensor sensor(
      [](void* data, NkSensor*) {
        auto* heard = static_cast<Listener*>(data);
        heard->seen.push_back(joined(heard->items));
      },
      &listener);
  sensor.setPriority(0);
  sensor.attach(&choice->items);
  choice->insertItem(1, "x");
  EXPECT_EQ(listener.seen, std::vector<std::string>{"a|x|b|"});
}

TEST_F(Choice, OnlyAnEntryCanBeRemoved) {
  setItems({"a", "b"});
  choice->removeItem(2);
  choice->removeItem(-1);
  EXPECT_EQ(items(), "a|b|");
  choice->removeItem(0);
  EXPECT_EQ(items(), "b|");
  choice->removeItem(0);
  EXPECT_EQ(items(), "");
  choice->removeItem(0);
  choice->fixItemsNumber();
  EXPECT_EQ(items(), "|");
  choice->removeItem(0);
  EXPECT_EQ(items(), "|");
  choice->addItem("again");
  EXPECT_EQ(items(), "again|");
}
