// Shapes: their boxes and meshes, and the pool of meshes.
#include "SceneTest.h"

#include <cmath>
#include <limits>

#include "arbora/scene/FieldIO.h"
#include "arbora/scene/Mesh.h"
#include "arbora/scene/NkCone.h"
#include "arbora/scene/NkCoordinate3.h"
#include "arbora/scene/NkCube.h"
#include "arbora/scene/NkCylinder.h"
#include "arbora/scene/NkFaceSet.h"
#include "arbora/scene/NkGetBoundingBoxAction.h"
#include "arbora/scene/NkIndexedFaceSet.h"
#include "arbora/scene/NkNormal.h"
#include "arbora/scene/NkSphere.h"
#include "arbora/scene/NkState.h"
#include "arbora/scene/NkTextureCoordinate2.h"

using arbora::Mesh;
using arbora::Ref;

namespace {

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

class Shapes : public SceneTest {
protected:
  Shapes() {
    static const bool s_counted = registerLeakCounter("meshes", &Mesh::getPoolSize);
    static_cast<void>(s_counted);
  }
};

NbBox3f boxOf(NkNode* node) {
  NkGetBoundingBoxAction action;
  action.apply(node);
  return action.getBoundingBox();
}

const std::vector<arbora::PlacedMesh>& meshesOf(NkShape* shape) {
  static NkState s_state;
  s_state = NkState();
  return shape->getMeshes(s_state);
}

/// A shape over coordinates, and at will normals and texture coordinates.
struct Polygons {
  explicit Polygons(std::vector<NbVec3f> points) {
    coordinates->point.setValues(std::move(points));
    state.coordinates = coordinates.get();
  }
  void setNormals(std::vector<NbVec3f> values) {
    normals = Ref<NkNormal>(new NkNormal);
    normals->vector.setValues(std::move(values));
    state.normals = normals.get();
  }
  void setTexture(std::vector<NbVec2f> values) {
    texture = Ref<NkTextureCoordinate2>(new NkTextureCoordinate2);
    texture->point.setValues(std::move(values));
    state.textureCoordinates = texture.get();
  }
  Ref<NkCoordinate3> coordinates{new NkCoordinate3};
  Ref<NkNormal> normals;
  Ref<NkTextureCoordinate2> texture;
  NkState state;
};

double areaOf(const Mesh& mesh) {
  double area = 0;
  const auto& indices = mesh.getIndices();
  for (std::size_t i = 0; i < indices.size(); i += 3) {
    const NbVec3f& a = mesh.getVertices()[indices[i]].position;
    const NbVec3f& b = mesh.getVertices()[indices[i + 1]].position;
    const NbVec3f& c = mesh.getVertices()[indices[i + 2]].position;
    area += static_cast<double>((b - a).cross(c - a).length()) / 2;
  }
  return area;
}

/// All triangles turn counterclockwise seen from the side of their normals.
void expectOutwardTriangles(const Mesh& mesh) {
  const auto& indices = mesh.getIndices();
  ASSERT_FALSE(indices.empty());
  for (std::size_t i = 0; i < indices.size(); i += 3) {
    const arbora::Vertex& a = mesh.getVertices()[indices[i]];
    const arbora::Vertex& b = mesh.getVertices()[indices[i + 1]];
    const arbora::Vertex& c = mesh.getVertices()[indices[i + 2]];
    const NbVec3f facet = (b.position - a.position).cross(c.position - a.position);
    // Corners of a concave face may be on one line.
    if (facet.length() > 0) {
      EXPECT_GT(facet.dot(a.normal + b.normal + c.normal), 0) << "triangle " << i / 3;
    }
    for (const arbora::Vertex* vertex : {&a, &b, &c}) EXPECT_NEAR(vertex->normal.length(), 1, 1e-5);
  }
}

Ref<NkFaceSet> faceSet(std::vector<int> numbers) {
  Ref<NkFaceSet> faces(new NkFaceSet);
  faces->numVertices.setValues(std::move(numbers));
  return faces;
}

Ref<NkIndexedFaceSet> indexedFaceSet(std::vector<int> indices) {
  Ref<NkIndexedFaceSet> faces(new NkIndexedFaceSet);
  faces->coordIndex.setValues(std::move(indices));
  return faces;
}

const std::vector<NbVec3f> kSquare{{0, 0, 0}, {2, 0, 0}, {2, 2, 0}, {0, 2, 0}};
// An L: the corner of the square is cut out.
const std::vector<NbVec3f> kConcave{{0, 0, 0}, {2, 0, 0}, {2, 1, 0}, {1, 1, 0}, {1, 2, 0}, {0, 2, 0}};

} // namespace

