#include <gtest/gtest.h>

#include <map>

#include "Panelix/NkPanelix.h"
#include "Panelix/Vocabulary.h"
#include "tests/support/TestSupport.h"
#include "tests/tools/Json.h"
#include "tests/tools/Program.h"
#include "tools/panelix/Meanings.h"

namespace {

Json describeJson(std::vector<std::string> words) {
  words.insert(words.begin(), {"describe", "--json"});
  const Result result = runPanelix(words);
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(result.err, "");
  return Json::parse(result.out);
}

const Json& named(const Json& list, const std::string& name) {
  static const Json s_none;
  for (const Json& item : list.items) {
    if (item["name"].string == name) return item;
  }
  return s_none;
}

bool contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

} // namespace

TEST(Describe, EachClassAndFieldHasItsMeaningAndNothingElseHas) {
  NkPanelix::init();
  {
    std::vector<std::string> expected;
    for (const panelix::VocabularyRow& row : panelix::vocabulary()) {
      expected.emplace_back(row.keyword);
      const arbora::Ref<NkPanelix> node(static_cast<NkPanelix*>(row.type().createInstance()));
      const arbora::Ref<NkPanelix> base(row.type().getParent().isDerivedFrom(NkPanelix::getClassTypeId())
                                            ? static_cast<NkPanelix*>(row.type().getParent().createInstance())
                                            : nullptr);
      NkFieldList fields;
      node->getFields(fields);
      for (const NkField* field : fields) {
        NbName name;
        node->getFieldName(field, name);
        const bool isOwn = base ? !base->getField(name) : name != NbName("isActive");
        if (isOwn) expected.push_back(std::string(row.keyword) + "." + name.getString());
      }
    }
    std::vector<std::string> rows;
    for (const panelix::ClassMeaning& meaning : panelix::meanings()) {
      rows.emplace_back(meaning.keyword);
      EXPECT_NE(std::string(meaning.text), "") << meaning.keyword;
      for (const panelix::FieldMeaning& field : meaning.fields) {
        rows.push_back(rows.back().substr(0, rows.back().find('.')) + "." + field.field);
        EXPECT_NE(std::string(field.text), "") << rows.back();
      }
    }
    EXPECT_EQ(rows, expected);
  }
  NkPanelix::finish();
}

TEST(Describe, MeaningsAreSentencesOfOneLine) {
  const auto check = [](const std::string& text) {
    EXPECT_TRUE(text.ends_with(".")) << text;
    EXPECT_FALSE(contains(text, "\n") || contains(text, "|")) << text;
  };
  for (const panelix::ClassMeaning& meaning : panelix::meanings()) {
    check(meaning.text);
    for (const panelix::FieldMeaning& field : meaning.fields) check(field.text);
  }
}

TEST(Describe, AllClassesComeInTheOrderOfTheirRegistration) {
  const Json classes = describeJson({});
  ASSERT_EQ(classes.items.size(), panelix::vocabulary().size());
  const std::string text = runPanelix({"describe"}).out;
  std::size_t at = 0;
  for (std::size_t i = 0; i < classes.items.size(); ++i) {
    const panelix::VocabularyRow& row = panelix::vocabulary()[i];
    EXPECT_EQ(classes.items[i]["type"].string, row.keyword);
    EXPECT_EQ(classes.items[i]["class"].string, row.className);
    EXPECT_EQ("Nk" + classes.items[i]["base"].string, row.parentName);
    EXPECT_EQ(classes.items[i]["children"].string, row.childKeyword ? row.childKeyword : "");
    EXPECT_NE(classes.items[i]["meaning"].string, "");
    at = text.find(std::string("\n## ") + row.keyword + "\n", at);
    ASSERT_NE(at, text.npos) << row.keyword;
  }
}

