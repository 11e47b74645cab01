#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>
#include <random>

#include "FileTest.h"
#include "arbora/scene/NkCube.h"
#include "arbora/scene/NkDBImpl.h"
#include "arbora/scene/NkInfo.h"
#include "arbora/scene/NkOutput.h"
#include "arbora/scene/NkPath.h"
#include "arbora/scene/NkSphere.h"
#include "arbora/scene/NkSwitch.h"
#include "arbora/scene/NkTranslation.h"
#include "arbora/scene/NkWriteAction.h"

using arbora::Ref;

class Writing : public FileTest {
protected:
  /// Writes and reads again, in both forms.
  void expectRoundTrip(NkNode* node) {
    const Ref<NkNode> keep(node);
    for (const std::string& file : {writeText(node), writeBinary(node)}) {
      const Ref<NkSeparator> root = read(file);
      ASSERT_TRUE(root) << file;
      ASSERT_EQ(root->getNumChildren(), 1) << file;
      EXPECT_EQ(difference(node, root->getChild(0)), "") << file;
    }
  }
};

TEST_F(Writing, TheTextIsIndented) {
  const Ref<NkGroup> group(new NkGroup);
  auto* cube = new NkCube;
  cube->width = 0.1F;
  cube->setName("box");
  group->addChild(cube);
  group->addChild(new NkSphere);
  EXPECT_EQ(writeText(group.get()), "#Arbora V2.1 ascii\n"
                                    "\n"
                                    "Group {\n"
                                    "  DEF box Cube {\n"
                                    "    width 0.1\n"
                                    "  }\n"
                                    "  Sphere { }\n"
                                    "}\n");
}

TEST_F(Writing, NodesInFieldsStandBehindTheName) {
  const Ref<NkEveryField> node(new NkEveryField);
  auto* cube = new NkCube;
  cube->width = 3.0F;
  node->sfNode = cube;
  node->mfNode.set1Value(0, new NkSphere);
  node->mfNode.set1Value(2, cube);
  EXPECT_EQ(writeText(node.get()), "#Arbora V2.1 ascii\n"
                                   "\n"
                                   "EveryField {\n"
                                   "  sfNode DEF +1 Cube {\n"
                                   "    width 3\n"
                                   "  }\n"
                                   "  mfNode [\n"
                                   "    Sphere { }\n"
                                   "    NULL\n"
                                   "    USE +1\n"
                                   "  ]\n"
                                   "}\n");
}

TEST_F(Writing, DefaultsAreLeftOut) {
  const Ref<NkCube> cube(new NkCube);
  cube->width = 5.0F;
  cube->height = 2.0F;
  cube->height.setDefault(true);
  EXPECT_EQ(writeText(cube.get()), "#Arbora V2.1 ascii\n\nCube {\n  width 5\n}\n");
}

TEST_F(Writing, ANodeIsWrittenOnce) {
  auto* root = new NkGroup;
  auto* shared = new NkGroup;
  auto* inner = new NkCube;
  shared->addChild(inner);
  root->addChild(shared);
  root->addChild(shared);
  root->addChild(inner);
  EXPECT_EQ(writeText(root), "#Arbora V2.1 ascii\n"
                             "\n"
                             "Group {\n"
                             "  DEF +1 Group {\n"
                             "    DEF +2 Cube { }\n"
                             "  }\n"
                             "  USE +1\n"
                             "  USE +2\n"
                             "}\n");
  expectRoundTrip(root);
}

TEST_F(Writing, NamesAreToldApart) {
  auto* root = new NkGroup;
  for (const char* name : {"a", "a", "a+1", "a+1", "two words", "1st", "\"", "", "+", "b\\", "a+1+1", "()", "x.y"}) {
    auto* cube = new NkCube;
    cube->setName(name);
    root->addChild(cube);
    root->addChild(new NkSphere);
    root->addChild(cube);
  }
  expectRoundTrip(root);
}

TEST_F(Writing, ANameOfManyStaysWithTheNodeThatBearsIt) {
  auto* root = new NkGroup;
  auto* first = new NkCube;
  auto* second = new NkCube;
  first->setName("a");
  second->setName("a");
  second->width = 7.0F;
  root->addChild(first);
  root->addChild(second);
  root->addChild(first);
  expectRoundTrip(root);
}