// ---- Cube, sphere, cone, cylinder

TEST_F(Shapes, DefaultBoxes) {
  EXPECT_EQ(boxOf(Ref<NkCube>(new NkCube).get()), NbBox3f(-1, -1, -1, 1, 1, 1));
  EXPECT_EQ(boxOf(Ref<NkSphere>(new NkSphere).get()), NbBox3f(-1, -1, -1, 1, 1, 1));
  EXPECT_EQ(boxOf(Ref<NkCone>(new NkCone).get()), NbBox3f(-1, -1, -1, 1, 1, 1));
  EXPECT_EQ(boxOf(Ref<NkCylinder>(new NkCylinder).get()), NbBox3f(-1, -1, -1, 1, 1, 1));
}

TEST_F(Shapes, SizesCountInTheBox) {
  const Ref<NkSeparator> scene = read("Cube { width 2 height 4 depth 6 }");
  ASSERT_TRUE(scene);
  EXPECT_EQ(boxOf(scene.get()), NbBox3f(-1, -2, -3, 1, 2, 3));
  static_cast<NkCube*>(scene->getChild(0))->width = 10;
  EXPECT_EQ(boxOf(scene.get()), NbBox3f(-5, -2, -3, 5, 2, 3));
}

TEST_F(Shapes, NegativeSizesCountAsPositiveAndOddOnesAsZero) {
  const Ref<NkCube> cube(new NkCube);
  cube->width = -4;
  cube->height = kNaN;
  cube->depth = kInfinity;
  EXPECT_EQ(boxOf(cube.get()), NbBox3f(-2, 0, 0, 2, 0, 0));
  const Ref<NkSphere> sphere(new NkSphere);
  sphere->radius = -3;
  EXPECT_EQ(boxOf(sphere.get()), NbBox3f(-3, -3, -3, 3, 3, 3));
}

TEST_F(Shapes, PartsOfConeAndCylinder) {
  const Ref<NkCone> cone(new NkCone);
  EXPECT_EQ(meshesOf(cone.get()).size(), 2U);
  cone->parts = NkCone::BOTTOM;
  EXPECT_EQ(boxOf(cone.get()), NbBox3f(-1, -1, -1, 1, -1, 1));
  cone->parts = 0;
  EXPECT_TRUE(boxOf(cone.get()).isEmpty());
  const Ref<NkSeparator> scene = read("Cylinder { parts (SIDES | TOP) height 4 }");
  ASSERT_TRUE(scene);
  auto* cylinder = static_cast<NkCylinder*>(scene->getChild(0));
  EXPECT_EQ(meshesOf(cylinder).size(), 2U);
  cylinder->parts = NkCylinder::TOP;
  EXPECT_EQ(boxOf(cylinder), NbBox3f(-1, 2, -1, 1, 2, 1));
}

TEST_F(Shapes, TrianglesLookOutwards) {
  const Ref<NkCube> cube(new NkCube);
  const Ref<NkSphere> sphere(new NkSphere);
  const Ref<NkCone> cone(new NkCone);
  const Ref<NkCylinder> cylinder(new NkCylinder);
  for (NkShape* shape : std::initializer_list<NkShape*>{cube.get(), sphere.get(), cone.get(), cylinder.get()}) {
    for (const arbora::PlacedMesh& placed : meshesOf(shape)) expectOutwardTriangles(*placed.mesh);
  }
}

