#include <chrono>
#include <cmath>
#include <filesystem>
#include <fstream>

#include "FileTest.h"
#include "arbora/scene/NkCube.h"
#include "arbora/scene/NkFont.h"
#include "arbora/scene/NkInfo.h"
#include "arbora/scene/NkMaterial.h"
#include "arbora/scene/NkSphere.h"
#include "arbora/scene/NkTranslation.h"

using arbora::Ref;

using Reading = FileTest;

// The file as a whole

TEST_F(Reading, AnEmptyTextGivesAnEmptySeparator) {
  for (const char* text : {"", " \n\t", "# nothing", "#Arbora V2.1 ascii", "#Arbora V2.1 ascii\n", "\xEF\xBB\xBF"}) {
    const Ref<NkSeparator> root = read(text);
    ASSERT_TRUE(root) << text;
    EXPECT_EQ(root->getNumChildren(), 0) << text;
  }
}

TEST_F(Reading, TheResultHasNoReferenceYet) {
  NkInput in;
  in.setBuffer("Cube {}", 7);
  NkSeparator* root = NkDB::readAll(&in);
  ASSERT_TRUE(root);
  EXPECT_EQ(root->getRefCount(), 0);
  root->ref();
  root->unref();
}

TEST_F(Reading, ATextMayHaveAHeader) {
  for (const char* header : {"", "#Arbora V2.1 ascii\n", "\xEF\xBB\xBF#Arbora V2.0 ascii\r\n", "#Arbora V1.0 ascii\n",
                             "# Some other comment\n", "#Arbora\n", "#Arbora Vx\n", "#Arbora V2.1 unknown\n"}) {
    const Ref<NkSeparator> root = read(std::string(header) + "Cube { width 3 } Sphere { }");
    ASSERT_TRUE(root) << header;
    ASSERT_EQ(root->getNumChildren(), 2) << header;
    EXPECT_EQ(static_cast<NkCube*>(root->getChild(0))->width.getValue(), 3) << header;
  }
}

TEST_F(Reading, TheHeaderTellsTheVersion) {
  const auto versionOf = [](const std::string& text) {
    NkInput in;
    in.setBuffer(text.data(), text.size());
    return in.getVersion();
  };
  EXPECT_EQ(versionOf("#Arbora V1.0 ascii\n"), 1.0F);
  EXPECT_EQ(versionOf("#Arbora V2.0 ascii\n"), 2.0F);
  EXPECT_EQ(versionOf("Cube { }"), 2.1F);
  expectMessage("<buffer>: warning: version 3.5 of the format isn't known");
  EXPECT_EQ(versionOf("#Arbora V3.5 ascii\n"), 3.5F);
}

TEST_F(Reading, CommentsAndBlanksStandAnywhereBetweenTokens) {
  const Ref<NkCube> cube = readOne<NkCube>("DEF#x\nbox # { \" }\rCube#\n{width#\n 3#4\n\v\f}# end");
  ASSERT_TRUE(cube);
  EXPECT_EQ(cube->width.getValue(), 3);
  EXPECT_EQ(cube->getName(), "box");
}

TEST_F(Reading, ATypeMayBearItsClassName) { EXPECT_TRUE(readOne<NkCube>("NkCube { }")); }

TEST_F(Reading, NodesAreReadOneByOne) {
  const std::string text = "Cube { } Sphere { }";
  NkInput in;
  in.setBuffer(text.data(), text.size());
  NkNode* node = nullptr;
  for (const NkType type : {NkCube::getClassTypeId(), NkSphere::getClassTypeId()}) {
    ASSERT_TRUE(NkDB::read(&in, node));
    ASSERT_TRUE(node);
    EXPECT_EQ(node->getRefCount(), 0);
    const Ref<NkNode> keep(node);
    EXPECT_EQ(node->getTypeId(), type);
  }
  EXPECT_TRUE(NkDB::read(&in, node));
  EXPECT_FALSE(node);
}

TEST_F(Reading, OneInputServesForSeveralTexts) {
  NkInput in;
  expectMessage("<buffer>:1:1: error: there is no node type 'Nothing'");
  in.setBuffer("Nothing {}", 10);
  EXPECT_FALSE(NkDB::readAll(&in));
  in.setBuffer("Cube {}", 7);
  EXPECT_TRUE(Ref<NkSeparator>(NkDB::readAll(&in)));
}