TEST_F(Writing, ConnectionsAreKept) {
  auto* root = new NkGroup;
  auto* first = new NkCube;
  auto* second = new NkCube;
  root->addChild(first);
  root->addChild(second);
  // Without a name, and to what comes later.
  first->width.connectFrom(&second->height);
  second->depth.connectFrom(&first->depth);
  const Ref<NkCube> outside(new NkCube);
  outside->width = 9.0F;
  second->width.connectFrom(&outside->width);
  const Ref<NkGroup> keep(root);
  for (const std::string& file : {writeText(root), writeBinary(root)}) {
    const Ref<NkSeparator> copy = read(file);
    ASSERT_TRUE(copy) << file;
    auto* group = static_cast<NkGroup*>(copy->getChild(0));
    auto* a = static_cast<NkCube*>(group->getChild(0));
    auto* b = static_cast<NkCube*>(group->getChild(1));
    EXPECT_EQ(a->width.getConnectedField(), &b->height) << file;
    EXPECT_EQ(b->depth.getConnectedField(), &a->depth) << file;
    // What isn't part of the file leaves its value.
    EXPECT_FALSE(b->width.isConnected()) << file;
    EXPECT_EQ(b->width.getValue(), 9) << file;
    EXPECT_EQ(a->getName(), "") << file;
  }
}

TEST_F(Writing, ASwitchKeepsTheChildrenThatItHides) {
  auto* node = new NkSwitch;
  node->addChild(new NkCube);
  node->addChild(new NkSphere);
  node->whichChild = 1;
  expectRoundTrip(node);
}

TEST_F(Writing, ValuesWithoutANameAreReplaced) {
  const Ref<NkEveryField> node(new NkEveryField);
  node->sfEnum = 77;
  node->sfBitMask = 64 | NkEveryField::TOP;
  {
    const ExpectMessages expected({"77 has no name in Flavour; SWEET is written", "Bits 64 have no name in Corner"});
    EXPECT_EQ(writeText(node.get()), "#Arbora V2.1 ascii\n\nEveryField {\n  sfEnum SWEET\n  sfBitMask TOP\n}\n");
  }
  const ExpectMessages expected({"77 has no name in Flavour; SWEET is written", "Bits 64 have no name in Corner"});
  EXPECT_TRUE(read(writeBinary(node.get())));
}

TEST_F(Writing, ANodeThatContainsItselfIsWrittenOnce) {
  const Ref<NkGroup> group(new NkGroup);
  group->addChild(group.get());
  allowMessages("contains itself");
  const std::string text = writeText(group.get());
  EXPECT_LT(text.size(), 200U);
  group->removeAllChildren();
}

TEST_F(Writing, AnOutputTakesSeveralScenes) {
  NkOutput out;
  NkWriteAction action(&out);
  const Ref<NkCube> cube(new NkCube);
  cube->setName("a");
  action.apply(cube.get());
  action.apply(cube.get());
  const Ref<NkSeparator> root = read(out.getString());
  ASSERT_TRUE(root);
  ASSERT_EQ(root->getNumChildren(), 2);
  EXPECT_EQ(root->getChild(1)->getName(), "a");
  EXPECT_EQ(out.getString().find("#Arbora"), out.getString().rfind("#Arbora"));
  EXPECT_EQ(cube->shouldWrite(), 0);
  out.setBuffer();
  EXPECT_EQ(out.getString(), "");
}

TEST_F(Writing, PathsAreObjectsOfTheirOwn) {
  const Ref<NkGroup> root(new NkGroup);
  auto* inner = new NkGroup;
  auto* cube = new NkCube;
  root->addChild(new NkSphere);
  root->addChild(new NkTranslation);
  root->addChild(inner);
  root->addChild(new NkInfo);
  inner->addChild(new NkSphere);
  inner->addChild(cube);
  inner->addChild(new NkInfo);
  cube->width = 5.0F;
  const Ref<NkFullPath> path(NkPath::create(root.get()));
  path->append(2);
  path->append(1);
  for (const bool binary : {false, true}) {
    NkOutput out;
    out.setBinary(binary);
    NkWriteAction(&out).apply(path.get());
    NkInput in;
    in.setBuffer(out.getString().data(), out.getString().size());
    NkBase* object = nullptr;
    ASSERT_TRUE(NkBase::read(&in, object, NkPath::getClassTypeId())) << out.getString();
    ASSERT_TRUE(object);
    const Ref<NkPath> copy(static_cast<NkPath*>(object));
    ASSERT_EQ(copy->getLength(), 3);
    EXPECT_TRUE(copy->isIntact());
    EXPECT_EQ(difference(cube, copy->getTail()), "");
    // What stands behind the path isn't part of it.
    EXPECT_EQ(static_cast<NkGroup*>(copy->getHead())->getNumChildren(), 3);
    EXPECT_EQ(static_cast<NkGroup*>(copy->getNode(1))->getNumChildren(), 2);
  }
  const std::string broken = "Path { Group { Cube { } } [ 0, 3 ] }";
  NkInput in;
  in.setBuffer(broken.data(), broken.size());
  NkBase* object = nullptr;
  expectMessage("error: the path leads to a child 3 that isn't there");
  EXPECT_FALSE(NkBase::read(&in, object, NkPath::getClassTypeId()));
}