TEST_F(Shapes, MeshesAreClosedAndRound) {
  const Ref<NkCube> cube(new NkCube);
  EXPECT_NEAR(areaOf(*meshesOf(cube.get())[0].mesh), 6, 1e-5);
  const Ref<NkSphere> sphere(new NkSphere);
  EXPECT_NEAR(areaOf(*meshesOf(sphere.get())[0].mesh), 4 * 3.14159, 0.15);
  const Ref<NkCylinder> cylinder(new NkCylinder);
  EXPECT_NEAR(areaOf(*meshesOf(cylinder.get())[0].mesh), 2 * 3.14159, 0.05);
  EXPECT_NEAR(areaOf(*meshesOf(cylinder.get())[1].mesh), 3.14159, 0.05);
}

TEST_F(Shapes, AllInstancesShareOneMesh) {
  const Ref<NkCube> a(new NkCube);
  const Ref<NkCube> b(new NkCube);
  b->width = 7;
  EXPECT_EQ(meshesOf(a.get())[0].mesh.get(), meshesOf(b.get())[0].mesh.get());
  const Ref<NkCone> cone(new NkCone);
  const Ref<NkCylinder> cylinder(new NkCylinder);
  EXPECT_EQ(meshesOf(cone.get())[1].mesh.get(), meshesOf(cylinder.get())[2].mesh.get());
}

// ---- Meshes

TEST_F(Shapes, EqualContentsGiveOneMesh) {
  const std::vector<arbora::Vertex> vertices{{{0, 0, 0}, {}, {}}, {{1, 0, 0}, {}, {}}, {{0, 1, 0}, {}, {}}};
  const int before = Mesh::getPoolSize();
  {
    const Ref<Mesh> a = Mesh::intern(vertices, {0, 1, 2});
    const Ref<Mesh> b = Mesh::intern(vertices, {0, 1, 2});
    const Ref<Mesh> c = Mesh::intern(vertices, {0, 2, 1});
    EXPECT_EQ(a.get(), b.get());
    EXPECT_NE(a.get(), c.get());
    EXPECT_NE(a->getId(), c->getId());
    EXPECT_EQ(Mesh::getPoolSize(), before + 2);
  }
  EXPECT_EQ(Mesh::getPoolSize(), before);
}

TEST_F(Shapes, BadTrianglesAreDropped) {
  const std::vector<arbora::Vertex> vertices{
      {{0, 0, 0}, {}, {}}, {{1, 0, 0}, {}, {}}, {{0, 1, 0}, {}, {}}, {{kNaN, 9, 9}, {}, {}}};
  const Ref<Mesh> mesh = Mesh::intern(vertices, {0, 1, 4, 0, 1, 2, 1, 2, 3, 0, 1});
  EXPECT_EQ(mesh->getIndices(), (std::vector<std::uint32_t>{0, 1, 2}));
  EXPECT_EQ(mesh->getBox(), NbBox3f(0, 0, 0, 1, 1, 0));
}