// Values

namespace {

struct ValueCase {
  const char* field;
  const char* text;
  const char* result; // As the field tells it.
};

const ValueCase kValues[] = {
    {"sfBool", "TRUE", "TRUE"},
    {"sfBool", "0", "FALSE"},
    {"sfBool", "1", "TRUE"},
    {"sfInt32", "-2147483648", "-2147483648"},
    {"sfInt32", "+17", "17"},
    {"sfInt32", "007", "7"},
    {"sfInt32", "0x1F", "31"},
    {"sfInt32", "-0x10", "-16"},
    {"sfInt32", "0xFFFFFFFF", "-1"},
    {"sfFloat", ".5", "0.5"},
    {"sfFloat", "5.", "5"},
    {"sfFloat", "-1.5e+2", "-150"},
    {"sfFloat", "+2E-1", "0.2"},
    {"sfFloat", "0.1", "0.1"},
    {"sfFloat", "3.4028235e38", "3.4028235e+38"},
    {"sfFloat", "1e-45", "1e-45"},
    {"sfFloat", "1e-400", "0"},
    {"sfFloat", "INF", "inf"},
    {"sfFloat", "-inf", "-inf"},
    {"sfFloat", "NAN", "nan"},
    {"sfFloat", "-0", "-0"},
    {"sfString", "\"two words\"", "\"two words\""},
    {"sfString", "word", "\"word\""},
    {"sfString", "1.5-a+b/c", "\"1.5-a+b/c\""},
    {"sfString", "\"\"", "\"\""},
    {"sfString", "\"# no comment { } [ ]\"", "\"# no comment { } [ ]\""},
    {"sfName", "Tahoma", "\"Tahoma\""},
    {"sfPath", "\"C:\\temp\\x.arb\"", "\"C:\\temp\\x.arb\""},
    {"sfEnum", "SOUR", "SOUR"},
    {"sfEnum", "BITTER", "BITTER"},
    {"sfBitMask", "LEFT", "LEFT"},
    {"sfBitMask", "(LEFT|TOP)", "(LEFT | TOP)"},
    {"sfBitMask", "( LEFT | RIGHT | TOP )", "ALL"},
    {"sfBitMask", "(LEFT | LEFT)", "LEFT"},
    {"sfBitMask", "()", "NONE"},
    {"sfBitMask", "(ALL)", "ALL"},
    {"sfVec2i32", "1 -2", "1 -2"},
    {"sfVec2f", "1 2.5", "1 2.5"},
    {"sfVec3f", "1 2 3", "1 2 3"},
    {"sfColor", "0.25 0.5 1", "0.25 0.5 1"},
    {"sfRotation", "0 0 2 0", "0 0 1 0"},
    {"sfRotation", "(0 0 2 0)", "(0 0 1 0)"},
    {"sfRotation", "0 1 0 1.57", "0 1 0 1.57"},
    {"sfPlane", "0 2 0 3", "0 1 0 3"},
    {"sfMatrix", "1 0 0 0 0 1 0 0 0 0 1 0 5 6 7 1", "1 0 0 0  0 1 0 0  0 0 1 0  5 6 7 1"},
    {"sfImage", "2 1 3 0xFF0000 255", "2 1 3 0xff0000 0xff"},
    {"sfImage", "1 1 4 0xFF00FF80", "1 1 4 0xff00ff80"},
    {"sfImage", "0 0 0", "0 0 0"},
    {"mfInt32", "5", "5"},
    {"mfInt32", "[]", "[ ]"},
    {"mfInt32", "[1 2,3 , 4,]", "[ 1, 2, 3, 4 ]"},
    {"mfFloat", "[ .5 ]", "0.5"},
    {"mfString", "[\"a b\" c, \"d\"]", "[ \"a b\", \"c\", \"d\" ]"},
    {"mfString", "[ \"*.arb\", \"Scene text\", ]", "[ \"*.arb\", \"Scene text\" ]"},
    {"mfVec2f", "[0 0, 1 0, 1 1]", "[ 0 0, 1 0, 1 1 ]"},
    {"mfVec3f", "1 2 3", "1 2 3"},
    {"mfColor", "[0.6 0.6 0.6 ]", "0.6 0.6 0.6"},
    {"mfColor", "[ 1 0 0 0 1 0 ]", "[ 1 0 0, 0 1 0 ]"},
    {"sfNode", "NULL", "NULL"},
};

} // namespace