TEST_F(Writing, NamesOnTheNetworkAreMadeOnDemand) {
  const Ref<NkCube> first(new NkCube);
  const Ref<NkCube> second(new NkCube);
  const std::string made = first->getNetName();
  EXPECT_EQ(made.substr(0, 5), "Cube_");
  EXPECT_EQ(first->getNetName(), made);
  EXPECT_NE(second->getNetName(), made);
  second->setNetName("mine");
  EXPECT_STREQ(second->getNetName(), "mine");
}

// Files

TEST_F(Writing, AFileHoldsWhatMemoryWould) {
  const Ref<NkGroup> group(new NkGroup);
  for (int i = 0; i < 20000; ++i) {
    auto* cube = new NkCube;
    cube->width = static_cast<float>(i);
    group->addChild(cube);
  }
  for (const bool binary : {false, true}) {
    const std::string path = outputDir() + "/written.arb";
    NkOutput out;
    out.setBinary(binary);
    ASSERT_TRUE(out.openFile(NbString(path)));
    NkWriteAction(&out).apply(group.get());
    EXPECT_TRUE(out.closeFile());
    NkInput in;
    ASSERT_TRUE(in.openFile(NbString(path)));
    EXPECT_EQ(in.isBinary(), binary);
    const Ref<NkSeparator> root(NkDB::readAll(&in));
    ASSERT_TRUE(root);
    EXPECT_EQ(difference(group.get(), root->getChild(0)), "");
    EXPECT_EQ(std::remove(path.c_str()), 0);
  }
}

TEST_F(Writing, AFileThatCantBeMadeIsReported) {
  NkOutput out;
  expectMessage("nowhere/file.arb: error: can't be written: ");
  EXPECT_FALSE(out.openFile(NbString(outputDir() + "/nowhere/file.arb")));
  const Ref<NkCube> cube(new NkCube);
  NkWriteAction(&out).apply(cube.get());
  EXPECT_FALSE(out.getString().empty());
}

#ifdef __linux__
TEST_F(Writing, AFullDeviceIsReported) {
  NkOutput out;
  ASSERT_TRUE(out.openFile("/dev/full"));
  const Ref<NkCube> cube(new NkCube);
  NkWriteAction(&out).apply(cube.get());
  expectMessage("/dev/full: error: can't be written: No space left on device");
  EXPECT_FALSE(out.closeFile());
}
#endif

// Round trips

TEST_F(Writing, NumbersComeBackExactly) {
  std::mt19937 random(1);
  std::uniform_int_distribution<std::uint32_t> bits;
  auto* node = new NkEveryField;
  for (int i = 0; i < 20000; ++i) {
    const std::uint32_t number = bits(random);
    float value = 0;
    static_assert(sizeof(value) == sizeof(number));
    std::memcpy(&value, &number, sizeof(value));
    node->mfInt32.set1Value(i, static_cast<int>(number));
    node->mfFloat.set1Value(i, std::isnan(value) ? 0 : value);
  }
  node->mfFloat.set1Value(0, std::numeric_limits<float>::infinity());
  node->mfFloat.set1Value(1, -std::numeric_limits<float>::infinity());
  node->mfFloat.set1Value(2, std::numeric_limits<float>::denorm_min());
  node->mfInt32.set1Value(0, std::numeric_limits<int>::min());
  node->mfInt32.set1Value(1, std::numeric_limits<int>::max());
  expectRoundTrip(node);
}