TEST_F(Shapes, ALargeMeshFindsTheSameHitsAsItsTriangles) {
  // A bumpy field of 40 by 40 squares, so that rays along it meet several.
  constexpr int kSide = 40;
  std::vector<arbora::Vertex> vertices;
  std::vector<std::uint32_t> indices;
  const auto height = [](int x, int y) { return static_cast<float>((x * 7 + y * 13) % 5); };
  for (int y = 0; y <= kSide; ++y) {
    for (int x = 0; x <= kSide; ++x)
      vertices.push_back({{static_cast<float>(x), static_cast<float>(y), height(x, y)}, {}, {}});
  }
  for (std::uint32_t y = 0; y < kSide; ++y) {
    for (std::uint32_t x = 0; x < kSide; ++x) {
      const std::uint32_t i = y * (kSide + 1) + x;
      for (std::uint32_t index : {i, i + 1, i + kSide + 2, i, i + kSide + 2, i + kSide + 1}) indices.push_back(index);
    }
  }
  const Ref<Mesh> whole = Mesh::intern(vertices, indices);
  std::vector<Ref<Mesh>> triangles;
  for (std::size_t i = 0; i < indices.size(); i += 3)
    triangles.push_back(
        Mesh::intern({vertices[indices[i]], vertices[indices[i + 1]], vertices[indices[i + 2]]}, {0, 1, 2}));
  unsigned seed = 1;
  const auto random = [&seed](float scale) {
    seed = seed * 1664525U + 1013904223U;
    return static_cast<float>(seed >> 8) / 16777216.0F * scale;
  };
  int hits = 0;
  for (int ray = 0; ray < 300; ++ray) {
    const NbVec3f start(random(60) - 10, random(60) - 10, random(20) - 5);
    const NbVec3f direction(random(2) - 1, random(2) - 1, random(1) - 0.5F);
    const float tMax = ray % 2 == 0 ? 1e6F : 10.0F;
    Mesh::Hit expected{};
    bool any = false;
    for (const Ref<Mesh>& triangle : triangles) {
      Mesh::Hit hit{};
      if (triangle->intersect(start, direction, tMax, hit) && (!any || hit.t < expected.t)) {
        expected = hit;
        any = true;
      }
    }
    Mesh::Hit found{};
    ASSERT_EQ(whole->intersect(start, direction, tMax, found), any) << ray;
    if (any) {
      EXPECT_EQ(found.t, expected.t);
      ++hits;
    }
  }
  EXPECT_GT(hits, 50);
}

// ---- Face sets

TEST_F(Shapes, AFaceSetTakesAllCoordinatesByDefault) {
  Polygons polygons(kSquare);
  const Ref<NkFaceSet> faces(new NkFaceSet);
  ASSERT_EQ(faces->getMeshes(polygons.state).size(), 1U);
  const Mesh& mesh = *faces->getMeshes(polygons.state)[0].mesh;
  EXPECT_EQ(mesh.getIndices().size(), 6U);
  expectOutwardTriangles(mesh);
  EXPECT_EQ(mesh.getVertices()[0].normal, NbVec3f(0, 0, 1));
  EXPECT_EQ(faces->computeBox(polygons.state), NbBox3f(0, 0, 0, 2, 2, 0));
}

TEST_F(Shapes, AFaceSetReadsWhatStandsAheadOfIt) {
  const Ref<NkSeparator> scene =
      read("Coordinate3 { point [ 9 9 9, 0 0 0, 1 0 0, 0 1 0 ] } FaceSet { startIndex 1 numVertices [ 3 ] }");
  ASSERT_TRUE(scene);
  EXPECT_EQ(boxOf(scene.get()), NbBox3f(0, 0, 0, 1, 1, 0));
  static_cast<NkCoordinate3*>(scene->getChild(0))->point.set1Value(2, NbVec3f(5, 0, 0));
  EXPECT_EQ(boxOf(scene.get()), NbBox3f(0, 0, 0, 5, 1, 0));
}

TEST_F(Shapes, AFaceSetWithoutCoordinatesIsEmpty) {
  EXPECT_TRUE(boxOf(Ref<NkFaceSet>(new NkFaceSet).get()).isEmpty());
  EXPECT_TRUE(boxOf(Ref<NkIndexedFaceSet>(new NkIndexedFaceSet).get()).isEmpty());
}

TEST_F(Shapes, FacesOfAFaceSetTakeTheirCornersInTurn) {
  Polygons polygons({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {5, 0, 0}, {6, 0, 0}, {6, 1, 0}, {5, 1, 0}});
  const Ref<NkFaceSet> faces = faceSet({3, 4});
  EXPECT_EQ(faces->getMeshes(polygons.state)[0].mesh->getIndices().size(), 9U);
  EXPECT_NEAR(areaOf(*faces->getMeshes(polygons.state)[0].mesh), 1.5, 1e-6);
}

TEST_F(Shapes, AFaceBehindTheLastCoordinateIsDroppedWithOneMessage) {
  Polygons polygons(kSquare);
  const Ref<NkFaceSet> faces = faceSet({3, 3});
  expectMessage("more corners than there are coordinates");
  EXPECT_EQ(faces->getMeshes(polygons.state)[0].mesh->getIndices().size(), 3U);
  polygons.coordinates->point.set1Value(0, NbVec3f(-1, 0, 0));
  EXPECT_EQ(faces->getMeshes(polygons.state)[0].mesh->getIndices().size(), 3U);
}