TEST_F(Reading, ValuesOfEachKind) {
  for (const ValueCase& value : kValues) {
    const std::string text = std::string("EveryField { ") + value.field + " " + value.text + " }";
    const Ref<NkEveryField> node = readOne<NkEveryField>(text);
    ASSERT_TRUE(node) << text;
    const NkField* field = node->getField(value.field);
    ASSERT_TRUE(field) << text;
    EXPECT_EQ(field->get().toUtf8(), value.result) << text;
    EXPECT_FALSE(field->isDefault()) << text;
  }
}

TEST_F(Reading, ABackslashStaysButForQuotes) {
  struct Case {
    const char* text;
    const char* value;
  };
  const Case cases[] = {
      {R"("Preview\nin the scene")", R"(Preview\nin the scene)"},
      {R"("&Open...\tCtrl+O")", R"(&Open...\tCtrl+O)"},
      {R"("More \"advanced\" options")", R"(More "advanced" options)"},
      {R"("C:\\temp")", R"(C:\\temp)"},
      {R"("ends in \\")", R"(ends in \)"},
      {R"("\\\"")", R"(\")"},
      {R"("\\\\")", R"(\\)"},
      {R"("\"")", R"(")"},
  };
  for (const Case& c : cases) {
    const Ref<NkInfo> info = readOne<NkInfo>(std::string("Info { string ") + c.text + "}");
    ASSERT_TRUE(info) << c.text;
    EXPECT_EQ(info->string.getValue().toUtf8(), c.value) << c.text;
  }
}

TEST_F(Reading, AStringKeepsItsLineBreaks) {
  const Ref<NkInfo> info = readOne<NkInfo>("Info { string \"a\nb\r\n c\" }");
  ASSERT_TRUE(info);
  EXPECT_EQ(info->string.getValue(), "a\nb\r\n c");
}

TEST_F(Reading, Utf8GivesAWideString) {
  const Ref<NkInfo> plain = readOne<NkInfo>("Info { string \"Grun\" }");
  const Ref<NkInfo> umlaut = readOne<NkInfo>("Info { string \"Gr\xC3\xBCn \xE2\x82\xAC\" }");
  ASSERT_TRUE(plain && umlaut);
  EXPECT_FALSE(plain->string.getValue().isUnicode());
  EXPECT_TRUE(umlaut->string.getValue().isUnicode());
  EXPECT_TRUE(umlaut->string.getValue().toWideChar() == L"Gr\u00fcn \u20ac");
}

TEST_F(Reading, NodesStandInFields) {
  const Ref<NkEveryField> node = readOne<NkEveryField>(
      "EveryField { sfNode DEF a Cube { width 4 } mfNode [ USE a, NULL Sphere { }, ] sfInt32 3 Cube { } }");
  ASSERT_TRUE(node);
  ASSERT_TRUE(node->sfNode.getValue());
  ASSERT_EQ(node->mfNode.getNum(), 3);
  EXPECT_EQ(node->mfNode[0], node->sfNode.getValue());
  EXPECT_FALSE(node->mfNode[1]);
  EXPECT_EQ(node->mfNode[2]->getTypeId(), NkSphere::getClassTypeId());
  EXPECT_EQ(node->sfInt32.getValue(), 3);
  EXPECT_EQ(node->getNumChildren(), 1);
}

// Names

TEST_F(Reading, NamesAreGivenAndUsed) {
  const Ref<NkSeparator> root =
      read("DEF skin Group { DEF a-b Cube { } USE a-b } USE skin DEF \"two words\" Sphere { }");
  ASSERT_TRUE(root);
  auto* skin = static_cast<NkGroup*>(root->getChild(0));
  EXPECT_EQ(skin, root->getChild(1));
  EXPECT_EQ(skin->getChild(0), skin->getChild(1));
  EXPECT_EQ(skin->getRefCount(), 2);
  EXPECT_EQ(NkNode::getByName("skin"), skin);
  EXPECT_EQ(NkNode::getByName("two words"), root->getChild(2));
}

