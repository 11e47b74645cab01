#include <stdexcept>
#include <string>

#include "ClassFacts.h"
#include "DialogTest.h"
#include "arbora/scene/NkChildList.h"
#include "arbora/scene/NkFieldData.h"

// What all classes promise, whatever else they do.

using arbora::Ref;

namespace {

const std::string kTextHeader = "#Arbora V2.1 ascii\n";

std::string otherText(const NkField& field) {
  const NkType type = field.getTypeId();
  const std::string value = field.get().toUtf8();
  if (type == NkSFBool::getClassTypeId()) return value == "TRUE" ? "FALSE" : "TRUE";
  if (type == NkSFInt32::getClassTypeId())
    return std::to_string(static_cast<const NkSFInt32&>(field).getValue() - 70000);
  if (type == NkSFFloat::getClassTypeId()) return "0.1";
  if (type == NkSFVec2i32::getClassTypeId()) return "-3 2147483647";
  if (type == NkSFVec3f::getClassTypeId()) return "0.1 -2.5 1e+20";
  if (type == NkMFString::getClassTypeId()) return R"([ "one", "", "\"two\"\n\tand # three", "Größe" ])";
  if (type == NkMFColor::getClassTypeId()) return "[ 0.1 0.2 0.3, 1 0 0.66 ]";
  if (type == NkSFString::getClassTypeId() || type == NkSFFilePathString::getClassTypeId())
    return "\"C:\\new\\ü \\\"a\\\"\nb { } # ∑\"";
  if (type == NkSFEnum::getClassTypeId()) {
    for (const NbName& name : static_cast<const NkSFEnum&>(field).getEnums()->names) {
      if (value != name.getString()) return name.getString();
    }
  }
  ADD_FAILURE() << "no other value for a field of type " << type.getName().getString();
  return value;
}

const ClassFacts& factsOf(const std::string& keyword) {
  for (const ClassFacts& facts : classFacts()) {
    if (keyword == facts.keyword) return facts;
  }
  throw std::invalid_argument(keyword);
}

class Contract : public DialogTest, public ::testing::WithParamInterface<ClassFacts> {
protected:
  static Ref<NkPanelix> make(const std::string& keyword) {
    return Ref<NkPanelix>(static_cast<NkPanelix*>(NkType::fromName(keyword).createInstance()));
  }
  static Ref<NkPanelix> make() { return make(GetParam().keyword); }

  /// Calls `use` with the name and the field for each field that the toolkit's classes add for the user.
  template <class Use>
  static void forEachField(NkPanelix* node, Use&& use) {
    NkFieldList fields;
    node->getFields(fields);
    const NkFieldData& data = *node->getFieldData();
    for (NkField* field : fields) {
      const int index = data.findField(node, field);
      if (index >= (*NkDragger::getFieldDataPtr())->getNumFields()) use(data.getFieldName(index).getString(), *field);
    }
  }

  /// A node with another value than the default in each field, and with children if it can have any.
  static std::string fullText(const std::string& keyword) {
    std::string text = keyword + " {\n";
    const Ref<NkPanelix> node = make(keyword);
    forEachField(node.get(), [&](const char* name, const NkField& field) {
      text += std::string(name) + " " + otherText(field) + "\n";
    });
    const std::string childKeyword = factsOf(keyword).childKeyword;
    if (!childKeyword.empty()) text += childKeyword + " { label \"first\" }\n" + fullText(childKeyword);
    return text + "}\n";
  }
  static std::string fullText() { return fullText(GetParam().keyword); }
};

} // namespace

TEST_P(Contract, FullNodeHasNoDefault) {
  const auto node = readOne<NkPanelix>(fullText());
  ASSERT_TRUE(node);
  const Ref<NkPanelix> plain = make();
  forEachField(node.get(), [&](const char* name, const NkField& field) {
    EXPECT_FALSE(field.isDefault()) << name;
    EXPECT_FALSE(field.isSame(*plain->getField(name))) << name;
  });
}

TEST_P(Contract, RoundTripsInText) {
  const auto node = readOne<NkPanelix>(fullText());
  ASSERT_TRUE(node);
  const std::string text = writeText(node.get());
  const auto again = readOne<NkPanelix>(text);
  ASSERT_TRUE(again);
  EXPECT_EQ(difference(node.get(), again.get()), "");
  EXPECT_EQ(writeText(again.get()), text);
}