TEST_F(Shapes, ConcaveFacesAreFilledRight) {
  for (const bool turned : {false, true}) {
    std::vector<NbVec3f> points = kConcave;
    if (turned) std::reverse(points.begin(), points.end());
    Polygons polygons(points);
    const Ref<NkFaceSet> faces(new NkFaceSet);
    const Mesh& mesh = *faces->getMeshes(polygons.state)[0].mesh;
    EXPECT_NEAR(areaOf(mesh), 3, 1e-6);
    expectOutwardTriangles(mesh);
    Mesh::Hit hit{};
    EXPECT_TRUE(mesh.intersect(NbVec3f(0.5F, 1.5F, 5), NbVec3f(0, 0, -1), 10, hit));
    EXPECT_FALSE(mesh.intersect(NbVec3f(1.5F, 1.5F, 5), NbVec3f(0, 0, -1), 10, hit));
  }
}

TEST_F(Shapes, ConvexFacesNeedNoTessellationConcaveOnesDo) {
  const auto indicesOf = [](std::vector<NbVec3f> points) {
    Polygons polygons(std::move(points));
    return Ref<NkFaceSet>(new NkFaceSet)->getMeshes(polygons.state)[0].mesh->getIndices();
  };
  EXPECT_EQ(indicesOf(kSquare), (std::vector<std::uint32_t>{0, 1, 2, 0, 2, 3})) << "a fan";
  // A dart, with its inner corner given twice and first: a fan from another corner would cover its outside.
  const std::vector<NbVec3f> dart{{1, 1, 0}, {1, 1, 0}, {0, 3, 0}, {0, 0, 0}, {3, 0, 0}};
  Polygons polygons({dart[3], dart[4], dart[0], dart[1], dart[2]});
  const Ref<NkFaceSet> faces(new NkFaceSet);
  EXPECT_NEAR(areaOf(*faces->getMeshes(polygons.state)[0].mesh), 3, 1e-5);
  Polygons turned({dart[4], dart[0], dart[1], dart[2], dart[3]});
  EXPECT_NEAR(areaOf(*faces->getMeshes(turned.state)[0].mesh), 3, 1e-5);
}

TEST_F(Shapes, AStarThatCrossesItselfIsFilled) {
  std::vector<NbVec3f> star;
  for (int i = 0; i < 5; ++i) {
    const float angle = 2 * 3.14159265F * static_cast<float>(2 * i) / 5;
    // In a slanted plane, so that new corners need their third coordinate.
    star.emplace_back(std::cos(angle), std::sin(angle), std::cos(angle) / 2);
  }
  Polygons polygons(star);
  const Ref<NkFaceSet> faces(new NkFaceSet);
  const Mesh& mesh = *faces->getMeshes(polygons.state)[0].mesh;
  EXPECT_GT(mesh.getVertices().size(), 5U);
  for (const arbora::Vertex& vertex : mesh.getVertices()) EXPECT_NEAR(vertex.position[2], vertex.position[0] / 2, 1e-5);
  // Seen along z: a pentagram in the unit circle, its middle included.
  EXPECT_NEAR(areaOf(mesh) / std::sqrt(1.25), 1.1226, 1e-3);
}