TEST_F(Reading, ANameGoesOverToTheNextNodeThatTakesIt) {
  const Ref<NkSeparator> root = read("DEF a Group { DEF a Cube { } USE a } USE a DEF a Sphere { } USE a");
  ASSERT_TRUE(root);
  auto* group = static_cast<NkGroup*>(root->getChild(0));
  EXPECT_EQ(group->getChild(0), group->getChild(1));
  EXPECT_EQ(root->getChild(1), group->getChild(0));
  EXPECT_EQ(root->getChild(3), root->getChild(2));
}

TEST_F(Reading, ANumberBehindANameIsTakenOff) {
  const Ref<NkSeparator> root = read("DEF a+1 Cube { } DEF +7 Sphere { } USE a+1 USE +7");
  ASSERT_TRUE(root);
  EXPECT_EQ(root->getChild(0)->getName(), "a");
  EXPECT_EQ(root->getChild(1)->getName(), "");
  EXPECT_EQ(root->getChild(2), root->getChild(0));
  EXPECT_EQ(root->getChild(3), root->getChild(1));
}

TEST_F(Reading, FieldsFollowOthers) {
  const Ref<NkSeparator> root =
      read("DEF a Cube { width 5 height 1 = b.height } DEF b Cube { width = a.width height 7 depth 3=a.depth }");
  ASSERT_TRUE(root);
  auto* a = static_cast<NkCube*>(root->getChild(0));
  auto* b = static_cast<NkCube*>(root->getChild(1));
  EXPECT_EQ(b->width.getConnectedField(), &a->width);
  EXPECT_EQ(a->height.getConnectedField(), &b->height);
  EXPECT_EQ(b->width.getValue(), 5);
  EXPECT_EQ(a->height.getValue(), 7);
  EXPECT_EQ(b->depth.getValue(), 2);
  a->width = 9.0F;
  EXPECT_EQ(b->width.getValue(), 9);
}

// Errors

