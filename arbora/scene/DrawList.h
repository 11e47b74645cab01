#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

#include "arbora/scene/Mesh.h"
#include "arbora/scene/NkState.h"
#include "arbora/scene/RenderBackend.h"
#include "arbora/scene/SeparatorCache.h"

class NkCamera;
class NkGLRenderAction;
class NkNode;
class NkSeparator;

namespace arbora {

class DrawList;
struct DrawBatch;

/// The clip sets or the light sets of a draw list: equal sets are one, and each lives as long as it is used. Set 0 is
/// the empty one.
template <class Set>
class SetPool {
public:
  SetPool();
  /// The number of the set, with one more use of it.
  std::uint32_t acquire(const Set& set);
  void retain(std::uint32_t index) { ++m_uses[index]; }
  void release(std::uint32_t index);
  const Set& get(std::uint32_t index) const { return m_sets[index]; }
  /// True if there is any set but the empty one.
  bool isUsed() const { return !m_byHash.empty(); }
  /// Sends what changed since the last time.
  void upload(RenderBackend& backend, RenderBackend::Handle tables, RenderBackend::SetKind kind);

private:
  void write(std::uint32_t index);
  std::vector<Set> m_sets;
  std::vector<std::uint32_t> m_uses;
  std::vector<std::uint32_t> m_free;
  std::unordered_multimap<std::uint64_t, std::uint32_t> m_byHash;
  std::uint32_t m_last = 0; // The set that was asked for last: neighbours mostly share theirs.
  std::vector<NbVec4f> m_texels;
  RenderBackend::Range m_changed{0, 0};
};

/// What a separator's content inherits and its drawing depends on. Sets are numbers in the pools of the list. Nodes
/// count with their ids, since a change in them concerns everything that inherits them.
struct Inherited {
  NbMatrix model;
  Material material;
  FontStyle font;
  int pickStyle = 0;
  int switchChild = -1;
  const NkCoordinate3* coordinates = nullptr;
  const NkNormal* normals = nullptr;
  const NkTextureCoordinate2* textureCoordinates = nullptr;
  NkTexture2* texture = nullptr;
  std::uint64_t coordinatesId = 0;
  std::uint64_t normalsId = 0;
  std::uint64_t textureCoordinatesId = 0;
  std::uint64_t textureId = 0;
  std::uint32_t clipSet = 0;
  std::uint32_t lightSet = 0;
  friend bool operator==(const Inherited&, const Inherited&) = default;
};

/// The compiled content of one visit of a separator: its own meshes and the segments of the separators in it.
class DrawSegment {
public:
  /// `node` is NULL for the segment of a root that is no separator.
  DrawSegment(DrawList& list, DrawSegment* parent, NkSeparator* node);
  ~DrawSegment();
  DrawSegment(const DrawSegment&) = delete;
  DrawSegment& operator=(const DrawSegment&) = delete;

  void markDirty();
  bool isDirty() const { return m_dirty; }
  /// The separator is gone; its parent's content is compiled anew, since that changed, too.
  void nodeDied() { m_node = nullptr; }

private:
  friend class DrawList;
  struct Item {
    DrawBatch* batch;
    std::uint32_t slot;
  };
  DrawList& m_list;
  DrawSegment* m_parent;
  NkSeparator* m_node;
  std::uint32_t m_depth;
  std::uint32_t m_cacheIndex = 0;  // Place in the node's cache.
  std::uint32_t m_parentIndex = 0; // Place among the parent's segments.
  static constexpr std::size_t kNotQueued = ~std::size_t{0};
  std::size_t m_queueIndex = kNotQueued; // Place in the list's queue.
  bool m_dirty = true;
  bool m_hasCamera = false; // Here or below.
  int m_childrenWithCamera = 0;
  Inherited m_entry;
  std::vector<Item> m_items;
  std::vector<std::unique_ptr<DrawSegment>> m_children;
  // The first camera of the separator's own content, the matrix under which it stands and the number of segments ahead
  // of it. The camera lives: if it were gone, the content would have been compiled anew ahead of the drawing.
  NkCamera* m_camera = nullptr;
  NbMatrix m_cameraModel;
  std::size_t m_cameraOrder = 0;
};

/// What all that one call draws has in common.
struct BatchKey {
  std::uint64_t mesh;
  std::uint64_t texture; // 0: none.
  bool transparent;
  bool clipped;
  friend bool operator==(const BatchKey&, const BatchKey&) = default;
};

/// All occurrences of one mesh that one call can draw.
struct DrawBatch {
  struct Owner {
    DrawSegment* segment;
    std::uint32_t item;
  };
  BatchKey key;
  Ref<Mesh> mesh;
  Texture texture; // The image is known only while the scene is compiled.
  bool touched = false;
  std::uint32_t serial = 0;
  RenderBackend::Handle handle = 0;
  std::vector<Instance> instances;
  std::vector<Owner> owners; // Of each instance.
  std::vector<RenderBackend::Range> changed;
  std::vector<Instance> sorted; // Transparent ones: as the back end has them, from back to front.
  bool transparent() const { return key.transparent; }
};

/// A scene compiled for drawing. It follows the scene: notifications mark the segments whose content changed, and
/// `update` compiles those anew, where what comes out the same stays in its place.
class DrawList {
public:
  DrawList(NkGLRenderAction& action, NkNode* root);
  /// A list for a single use: nothing is remembered of the separators in between.
  explicit DrawList(NkGLRenderAction& action);
  ~DrawList();
  DrawList(const DrawList&) = delete;
  DrawList& operator=(const DrawList&) = delete;