TEST_F(Shapes, FacesWithoutAnAreaOrWithOddCoordinatesAreDropped) {
  Polygons polygons(
      {{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {0, 0, 0}, {kNaN, 0, 0}, {0, 1, 0}, {0, 0, 0}, {1, 0, 0}, {0, 1, 0}});
  const Ref<NkFaceSet> faces = faceSet({3, 3, 3});
  EXPECT_EQ(faces->getMeshes(polygons.state)[0].mesh->getIndices().size(), 3U);
  EXPECT_TRUE(faceSet({2, 1, 0})->getMeshes(polygons.state).empty());
}

TEST_F(Shapes, NormalsOfAFaceSetFitByTheirNumber) {
  Polygons polygons({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {5, 0, 0}, {6, 0, 0}, {5, 1, 0}});
  const Ref<NkFaceSet> faces = faceSet({3, 3});
  const auto normalAt = [&](std::size_t vertex) {
    return faces->getMeshes(polygons.state)[0].mesh->getVertices()[vertex].normal;
  };
  EXPECT_EQ(normalAt(4), NbVec3f(0, 0, 1));
  polygons.setNormals({{0, 2, 0}});
  EXPECT_EQ(normalAt(4), NbVec3f(0, 1, 0));
  polygons.setNormals({{1, 0, 0}, {0, 1, 0}});
  EXPECT_EQ(normalAt(0), NbVec3f(1, 0, 0));
  EXPECT_EQ(normalAt(4), NbVec3f(0, 1, 0));
  polygons.setNormals({{1, 0, 0}, {1, 0, 0}, {1, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 0}});
  EXPECT_EQ(normalAt(4), NbVec3f(0, 1, 0));
  EXPECT_EQ(normalAt(5), NbVec3f(0, 0, 1)) << "a normal without a length is made up for";
  polygons.setNormals({{1, 0, 0}, {1, 0, 0}, {1, 0, 0}});
  EXPECT_EQ(normalAt(4), NbVec3f(0, 0, 1)) << "three fit nothing";
}

TEST_F(Shapes, TextureCoordinatesAreTakenOrMadeUp) {
  Polygons polygons({{0, 0, 0}, {4, 0, 0}, {4, 2, 0}, {0, 2, 0}});
  const Ref<NkFaceSet> faces(new NkFaceSet);
  EXPECT_EQ(faces->getMeshes(polygons.state)[0].mesh->getVertices()[2].texture, NbVec2f(1, 0.5F));
  polygons.setTexture({{0, 0}, {1, 0}, {1, 1}, {0, 1}});
  EXPECT_EQ(faces->getMeshes(polygons.state)[0].mesh->getVertices()[2].texture, NbVec2f(1, 1));
}

TEST_F(Shapes, AnIndexedFaceSetNamesItsCoordinates) {
  Polygons polygons(kSquare);
  const Ref<NkIndexedFaceSet> faces = indexedFaceSet({0, 1, 2, -1, -1, 0, 2, 3});
  const Mesh& mesh = *faces->getMeshes(polygons.state)[0].mesh;
  EXPECT_EQ(mesh.getIndices().size(), 6U);
  EXPECT_NEAR(areaOf(mesh), 4, 1e-6);
}

TEST_F(Shapes, AnIndexBehindTheLastCoordinateDropsTheFaceWithOneMessage) {
  Polygons polygons(kSquare);
  const Ref<NkIndexedFaceSet> faces = indexedFaceSet({0, 1, 4, -1, 0, 1, 2, -1, 0, 1, 99});
  expectMessage("an index is behind the last coordinate");
  EXPECT_EQ(faces->getMeshes(polygons.state)[0].mesh->getIndices().size(), 3U);
  faces->touch();
  polygons.coordinates->point.set1Value(0, NbVec3f(-1, 0, 0));
  EXPECT_EQ(faces->getMeshes(polygons.state)[0].mesh->getIndices().size(), 3U);
}

TEST_F(Shapes, NormalsOfAnIndexedFaceSet) {
  Polygons polygons(kSquare);
  const Ref<NkIndexedFaceSet> faces = indexedFaceSet({0, 1, 2, -1, 0, 2, 3, -1});
  const auto normalAt = [&](std::size_t vertex) {
    return faces->getMeshes(polygons.state)[0].mesh->getVertices()[vertex].normal;
  };
  // One for each coordinate, for each face, or for all.
  polygons.setNormals({{1, 0, 0}, {1, 0, 0}, {1, 0, 0}, {0, 1, 0}});
  EXPECT_EQ(normalAt(5), NbVec3f(0, 1, 0));
  EXPECT_EQ(normalAt(4), NbVec3f(1, 0, 0));
  polygons.setNormals({{1, 0, 0}, {0, 1, 0}});
  EXPECT_EQ(normalAt(2), NbVec3f(1, 0, 0));
  EXPECT_EQ(normalAt(3), NbVec3f(0, 1, 0));
  polygons.setNormals({{0, 1, 0}});
  EXPECT_EQ(normalAt(0), NbVec3f(0, 1, 0));
  // By their own indices, for each face or each corner.
  polygons.setNormals({{1, 0, 0}, {0, 1, 0}});
  faces->normalIndex.setValues({1, 0});
  EXPECT_EQ(normalAt(0), NbVec3f(0, 1, 0));
  EXPECT_EQ(normalAt(3), NbVec3f(1, 0, 0));
  faces->normalIndex.setValues({1, 0, 1, -1, 0, 0, 0, -1});
  EXPECT_EQ(normalAt(1), NbVec3f(1, 0, 0));
  EXPECT_EQ(normalAt(2), NbVec3f(0, 1, 0));
  // One that leads nowhere leaves the face's own normal.
  faces->normalIndex.setValues({1, 7, 1, -1, 0, 0, 0, -1});
  EXPECT_EQ(normalAt(1), NbVec3f(0, 0, 1));
  EXPECT_EQ(normalAt(3), NbVec3f(1, 0, 0));
}

TEST_F(Shapes, TextureIndicesOfAnIndexedFaceSet) {
  Polygons polygons(kSquare);
  const Ref<NkIndexedFaceSet> faces = indexedFaceSet({0, 1, 2, 3});
  polygons.setTexture({{0, 0}, {1, 0}, {1, 1}, {0, 1}});
  EXPECT_EQ(faces->getMeshes(polygons.state)[0].mesh->getVertices()[1].texture, NbVec2f(1, 0));
  faces->textureCoordIndex.setValues({3, 2, 1, 0});
  EXPECT_EQ(faces->getMeshes(polygons.state)[0].mesh->getVertices()[1].texture, NbVec2f(1, 1));
}

TEST_F(Shapes, AMeshIsKeptUntilSomethingChanges) {
  Polygons polygons(kSquare);
  const Ref<NkFaceSet> faces(new NkFaceSet);
  const Ref<Mesh> mesh = faces->getMeshes(polygons.state)[0].mesh;
  EXPECT_EQ(faces->getMeshes(polygons.state)[0].mesh.get(), mesh.get());
  polygons.coordinates->point.set1Value(0, NbVec3f(-1, 0, 0));
  EXPECT_NE(faces->getMeshes(polygons.state)[0].mesh.get(), mesh.get());
  polygons.coordinates->point.set1Value(0, kSquare[0]);
  EXPECT_EQ(faces->getMeshes(polygons.state)[0].mesh.get(), mesh.get()) << "equal contents, one mesh";
  faces->startIndex = 1;
  EXPECT_EQ(faces->getMeshes(polygons.state)[0].mesh->getIndices().size(), 3U);
}

TEST_F(Shapes, OtherCoordinatesInThePlaceOfDeadOnesAreSeen) {
  const Ref<NkFaceSet> faces(new NkFaceSet);
  NkState state;
  for (const float width : {1.0F, 2.0F, 3.0F}) {
    const Ref<NkCoordinate3> coordinates(new NkCoordinate3);
    coordinates->point.setValues({{0, 0, 0}, {width, 0, 0}, {0, 1, 0}});
    state.coordinates = coordinates.get();
    EXPECT_EQ(faces->computeBox(state).getMax()[0], width);
  }
}

TEST_F(Shapes, CoordinatesCountAsUsedOnlyByPolygons) {
  NkState state;
  Ref<NkCube>(new NkCube)->computeBox(state);
  EXPECT_EQ(state.usedInherited, 0U);
  Ref<NkFaceSet>(new NkFaceSet)->computeBox(state);
  EXPECT_EQ(state.usedInherited, static_cast<unsigned>(NkState::COORDINATES));
}