namespace {

struct ErrorCase {
  const char* text;
  std::vector<const char*> messages;
};

const ErrorCase kErrors[] = {
    {"Cubee { }", {"<buffer>:1:1: error: there is no node type 'Cubee'; did you mean 'Cube'?"}},
    {"\n  cube { width 2 }", {"2:3: error: there is no node type 'cube'; did you mean 'Cube'?"}},
    {"Qqqqqqq { }", {"1:1: error: there is no node type 'Qqqqqqq'"}},
    {"SFFloat { }", {"1:1: error: there is no node type 'SFFloat'"}},
    {"Shape { }", {"1:1: error: 'Shape' stands for a family of node types: one of them expected"}},
    {"Path { Cube { } [] }", {"1:1: error: a Path can't stand here: Node expected"}},
    {"Cube { widht 2 }", {"1:8: error: a Cube has no field 'widht'; did you mean 'width'?"}},
    {"Group { widht 2 }", {"1:9: error: a Group has no field 'widht'"}},
    {"Cube { width }", {"1:14: error: a number expected, found '}'"}},
    {"Cube { width two }", {"1:14: error: a number expected, found 'two'"}},
    {"Cube { width 2x }", {"1:14: error: a number expected, found '2x'"}},
    {"Cube { width +-2 }", {"1:14: error: a number expected, found '+-2'"}},
    {"Cube { width 1e99 }", {"1:14: error: '1e99' is out of the range of numbers"}},
    {"Cube { width 2 3 }", {"1:16: error: the name of a field expected, found '3'"}},
    {"Cube { , }", {"1:8: error: the name of a field expected, found ','"}},
    {"Cube { width 2 3 height 4 depth x }",
     {"1:16: error: the name of a field expected, found '3'", "1:33: error: a number expected, found 'x'"}},
    {"EveryField { sfInt32 1 { } sfBool 2 }",
     {"1:24: error: a node expected, found '{'", "1:35: error: TRUE or FALSE expected, found '2'"}},
    {"Cube { Sphere { } }", {"1:8: error: a Cube takes no child nodes"}},
    {"Cube { DEF a Sphere { } USE b }",
     {"1:8: error: a Cube takes no child nodes", "1:25: error: a Cube takes no child nodes"}},
    {"EveryField { sfInt32 1.5 }", {"1:22: error: an integer expected, found '1.5'"}},
    {"EveryField { sfInt32 2147483648 }", {"1:22: error: '2147483648' is out of the range of integers"}},
    {"EveryField { sfInt32 0x }", {"1:22: error: an integer expected, found '0x'"}},
    {"EveryField { sfInt32 0x123456789 }", {"1:22: error: '0x123456789' is out of the range of integers"}},
    {"EveryField { sfBool true }", {"1:21: error: TRUE or FALSE expected, found 'true'"}},
    {"EveryField { sfBool 2 }", {"1:21: error: TRUE or FALSE expected, found '2'"}},
    {"EveryField { sfString }", {"1:23: error: a string expected, found '}'"}},
    {"EveryField { sfEnum 5 }", {"1:21: error: SWEET, SOUR or BITTER expected, found '5'"}},
    {"EveryField { sfEnum SOURR }", {"1:21: error: SWEET, SOUR or BITTER expected, found 'SOURR'"}},
    {"EveryField { sfBitMask (LEFT RIGHT) }", {"1:30: error: '|' or ')' expected, found 'RIGHT'"}},
    {"EveryField { sfBitMask 3 }", {"1:24: error: NONE, LEFT, RIGHT, TOP or ALL expected, found '3'"}},
    {"EveryField { sfBitMask (LEFT }", {"1:30: error: '|' or ')' expected, found '}'"}},
    {"EveryField { sfImage 100000 100000 3 0 }", {"too short for an image of 100000 by 100000 pixels"}},
    {"EveryField { sfImage -1 1 1 }", {"an image can't have the size -1 1 1"}},
    {"EveryField { mfInt32 [ 1, , 2 ] }", {"1:27: error: an integer expected, found ','"}},
    {"EveryField { mfInt32 [ 1, 2 }", {"1:29: error: ']' expected for the '[' at 1:22"}},
    {"EveryField { mfVec3f [ 1 2, 3 ] }", {"1:27: error: a number expected, found ','"}},
    {"EveryField { sfNode }", {"1:21: error: a node expected, found '}'"}},
    {"EveryField { sfNode 3 }", {"1:21: error: a node expected, found '3'"}},
    {"EveryField { sfNode Cubee { } }", {"1:21: error: there is no node type 'Cubee'; did you mean 'Cube'?"}},
    {"EveryField { sfNode USE nothing }", {"1:25: error: nothing ahead of this is named 'nothing'"}},
    {"EveryField { Cube { } sfInt32 3 }",
     {"1:23: error: the field 'sfInt32' must stand ahead of the first child node"}},
    {"Group {", {"1:8: error: '}' expected for the '{' at 1:7"}},
    {"Group {\n  Cube { width 2\n}\n", {"4:1: error: '}' expected for the '{' at 1:7"}},
    {"Group { } }", {"1:11: error: this '}' closes nothing"}},
    {"} Cube { }", {"1:1: error: this '}' closes nothing"}},
    {"Group", {"1:6: error: '{' expected behind 'Group', found the end"}},
    {"Group [ ]", {"1:7: error: '{' expected behind 'Group', found '['"}},
    {"hello world", {"1:1: error: there is no node type 'hello'"}},
    {"17", {"1:1: error: a node expected, found '17'"}},
    {"{ }", {"1:1: error: a node expected, found '{'"}},
    {"Group { { Cube { } } }", {"1:9: error: a node expected, found '{'"}},
    {"\"text\"", {"1:1: error: a node expected, found a string"}},
    {"DEF", {"1:4: error: a name expected, found the end"}},
    {"DEF a", {"1:6: error: a node type expected, found the end"}},
    {"Cube { DEF a }", {"1:8: error: a Cube takes no child nodes"}},
    {"DEF a { }", {"1:7: error: a node type expected, found '{'"}},
    {"DEF a Cubee { } USE a", {"1:7: error: there is no node type 'Cubee'; did you mean 'Cube'?"}},
    {"USE a", {"1:5: error: nothing ahead of this is named 'a'"}},
    {"DEF box Cube { } USE bax", {"1:22: error: nothing ahead of this is named 'bax'; did you mean 'box'?"}},
    {"DEF a Group { USE a }", {"1:19: error: 'a' can't contain itself"}},
    {"DEF a EveryField { sfNode USE a }", {"1:31: error: 'a' can't contain itself"}},
    {"Info { string \"open }\n\n", {"1:15: error: this string is never closed"}},
    {"Cube { width = }", {"1:16: error: a name expected, found '}'"}},
    {"Cube { width = a }", {"1:18: error: a connection has the form NAME.FIELD, found '}'"}},
    {"Cube { width = a.width }", {"1:16: error: nothing is named 'a'"}},
    {"DEF a Cube { width = a.widht }", {"1:22: error: 'a' has no field 'widht'"}},
    {"DEF a Cube { width = a.width }", {"1:22: error: a field of type SFFloat can't follow"}},
    {"DEF a Info { } Cube { width = a.string }",
     {"1:31: error: a field of type SFFloat can't follow 'a'.string, which is of type SFString"}},
    // Several in one text.
    {"Cube { widht 2 heigth 3 depth x }",
     {"1:8: error: a Cube has no field 'widht'; did you mean 'width'?",
      "1:16: error: a Cube has no field 'heigth'; did you mean 'height'?",
      "1:31: error: a number expected, found 'x'"}},
    {"Group {\n Cubee { a { b \"}\" } }\n Cube { width x }\n Sphere { }\n} Foo { }",
     {"2:2: error: there is no node type 'Cubee'", "3:15: error: a number expected, found 'x'",
      "5:3: error: there is no node type 'Foo'"}},
    {"Cube { width [ 1 2 ] height y }",
     {"1:14: error: a number expected, found '['", "1:29: error: a number expected, found 'y'"}},
    {"EveryField { sfInt32 x sfNode Cube { width y } Group { USE z } }",
     {"1:22: error: an integer expected, found 'x'", "1:44: error: a number expected, found 'y'",
      "1:60: error: nothing ahead of this is named 'z'"}},
    // Columns count characters.
    {"Info { string \"\xC3\xBC\xC3\xBC\" } Foo { }", {"1:22: error: there is no node type 'Foo'"}},
    {"#\r\n#\r#\n Foo { }", {"4:2: error: there is no node type 'Foo'"}},
};

} // namespace