  /// False once the root for which the list was made is gone; `root` is then another node at the same address.
  bool belongsTo(const NkNode* root) const;
  bool isRootGone() const { return m_rootIsSeparator && !m_root->m_node; }

  /// Compiles what changed.
  void update(NkNode* root);
  /// Compiles what `traverse` visits into the root's segment.
  void fill(const std::function<void()>& traverse);
  /// Sends to the back end what changed.
  void flush();
  /// Draws under the view of the scene's camera, which is written into the frame.
  void draw(Frame& frame);

  // Calls of the action during a traversal.
  void startState(NkState& state) const;
  void addMesh(const PlacedMesh& placed, const NkState& state);
  void addCamera(NkCamera* camera, const NbMatrix& model);
  void visitSeparator(NkSeparator* separator, const NkState& state);

private:
  friend class DrawSegment;
  /// How far the compilation of one segment has come.
  struct Pass {
    DrawSegment* segment;
    std::size_t items = 0;
    std::size_t children = 0;
  };
  struct BatchKeyHash {
    std::size_t operator()(const BatchKey& key) const;
  };
  struct Run {
    DrawBatch* batch;
    std::size_t first;
    std::size_t count;
  };

  template <class Traverse>
  void compile(DrawSegment& segment, const Traverse& traverse);
  void compileAlone(DrawSegment& segment);
  void compileDirty();
  /// The segment to compile for a visit; NULL if nothing is to be done. Apart from `visitSeparator`, which stands on
  /// the call stack for each level of a scene.
  [[gnu::noinline]] DrawSegment* enterSeparator(NkSeparator* separator, const NkState& state);
  DrawSegment& nextChild(NkSeparator* separator);
  void cutChildren(DrawSegment& segment, std::size_t count);
  void cutItems(DrawSegment& segment, std::size_t count);
  static void noteCamera(DrawSegment& segment);
  const DrawSegment* findCamera() const;
  void placeView(Frame& frame);

  Inherited capture(const NkState& state);
  void releaseSets(std::uint32_t clipSet, std::uint32_t lightSet);
  void takeTexture(const NkState& state);
  DrawBatch& findBatch(const BatchKey& key, const Ref<Mesh>& mesh);
  void overwrite(DrawBatch& batch, std::uint32_t slot, const Instance& instance);
  std::uint32_t allocate(DrawBatch& batch, const Instance& instance, DrawBatch::Owner owner);
  void freeSlot(DrawBatch& batch, std::uint32_t slot);
  void touch(DrawBatch& batch, std::size_t slot);
  void sendBatch(RenderBackend& backend, DrawBatch& batch);
  void dropEmptyBatches();
  void sortBatches();
  void sortTransparent(RenderBackend& backend, const Frame& frame);

  NkGLRenderAction& m_action;
  bool m_isKept;
  bool m_rootIsSeparator = false;
  std::uint64_t m_rootId = 0; // Id of a root that is no separator, as it was compiled.
  SetPool<ClipSet> m_clipSets;
  SetPool<LightSet> m_lightSets;
  std::unordered_map<BatchKey, std::unique_ptr<DrawBatch>, BatchKeyHash> m_batches;
  std::vector<DrawBatch*> m_order; // As they are drawn.
  bool m_orderValid = true;
  std::vector<DrawBatch*> m_touched;
  std::uint32_t m_nextSerial = 0;
  std::vector<DrawSegment*> m_dirty; // A slot is emptied when its segment goes.
  std::unique_ptr<DrawSegment> m_root;
  Pass* m_pass = nullptr;
  DrawSegment* m_alone = nullptr; // The segment at which the traversal that is about to begin starts.
  // The texture that the state had last, and whether it has pixels.
  const NkTexture2* m_texture = nullptr;
  std::uint64_t m_textureNodeId = 0;
  Texture m_textureData;
  bool m_textureTransparent = false;
  const DrawSegment* m_camera = nullptr;
  bool m_cameraValid = false;
  RenderBackend::Handle m_tables = 0;
  // Runs of transparent instances from back to front, and the eye for which that is so.
  std::vector<Run> m_runs;
  bool m_runsValid = false;
  NbVec4f m_runsEye;
  std::vector<RenderBackend::Range> m_ranges; // Scratch.
};

} // namespace arbora