TEST_F(Writing, RotationsAndPlanesComeBackExactly) {
  std::mt19937 random(2);
  std::normal_distribution<float> number;
  const Ref<NkEveryField> node(new NkEveryField);
  for (int i = 0; i < 20000; ++i) {
    const NbRotation rotation(number(random), number(random), number(random), number(random));
    const NbPlane plane(NbVec3f(number(random), number(random), number(random)), number(random));
    node->sfRotation = rotation;
    node->sfPlane = plane;
    const std::string rotationText = node->sfRotation.get().toUtf8();
    const std::string planeText = node->sfPlane.get().toUtf8();
    ASSERT_TRUE(node->sfRotation.set(rotationText.c_str()));
    ASSERT_TRUE(node->sfPlane.set(planeText.c_str()));
    EXPECT_EQ(node->sfRotation.getValue(), rotation) << rotationText;
    EXPECT_EQ(node->sfPlane.getValue(), plane) << planeText;
  }
}

TEST_F(Writing, StringsComeBackExactly) {
  auto* node = new NkEveryField;
  std::mt19937 random(3);
  constexpr char kNarrow[] = "ab \\\\\\\\\"\"\n\r\tn#{}[],\0\x7f\x80\xff";
  const std::string narrow(kNarrow, sizeof(kNarrow) - 1);
  const std::wstring wide(L"a\\\" \u00e4\u20ac\U0001F600");
  for (int i = 0; i < 2000; ++i) {
    const std::size_t length = random() % 8;
    if (i % 2 == 0) {
      std::string text;
      for (std::size_t c = 0; c < length; ++c) text += narrow[random() % narrow.size()];
      node->mfString.set1Value(i, NbString(text));
    } else {
      std::wstring text;
      for (std::size_t c = 0; c < length; ++c) text += wide.substr(random() % 6, 1);
      if (length > 5) text += wide.substr(6);
      node->mfString.set1Value(i, NbString(text));
    }
  }
  expectRoundTrip(node);
}

namespace {

/// Random trees: each kind of field and node, shared nodes, names, connections.
class TreeMaker {
public:
  explicit TreeMaker(unsigned seed) : m_random(seed) {}

  NkNode* make(int depth) {
    if (!m_nodes.empty() && chance(6)) return m_nodes[pick(m_nodes.size())];
    NkNode* node = nullptr;
    switch (depth > 0 ? pick(5) : pick(3)) {
      case 0:
        node = makeCube();
        break;
      case 1:
        node = new NkSphere;
        break;
      case 2:
        node = new NkInfo;
        break;
      case 3:
        node = makeSeparator(depth);
        break;
      default:
        node = makeEveryField(depth);
        break;
    }
    if (chance(4)) node->setName(NbName(std::string_view("n" + std::to_string(pick(5)))));
    // Complete only now: no node may contain itself.
    m_nodes.push_back(node);
    return node;
  }

private:
  std::size_t pick(std::size_t count) { return m_random() % count; }
  bool chance(std::size_t oneIn) { return pick(oneIn) == 0; }
  float number() { return std::normal_distribution<float>(0, 100)(m_random); }

  NkNode* makeCube() {
    auto* cube = new NkCube;
    if (chance(2)) cube->width = number();
    if (chance(2)) cube->depth = number();
    if (!m_cubes.empty() && chance(3)) cube->height.connectFrom(&m_cubes[pick(m_cubes.size())]->height);
    m_cubes.push_back(cube);
    return cube;
  }

  NkNode* makeSeparator(int depth) {
    auto* separator = new NkSeparator;
    for (std::size_t i = pick(5); i > 0; --i) separator->addChild(make(depth - 1));
    return separator;
  }

