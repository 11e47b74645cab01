#include <filesystem>
#include <set>
#include <string>

#include "DialogTest.h"
#include "Panelix/NkTopLevelDialog.h"
#include "arbora/scene/NkFieldData.h"
#include "arbora/scene/NkInput.h"
#include "arbora/scene/NkSearchAction.h"

using arbora::Ref;

namespace {

class Examples : public DialogTest {
protected:
  template <class Use>
  static int forEachFile(const std::string& folder, Use&& use) {
    int count = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(sourceDir() + "/examples" + folder)) {
      if (entry.path().extension() != ".arb") continue;
      SCOPED_TRACE(entry.path().string());
      use(entry.path().string());
      ++count;
    }
    return count;
  }

  static Ref<NkSeparator> readFile(const std::string& path) {
    NkInput in;
    if (!in.openFile(NbString::fromUtf8(path))) return {};
    return Ref<NkSeparator>(NkDB::readAll(&in));
  }

  /// All components of a scene that have a name for the application.
  static std::set<std::string> auditorIds(NkNode* scene) {
    NkSearchAction search;
    search.setType(NkPanelix::getClassTypeId(), true);
    search.setInterest(NkSearchAction::ALL);
    const bool searched = NkBaseKit::isSearchingChildren();
    NkBaseKit::setSearchingChildren(true);
    search.apply(scene);
    NkBaseKit::setSearchingChildren(searched);
    std::set<std::string> ids;
    for (int i = 0; i < search.getPaths().getLength(); ++i) {
      const NkPath* path = search.getPaths()[i];
      const auto* component = static_cast<NkPanelix*>(path->getNode(path->getLength() - 1));
      const std::string id = component->auditorID.getValue().toUtf8();
      if (id.empty()) continue;
      EXPECT_TRUE(ids.insert(id).second) << id << " twice";
    }
    return ids;
  }
};

} // namespace

TEST_F(Examples, RoundTrip) {
  const int count = forEachFile("", [](const std::string& path) {
    const Ref<NkSeparator> scene = readFile(path);
    ASSERT_TRUE(scene);
    EXPECT_GT(scene->getNumChildren(), 0);
    for (const std::string& form : {writeText(scene.get()), writeBinary(scene.get())}) {
      const auto again = readOne<NkSeparator>(form);
      ASSERT_TRUE(again);
      EXPECT_EQ(difference(scene.get(), again.get()), "");
    }
  });
  EXPECT_GT(count, 60);
}

TEST_F(Examples, DialogsAreLoadedByTheirNames) {
  int count = 0;
  forEachFile("/dialogs", [&](const std::string& path) {
    const Ref<NkSeparator> scene = readFile(path);
    ASSERT_TRUE(scene);
    for (int i = 0; i < scene->getNumChildren(); ++i, ++count) {
      ASSERT_TRUE(scene->getChild(i)->isOfType(NkPanelix::getClassTypeId()));
      auto* dialog = static_cast<NkPanelix*>(scene->getChild(i));
      NkPanelix* const loaded = NkPanelix::loadFromFile(NbString::fromUtf8(path), dialog->auditorID.getValue());
      ASSERT_NE(loaded, nullptr);
      EXPECT_EQ(difference(dialog, loaded), "");
      loaded->unref();
    }
  });
  EXPECT_EQ(count, 4);
}

TEST_F(Examples, ComponentsAreFoundByTheirNames) {
  std::size_t count = 0;
  forEachFile("/dialogs", [&](const std::string& path) {
    const Ref<NkSeparator> scene = readFile(path);
    ASSERT_TRUE(scene);
    ASSERT_TRUE(scene->getChild(0)->isOfType(NkTopLevelDialog::getClassTypeId()));
    auto* dialog = static_cast<NkTopLevelDialog*>(scene->getChild(0));
    std::set<std::string> ids = auditorIds(dialog);
    // Just what is below the dialog is searched.
    ids.erase(dialog->auditorID.getValue().toUtf8());
    for (const std::string& id : ids) {
      NkPanelix* const found = dialog->searchForAuditorId(NbString::fromUtf8(id));
      ASSERT_NE(found, nullptr) << id;
      EXPECT_EQ(found->auditorID.getValue().toUtf8(), id);
      EXPECT_NE(found->getFirstTopParent(0, 0), nullptr) << id;
    }
    count += ids.size();
  });
  EXPECT_GT(count, 20U);
}