TEST_P(Contract, RoundTripsInBinary) {
  const auto node = readOne<NkPanelix>(fullText());
  ASSERT_TRUE(node);
  const std::string bytes = writeBinary(node.get());
  const auto again = readOne<NkPanelix>(bytes);
  ASSERT_TRUE(again);
  EXPECT_EQ(difference(node.get(), again.get()), "");
  EXPECT_EQ(writeBinary(again.get()), bytes);
}

TEST_P(Contract, RoundTripsWithDefaults) {
  const Ref<NkPanelix> node = make();
  for (const std::string& form : {writeText(node.get()), writeBinary(node.get())}) {
    const auto again = readOne<NkPanelix>(form);
    ASSERT_TRUE(again);
    EXPECT_EQ(difference(node.get(), again.get()), "");
  }
}

TEST_P(Contract, WritesNoDefault) {
  const std::string text = writeText(make().get());
  std::string expected;
  // What a class sets after the fact counts as set.
  std::string changes = GetParam().changes;
  const std::size_t mark = changes.find(", written");
  if (mark != changes.npos) expected = changes.substr(1, mark - 1);
  const std::size_t begin = text.find('{');
  ASSERT_EQ(text.substr(0, begin), kTextHeader + "\n" + GetParam().keyword + " ");
  std::string body = text.substr(begin + 1, text.rfind('}') - begin - 1);
  body.erase(0, body.find_first_not_of(" \n"));
  body.erase(body.find_last_not_of(" \n") + 1);
  EXPECT_EQ(body, expected);
}

TEST_P(Contract, CopiesEqual) {
  const auto node = readOne<NkPanelix>(fullText());
  ASSERT_TRUE(node);
  const Ref<NkPanelix> copy(static_cast<NkPanelix*>(node->copy()));
  EXPECT_EQ(difference(node.get(), copy.get()), "");
  EXPECT_EQ(copy->getParent(), nullptr);
  if (!*GetParam().childKeyword) return;
  for (int i = 0; i < 2; ++i) EXPECT_EQ(static_cast<NkPanelix*>((*copy->getChildren())[i])->getParent(), copy.get());
}

TEST_P(Contract, KeepsItsName) {
  const auto node = readOne<NkPanelix>("DEF Pump-1 " + fullText());
  ASSERT_TRUE(node);
  EXPECT_EQ(node->getName(), "Pump-1");
  for (const std::string& form : {writeText(node.get()), writeBinary(node.get())})
    EXPECT_EQ(difference(node.get(), readOne<NkPanelix>(form).get()), "");
}

TEST_P(Contract, ReportsWhereAnUnknownFieldStands) {
  expectMessage("3:3: error: ");
  readOne<NkPanelix>(std::string(GetParam().keyword) + " {\n  label \"x\"\n  lable \"y\"\n}\n");
  ASSERT_EQ(postedMessages().size(), 1U);
  EXPECT_NE(postedMessages()[0].find("lable"), std::string::npos) << postedMessages()[0];
  EXPECT_NE(postedMessages()[0].find("label"), std::string::npos) << postedMessages()[0];
}

TEST_P(Contract, RefusesOtherNamesForEnums) {
  forEachField(make().get(), [&](const char* name, const NkField& field) {
    if (field.getTypeId() != NkSFEnum::getClassTypeId()) return;
    const ExpectMessages message({"NEITHER"});
    readOne<NkPanelix>(std::string(GetParam().keyword) + " { " + name + " NEITHER }");
  });
}

// Nothing is left of the part that was read: the runner counts.
TEST_P(Contract, SurvivesAnyCut) {
  allowMessages("");
  const auto node = readOne<NkPanelix>(fullText());
  ASSERT_TRUE(node);
  for (const std::string& form : {writeText(node.get()), writeBinary(node.get())}) {
    for (std::size_t length = 0; length < form.size(); ++length) read(form.substr(0, length));
  }
}

// A field's write is heard by whoever listens to the field, and by nobody within before the first build.
TEST_P(Contract, TellsOfEveryWrite) {
  const Ref<NkPanelix> node = make();
  forEachField(node.get(), [](const char* name, NkField& field) {
    int calls = 0;
    NkFieldSensor sensor([](void* data, NkSensor*) { ++*static_cast<int*>(data); }, &calls);
    sensor.setPriority(0);
    sensor.attach(&field);
    EXPECT_TRUE(field.set(otherText(field).c_str())) << name;
    EXPECT_EQ(calls, 1) << name;
    EXPECT_FALSE(field.isDefault()) << name;
  });
}

INSTANTIATE_TEST_SUITE_P(AllClasses, Contract, ::testing::ValuesIn(classFacts().begin(), classFacts().end()),
                         [](const auto& facts) { return std::string(facts.param.keyword); });