  NkNode* makeEveryField(int depth) {
    auto* node = new NkEveryField;
    const auto maybe = [this] { return chance(3); };
    if (maybe()) node->sfBool = chance(2);
    if (maybe()) node->sfInt32 = static_cast<int>(m_random());
    if (maybe()) node->sfFloat = number();
    if (maybe()) node->sfString = NbString("text " + std::to_string(pick(100)));
    if (maybe()) node->sfPath = NbString("C:\\a\\b c.arb");
    if (maybe()) node->sfName = NbName("Tahoma");
    if (maybe()) node->sfEnum = chance(2) ? NkEveryField::SOUR : NkEveryField::BITTER;
    if (maybe()) node->sfBitMask = static_cast<int>(pick(8));
    if (maybe()) node->sfVec2i32.setValue(static_cast<int>(pick(1000)), -5);
    if (maybe()) node->sfVec2f.setValue(number(), number());
    if (maybe()) node->sfVec3f.setValue(number(), number(), number());
    if (maybe()) node->sfColor.setValue(number(), number(), number());
    if (maybe()) node->sfRotation = NbRotation(number(), number(), number(), number());
    if (maybe()) node->sfPlane = NbPlane(NbVec3f(number(), number(), number()), number());
    if (maybe()) {
      NbMatrix matrix;
      matrix[static_cast<int>(pick(4))][pick(4)] = number();
      node->sfMatrix = matrix;
    }
    if (maybe()) {
      arbora::Image image{static_cast<int>(pick(4)), static_cast<int>(pick(4)), 1 + static_cast<int>(pick(4)), {}};
      image.pixels.resize(static_cast<std::size_t>(image.width * image.height * image.components));
      for (unsigned char& byte : image.pixels) byte = static_cast<unsigned char>(m_random());
      node->sfImage = image;
    }
    const auto count = [this] { return static_cast<int>(pick(30)); };
    if (maybe()) {
      node->mfInt32.setNum(count());
      node->mfFloat.setNum(count());
      node->mfString.setNum(count());
      node->mfVec2f.setNum(count());
      node->mfVec3f.setNum(count());
      node->mfColor.setNum(count());
      node->mfVec3f.set1Value(count(), NbVec3f(number(), number(), number()));
    }
    if (maybe()) node->sfNode = make(depth - 1);
    if (maybe()) {
      node->mfNode.setNum(0);
      for (std::size_t i = pick(4); i > 0; --i)
        node->mfNode.set1Value(static_cast<int>(i) - 1, chance(3) ? nullptr : make(depth - 1));
    }
    for (std::size_t i = pick(4); i > 0; --i) node->addChild(make(depth - 1));
    return node;
  }

  std::mt19937 m_random;
  std::vector<NkNode*> m_nodes;
  std::vector<NkCube*> m_cubes;
};

} // namespace

TEST_F(Writing, RandomTreesComeBackEqual) {
  for (unsigned seed = 1; seed <= 300; ++seed) {
    SCOPED_TRACE(seed);
    auto* root = new NkSeparator;
    TreeMaker maker(seed);
    for (int i = 0; i < 3; ++i) root->addChild(maker.make(5));
    expectRoundTrip(root);
    if (HasFailure()) return;
  }
}

TEST_F(Writing, WhatIsWrittenAgainIsTheSame) {
  const Ref<NkSeparator> root(new NkSeparator);
  TreeMaker maker(99);
  for (int i = 0; i < 10; ++i) root->addChild(maker.make(5));
  const std::string text = writeText(root.get());
  const Ref<NkSeparator> copy = read(text);
  ASSERT_TRUE(copy);
  EXPECT_EQ(writeText(copy->getChild(0)), text);
}

// The binary form

namespace {

std::string littleEndian(unsigned number) {
  std::string bytes;
  for (int i = 0; i < 4; ++i, number >>= 8U) bytes += static_cast<char>(number & 0xFFU);
  return bytes;
}

std::string counted(const std::string& text) { return littleEndian(static_cast<unsigned>(text.size())) + text; }

const std::string kBinary = "#Arbora V2.1 binary\n";

} // namespace

TEST_F(Writing, TheBinaryFormIsLittleEndian) {
  const Ref<NkGroup> group(new NkGroup);
  auto* cube = new NkCube;
  cube->width = 1.0F;
  group->addChild(cube);
  const std::string expected = kBinary + counted("Group") + littleEndian(2) + littleEndian(0) + littleEndian(1) +
                               counted("Cube") + littleEndian(0) + littleEndian(1) + counted("width") +
                               littleEndian(0) + littleEndian(0x3F800000U);
  EXPECT_EQ(writeBinary(group.get()), expected);
}