TEST_F(Reading, ErrorsAreReportedWhereTheyStand) {
  for (const ErrorCase& c : kErrors) {
    SCOPED_TRACE(c.text);
    const std::size_t before = postedMessages().size();
    {
      const ExpectMessages expected(std::vector<std::string>(c.messages.begin(), c.messages.end()));
      EXPECT_FALSE(read(c.text));
    }
    EXPECT_EQ(postedMessages().size() - before, c.messages.size());
    EXPECT_EQ(NkBase::getLiveCount(), 0);
  }
}

TEST_F(Reading, AChildOfAnotherKindIsRejected) {
  const std::string text = "Cube { width x } Sphere { }";
  NkInput in;
  in.setBuffer(text.data(), text.size());
  expectMessage("<buffer>:1:1: error: a Cube can't stand here: Group expected");
  NkBase* object = nullptr;
  EXPECT_FALSE(NkBase::read(&in, object, NkGroup::getClassTypeId()));
  EXPECT_FALSE(object);
}

TEST_F(Reading, AfterTwentyErrorsTheReaderGivesUp) {
  std::string text = "Group {";
  for (int i = 0; i < 1000; ++i) text += " Foo { }";
  allowMessages("there is no node type 'Foo'");
  EXPECT_FALSE(read(text + "}"));
  EXPECT_EQ(postedMessages().size(), 20U);
}

TEST_F(Reading, AFileIsNamedInItsMessages) {
  const std::string path = outputDir() + "/broken.arb";
  std::ofstream(path) << "#Arbora V2.1 ascii\nCube { width x }\n";
  NkInput in;
  ASSERT_TRUE(in.openFile(NbString(path)));
  EXPECT_EQ(in.getCurFileName(), NbString(path));
  expectMessage("broken.arb:2:14: error: a number expected, found 'x'");
  EXPECT_FALSE(NkDB::readAll(&in));
}