TEST(Describe, AClassIsToldWithAllItsFields) {
  const Json classes = describeJson({"NkDialogRadioButtons"});
  ASSERT_EQ(classes.items.size(), 1u);
  const Json& type = classes.items[0];
  EXPECT_EQ(type["type"].string, "DialogRadioButtons");
  EXPECT_EQ(type["base"].string, "DialogChoice");
  EXPECT_EQ(type["children"].kind, Json::NONE);
  const Json& fields = type["fields"];
  EXPECT_EQ(fields.items.size(), 16u);
  EXPECT_EQ(named(fields, "isActive").kind, Json::INVALID);
  EXPECT_EQ(named(fields, "stateOn").kind, Json::INVALID);

  const Json& items = named(fields, "items");
  EXPECT_EQ(items["from"].string, "DialogChoice");
  EXPECT_EQ(items["type"].string, "MFString");
  EXPECT_EQ(items["default"].string, "\"\"");
  EXPECT_EQ(items["values"].kind, Json::NONE);
  const Json& style = named(fields, "edgeStyle");
  EXPECT_EQ(style["from"].string, "DialogComponent");
  EXPECT_EQ(style["type"].string, "SFEnum");
  EXPECT_EQ(style["default"].string, "NONE");
  ASSERT_EQ(style["values"].names, (std::vector<std::string>{"NONE", "SHADOW_IN", "SHADOW_OUT"}));
  EXPECT_EQ(style["values"]["SHADOW_OUT"].number, 2);
  // Not that of its base.
  EXPECT_EQ(named(fields, "labelAlignment")["default"].string, "LEFT");
  EXPECT_EQ(named(fields, "labelAlignment")["from"].string, "Panelix");

  EXPECT_EQ(named(type["parts"], "stateOn")["type"].string, "Group");
  EXPECT_EQ(named(type["parts"], "stateOn")["parent"].string, "itemBtnSwtch");
  EXPECT_EQ(named(type["parts"], "geomSwitch").kind, Json::INVALID);

  const Result text = runPanelix({"describe", "DialogRadioButtons"});
  EXPECT_EQ(text.exitCode, 0);
  EXPECT_EQ(text.err, "");
  EXPECT_TRUE(text.out.starts_with("# DialogRadioButtons\n\n")) << text.out;
  EXPECT_TRUE(contains(text.out, "\nFrom DialogChoice:\n\n| Field |")) << text.out;
  EXPECT_TRUE(contains(text.out, "\n| `edgeStyle` | SFEnum | `NONE` | ")) << text.out;
  EXPECT_TRUE(contains(text.out, " `NONE` 0, `SHADOW_IN` 1, `SHADOW_OUT` 2. |\n")) << text.out;
  EXPECT_TRUE(contains(text.out, "`itemTextProp`")) << text.out;
  EXPECT_FALSE(contains(text.out, "`itemTextSep`")) << text.out;
}

TEST(Describe, AmongAllClassesOtherDefaultsAreTold) {
  const std::string text = runPanelix({"describe"}).out;
  for (const char* line : {"Other than in its base, the default is: `labelAlignment` `LEFT`.\n",
                           "Other than in its base, the default is: `format` `\"%d\"`.\n",
                           "Other than in its base, the default is: `format` `\"%.3f\"`.\n"})
    EXPECT_TRUE(contains(text, line)) << line;
}

TEST(Describe, AnUnknownClassIsToldWithTheOneThatIsMeant) {
  const Result misspelt = runPanelix({"describe", "DialogChekBox"});
  EXPECT_EQ(misspelt.exitCode, 2);
  EXPECT_EQ(misspelt.out, "");
  EXPECT_EQ(misspelt.err, "panelix: error: the toolkit has no class 'DialogChekBox'; did you mean 'DialogCheckBox'?\n");
  // One of the scene library.
  const Result foreign = runPanelix({"describe", "Cube", "--json"});
  EXPECT_EQ(foreign.exitCode, 2);
  EXPECT_EQ(foreign.out, "");
  EXPECT_EQ(foreign.err, "panelix: error: the toolkit has no class 'Cube'\n");
  EXPECT_EQ(runPanelix({"describe", "MenuBar", "MenuItem"}).exitCode, 2);
}

TEST(Describe, TheDocumentationShowsTheClassesAsTheyAre) {
  EXPECT_EQ(readFile(sourceDir() + "/docs/vocabulary.md"), runPanelix({"describe"}).out)
      << "scripts/docs.sh writes it anew";
}
