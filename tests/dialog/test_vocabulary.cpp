#include <map>
#include <set>
#include <string>
#include <vector>

#include "ClassFacts.h"
#include "ClassTables.h"
#include "DialogTest.h"
#include "Panelix/Vocabulary.h"
#include "arbora/scene/NkChildList.h"

using arbora::Ref;

namespace {

std::string text(const NbName& name) { return name.getString(); }

/// A table of facts starts with a line end, for the sake of its looks.
std::string table(const char* facts) { return *facts == '\n' ? facts + 1 : facts; }

class Vocabulary : public DialogTest, public ::testing::WithParamInterface<ClassFacts> {
protected:
  static Ref<NkPanelix> make(const std::string& keyword) {
    return Ref<NkPanelix>(static_cast<NkPanelix*>(NkType::fromName(keyword).createInstance()));
  }

  Vocabulary() : node(make(GetParam().keyword)) {
    if (*GetParam().base) base = make(GetParam().base);
  }

  int firstOwnField() const { return (base ? base->getFieldData() : *NkDragger::getFieldDataPtr())->getNumFields(); }
  int firstOwnPart() const {
    return (base ? base->getNodekitCatalog() : NkDragger::getClassNodekitCatalog())->getNumEntries();
  }

  const Ref<NkPanelix> node;
  Ref<NkPanelix> base; ///< Of the base class; NULL for the class above all others.
};

std::string describeEnum(const arbora::EnumData& data) {
  std::string line = " of " + text(data.typeName);
  for (std::size_t i = 0; i < data.names.size(); ++i)
    line += (i > 0 ? ", " : " ") + text(data.names[i]) + " " + std::to_string(data.values[i]);
  return line;
}

std::string describeField(const NbName& name, const NkField& field) {
  std::string line = text(field.getTypeId().getName()) + " " + text(name) + " " + field.get().toUtf8();
  if (field.getTypeId() == NkSFEnum::getClassTypeId()) {
    const arbora::EnumData* data = static_cast<const NkSFEnum&>(field).getEnums();
    line += data ? describeEnum(*data) : " of nothing";
  }
  return line;
}

} // namespace

TEST_P(Vocabulary, DerivesFromItsBase) {
  const NkType type = NkType::fromName(GetParam().keyword);
  EXPECT_EQ(text(type.getName()), GetParam().keyword);
  EXPECT_EQ(type, NkType::fromName("Nk" + std::string(GetParam().keyword)));
  EXPECT_EQ(type.getParent(), base ? base->getTypeId() : NkDragger::getClassTypeId());
  EXPECT_EQ(node->getTypeId(), type);
}

TEST_P(Vocabulary, HasItsFields) {
  const NkFieldData& data = *node->getFieldData();
  const int end = data.getNumFields() - (node->getNodekitCatalog()->getNumEntries() - firstOwnPart());
  std::string fields;
  for (int i = firstOwnField(); i < end; ++i)
    fields += describeField(data.getFieldName(i), *data.getField(node.get(), i)) + "\n";
  EXPECT_EQ(fields, table(GetParam().fields));
}

TEST_P(Vocabulary, HasItsParts) {
  EXPECT_EQ(ownParts(node.get(), base ? base->getNodekitCatalog() : NkDragger::getClassNodekitCatalog()),
            table(GetParam().parts));
}

// Behind the fields, in the order of the parts, empty, and no field of the user's.
TEST_P(Vocabulary, HoldsItsPartsInFields) {
  const NkNodekitCatalog& catalog = *node->getNodekitCatalog();
  const NkFieldData& data = *node->getFieldData();
  NkFieldList ofUser;
  node->getFields(ofUser);
  const std::set<const NkField*> usersFields(ofUser.begin(), ofUser.end());
  int index = data.getNumFields() - (catalog.getNumEntries() - firstOwnPart());
  for (int part = firstOwnPart(); part < catalog.getNumEntries(); ++part, ++index) {
    const std::string name = text(catalog.getName(part));
    EXPECT_EQ(text(data.getFieldName(index)), name);
    const NkField* holder = data.getField(node.get(), index);
    ASSERT_EQ(holder->getTypeId(), NkSFNode::getClassTypeId()) << name;
    EXPECT_EQ(static_cast<const NkSFNode*>(holder)->getValue(), nullptr) << name;
    EXPECT_FALSE(usersFields.count(holder)) << name;
  }
}