// What a hostile text might try

TEST_F(Reading, TheDepthIsBounded) {
  const auto nested = [](int depth) {
    std::string text;
    for (int i = 0; i < depth; ++i) text += "Group{";
    return text + std::string(static_cast<std::size_t>(depth), '}');
  };
  EXPECT_TRUE(read(nested(NkInput::kMaxDepth)));
  expectMessage("error: more than 2000 nodes stand within one another");
  EXPECT_FALSE(read(nested(NkInput::kMaxDepth + 1)));
  const auto inFields = [](int depth) {
    std::string text;
    for (int i = 0; i < depth; ++i) text += "EveryField{sfNode ";
    return text + "NULL" + std::string(static_cast<std::size_t>(depth), '}');
  };
  EXPECT_TRUE(read(inFields(NkInput::kMaxDepth)));
  expectMessage("error: more than 2000 nodes stand within one another");
  EXPECT_FALSE(read(inFields(NkInput::kMaxDepth + 1)));
}

TEST_F(Reading, LongTextsTakeTimeInProportion) {
  constexpr std::size_t kMany = 1000000;
  const auto start = std::chrono::steady_clock::now();
  allowMessages("error");
  EXPECT_TRUE(read("#" + std::string(kMany, '#')));
  EXPECT_FALSE(read(std::string(kMany, '{')));
  EXPECT_FALSE(read(std::string(kMany, '}')));
  EXPECT_FALSE(read(std::string(kMany, '[')));
  EXPECT_FALSE(read("Info { string \"" + std::string(kMany, '\\')));
  EXPECT_FALSE(read(std::string(kMany, 'x') + " { }"));
  EXPECT_FALSE(read("EveryField { mfInt32 [" + std::string(kMany, ',')));
  std::string text;
  for (std::size_t i = 0; i < kMany / 10; ++i) text += "Foo{";
  EXPECT_FALSE(read(text));
  text = "Group {";
  for (std::size_t i = 0; i < kMany / 10; ++i) text += "bar {";
  EXPECT_FALSE(read(text));
  // Far above what it takes even under the sanitizers, and far below what a quadratic reader would.
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

TEST_F(Reading, EveryBeginningOfATextIsReadOrRejected) {
  const std::string text = "#Arbora V2.1 ascii\nDEF a EveryField { sfBitMask (LEFT | TOP) mfString [ \"a\\\"\", b ] "
                           "sfFloat 2 = b.sfFloat mfNode [ DEF b EveryField { }, NULL ] USE b Cube { width 1 } } USE a";
  allowMessages("error");
  for (std::size_t length = 0; length <= text.size(); ++length) {
    const Ref<NkSeparator> root = read(text.substr(0, length));
    if (length == text.size()) {
      EXPECT_TRUE(root);
    }
  }
}

// Texts of single values

TEST_F(Reading, FieldsTakeText) {
  const Ref<NkEveryField> node(new NkEveryField);
  EXPECT_TRUE(node->sfVec3f.set("1 2 3"));
  EXPECT_EQ(node->sfVec3f.getValue(), NbVec3f(1, 2, 3));
  EXPECT_TRUE(node->sfNode.set("Cube { width 3 }"));
  ASSERT_TRUE(node->sfNode.getValue());
  EXPECT_EQ(node->sfNode.get(), "Cube {\n  width 3\n}");
  expectMessage("<buffer>:1:3: error: a number expected, found the end");
  EXPECT_FALSE(node->sfVec2f.set("1 "));
  expectMessage("<buffer>:1:5: error: the end expected behind the value, found '3'");
  EXPECT_FALSE(node->sfVec2f.set("1 2 3"));
  expectMessage("<buffer>:1:1: error: there is no node type 'Foo'");
  EXPECT_FALSE(node->sfNode.set("Foo { }"));
}

TEST_F(Reading, ContainersTakeText) {
  auto* cube = new NkCube;
  EXPECT_TRUE(cube->set("width 3 height 4"));
  EXPECT_EQ(cube->getRefCount(), 0);
  EXPECT_EQ(cube->width.getValue(), 3);
  EXPECT_EQ(cube->height.getValue(), 4);
  EXPECT_TRUE(cube->set(""));
  expectMessage("<buffer>:1:1: error: a Cube has no field 'widht'; did you mean 'width'?");
  EXPECT_FALSE(cube->set("widht 3 height 5"));
  EXPECT_EQ(cube->height.getValue(), 5);
  expectMessage("<buffer>:1:9: error: the name of a field expected, found '}'");
  EXPECT_FALSE(cube->set("width 3 }"));
  expectMessage("<buffer>:1:9: error: nothing is named 'a'");
  EXPECT_FALSE(cube->set("width = a.width"));
  EXPECT_EQ(cube->getRefCount(), 0);
  cube->ref();
  cube->unref();
}

// Places of files

namespace {

/// Puts the directories back as they were.
class KeepDirectories {
public:
  KeepDirectories() {
    const NbStringList& list = NkInput::getDirectories();
    for (int i = 0; i < list.getLength(); ++i) m_names.push_back(*list[i]);
  }
  ~KeepDirectories() {
    NkInput::clearDirectories();
    for (const NbString& name : m_names) NkInput::addDirectoryLast(name);
  }

private:
  std::vector<NbString> m_names;
};

} // namespace

TEST_F(Reading, FilesAreLookedForInTheDirectories) {
  const KeepDirectories keep;
  const std::string first = outputDir() + "/first";
  const std::string second = outputDir() + "/second";
  std::filesystem::create_directories(first);
  std::filesystem::create_directories(second);
  std::ofstream(first + "/both.arb") << "Cube { }";
  std::ofstream(second + "/both.arb") << "Sphere { }";
  std::ofstream(second + "/one.arb") << "Sphere { }";
  const auto typeIn = [](const char* name) {
    NkInput in;
    if (!in.openFile(name, true)) return NkType::badType();
    const Ref<NkSeparator> root(NkDB::readAll(&in));
    return root->getChild(0)->getTypeId();
  };
  NkInput::clearDirectories();
  EXPECT_EQ(NkInput::getDirectories().getLength(), 0);
  EXPECT_TRUE(typeIn("both.arb").isBad());
  NkInput::addDirectoryLast(NbString(second));
  EXPECT_EQ(typeIn("both.arb"), NkSphere::getClassTypeId());
  NkInput::addDirectoryFirst(NbString(first));
  EXPECT_EQ(typeIn("both.arb"), NkCube::getClassTypeId());
  EXPECT_EQ(typeIn("one.arb"), NkSphere::getClassTypeId());
  EXPECT_EQ(*NkInput::getDirectories()[0], NbString(first));
  NkInput::removeDirectory(NbString(first));
  EXPECT_EQ(NkInput::getDirectories().getLength(), 1);
  EXPECT_EQ(typeIn("both.arb"), NkSphere::getClassTypeId());
  NkInput in;
  EXPECT_TRUE(in.openFile(NbString(first + "/both.arb")));
}

TEST_F(Reading, AMissingFileIsReportedUnlessThatIsFine) {
  const KeepDirectories keep;
  NkInput in;
  EXPECT_FALSE(in.openFile("no such file.arb", true));
  expectMessage("no such file.arb: error: there is no such file in '.'");
  EXPECT_FALSE(in.openFile("no such file.arb"));
  NkInput::clearDirectories();
  expectMessage("no such file.arb: error: there is no such file: no directory is set to look in");
  EXPECT_FALSE(in.openFile("no such file.arb"));
  expectMessage("error: there is no such file");
  EXPECT_FALSE(in.openFile(NbString(outputDir())));
}

TEST_F(Reading, AClosedInputIsEmpty) {
  const std::string path = outputDir() + "/closed.arb";
  std::ofstream(path) << "Cube { }";
  NkInput in;
  ASSERT_TRUE(in.openFile(NbString(path)));
  in.closeFile();
  const Ref<NkSeparator> root(NkDB::readAll(&in));
  ASSERT_TRUE(root);
  EXPECT_EQ(root->getNumChildren(), 0);
}