TEST_F(Writing, TheFirstBinaryVersionClosesItsChildren) {
  const std::string group = counted("Group") + littleEndian(2) + littleEndian(0) + littleEndian(0);
  EXPECT_TRUE(read("#Arbora V1.0 binary\n" + group + littleEndian(0xFFFFFFFFU)));
  EXPECT_TRUE(read(kBinary + group));
  expectMessage("<buffer>: error: at byte 41: this Group can't be read");
  EXPECT_FALSE(read("#Arbora V1.0 binary\n" + group + littleEndian(5)));
  expectMessage("<buffer>: error: at byte 41: the file ends within a value");
  EXPECT_FALSE(read("#Arbora V1.0 binary\n" + group));
}

TEST_F(Writing, ChildrenAreReadOnlyWhereTheFlagTellsSo) {
  const Ref<NkSeparator> root = read(kBinary + counted("Group") + littleEndian(0) + littleEndian(0) + counted("Cube") +
                                     littleEndian(0) + littleEndian(0));
  ASSERT_TRUE(root);
  EXPECT_EQ(root->getNumChildren(), 2);
}

TEST_F(Writing, BadBinariesAreRejected) {
  const std::string everyField = counted("EveryField") + littleEndian(2);
  const auto withField = [&](const char* name, const std::string& value) {
    return kBinary + everyField + littleEndian(1) + counted(name) + littleEndian(0) + value;
  };
  const unsigned giant = 2000000000;
  struct Case {
    std::string file;
    const char* message;
  };
  const Case cases[] = {
      {kBinary + littleEndian(giant), "a count of 2000000000 is more than the file can hold"},
      {kBinary + littleEndian(0xFFFFFFFFU), "a count of -1 is more than the file can hold"},
      {kBinary + counted("Cubee"), "there is no node type 'Cubee'; did you mean 'Cube'?"},
      {kBinary + counted("Shape"), "'Shape' stands for a family of node types"},
      {kBinary + counted("USE") + counted("a"), "nothing ahead of this is named 'a'"},
      {kBinary + everyField + littleEndian(giant), "a count of 2000000000"},
      {kBinary + everyField + littleEndian(1) + counted("nothing") + littleEndian(0),
       "an EveryField has no field 'nothing'"},
      {withField("mfInt32", littleEndian(giant)), "a count of 2000000000"},
      {withField("mfString", littleEndian(giant)), "a count of 2000000000"},
      {withField("mfNode", littleEndian(giant)), "a count of 2000000000"},
      {withField("sfString", littleEndian(giant)), "a count of 2000000000"},
      {withField("sfImage", littleEndian(60000) + littleEndian(60000) + littleEndian(4)), "too short for an image"},
      {withField("sfEnum", littleEndian(77)), "77 is no value of Flavour"},
      {withField("sfBitMask", littleEndian(8)), "8 has bits that aren't part of Corner"},
      {withField("sfBool", littleEndian(2)), "neither 0 nor 1"},
      {kBinary + everyField + littleEndian(0) + littleEndian(giant), "the file ends within a value"},
      {kBinary + everyField + littleEndian(0) + littleEndian(1) + littleEndian(0), "this EveryField can't be read"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.message);
    const ExpectMessages expected({c.message});
    EXPECT_FALSE(read(c.file));
    EXPECT_EQ(NkBase::getLiveCount(), 0);
  }
}

TEST_F(Writing, EveryBeginningAndEveryDamageOfABinaryIsReadOrRejected) {
  const Ref<NkSeparator> root(new NkSeparator);
  TreeMaker maker(7);
  for (int i = 0; i < 4; ++i) root->addChild(maker.make(3));
  const std::string file = writeBinary(root.get());
  ASSERT_GT(file.size(), 500U);
  allowMessages("error");
  const std::size_t step = 1 + file.size() / 3000;
  for (std::size_t length = kBinary.size() + 1; length < file.size(); length += step)
    EXPECT_FALSE(read(file.substr(0, length))) << length;
  std::mt19937 random(5);
  for (std::size_t i = kBinary.size(); i < file.size(); i += step) {
    std::string damaged = file;
    damaged[i] = static_cast<char>(random());
    read(damaged);
  }
}

// Modes

TEST(Modes, TheProcessIsAlone) {
  EXPECT_FALSE(NkDBImpl::isRunningCluster());
  EXPECT_FALSE(NkDBImpl::isRunningART());
#ifdef _WIN32
  EXPECT_FALSE(NkDBImpl::m_isVerra);
#else
  EXPECT_TRUE(NkDBImpl::m_isVerra);
#endif
}