// Each new part was put behind the parts of the same parent.
TEST_P(Vocabulary, KeepsPartsInTheirOrder) {
  const NkNodekitCatalog& catalog = *node->getNodekitCatalog();
  std::map<std::string, std::string> next;
  for (int part = catalog.getNumEntries() - 1; part >= NkDragger::getClassNodekitCatalog()->getNumEntries(); --part) {
    const std::string parent = text(catalog.getParentName(part));
    EXPECT_EQ(text(catalog.getRightSiblingName(part)), next[parent]) << text(catalog.getName(part));
    next[parent] = text(catalog.getName(part));
  }
}

TEST_P(Vocabulary, ChangesNoOtherDefault) {
  const NkFieldData& data = *node->getFieldData();
  std::string changes;
  for (int i = 0; i < data.getNumFields(); ++i) {
    const NkField* field = data.getField(node.get(), i);
    const NkField* inherited = base && i < firstOwnField() ? data.getField(base.get(), i) : nullptr;
    EXPECT_EQ(field->getContainer(), node.get());
    EXPECT_EQ(field->getFieldType(), 5);
    if (field->isDefault() && (!inherited || inherited->isSame(*field))) continue;
    changes += text(data.getFieldName(i)) + " " + field->get().toUtf8() + (field->isDefault() ? "\n" : ", written\n");
  }
  // What the base changes is the same in both.
  EXPECT_EQ(changes, table(GetParam().changes));
}

// Of all classes, just the one for children and what derives from it.
TEST_P(Vocabulary, AcceptsItsChildren) {
  allowMessages("");
  const std::string childKeyword = GetParam().childKeyword;
  EXPECT_EQ(node->isGroup(), !childKeyword.empty());
  for (const ClassFacts& child : classFacts()) {
    const std::size_t before = postedMessages().size();
    const Ref<NkPanelix> parent =
        readOne<NkPanelix>(std::string(GetParam().keyword) + " { " + child.keyword + " { label \"inner\" } }");
    const bool isRead = postedMessages().size() == before;
    const bool isAccepted =
        !childKeyword.empty() && NkType::fromName(child.keyword).isDerivedFrom(NkType::fromName(childKeyword));
    EXPECT_EQ(isRead, isAccepted) << child.keyword;
    if (!isAccepted || !parent) continue;
    auto* inner = static_cast<NkPanelix*>((*parent->getChildren())[0]);
    EXPECT_EQ(text(inner->getTypeId().getName()), child.keyword);
    EXPECT_EQ(inner->getParent(), parent.get());
  }
}

TEST_P(Vocabulary, MakesWhatTheTableOfClassesSays) {
  for (const panelix::VocabularyRow& row : panelix::vocabulary()) {
    if (std::string(row.keyword) != GetParam().keyword) continue;
    EXPECT_EQ(row.type(), node->getTypeId());
    EXPECT_EQ(std::string(row.className), "Nk" + std::string(row.keyword));
    EXPECT_EQ(std::string(row.parentName), "Nk" + std::string(base ? GetParam().base : "Dragger"));
    EXPECT_EQ(std::string(row.childKeyword ? row.childKeyword : ""), GetParam().childKeyword);
    return;
  }
  FAIL() << "no such row";
}

INSTANTIATE_TEST_SUITE_P(AllClasses, Vocabulary, ::testing::ValuesIn(classFacts().begin(), classFacts().end()),
                         [](const auto& facts) { return std::string(facts.param.keyword); });

TEST_F(DialogTest, ClassesAreRegisteredInTheirOrder) {
  std::vector<NkType> types;
  NkType::getAllDerivedFrom(NkPanelix::getClassTypeId(), types);
  std::string registered;
  for (const NkType type : types) registered += text(type.getName()) + "\n";
  std::string expected;
  for (const ClassFacts& facts : classFacts()) expected += facts.keyword + std::string("\n");
  EXPECT_EQ(registered, expected);
  EXPECT_EQ(classFacts().size(), panelix::vocabulary().size());
}
