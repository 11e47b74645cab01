#include "arbora/scene/DrawList.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <tuple>
#include <utility>

#include "arbora/scene/NkCamera.h"
#include "arbora/scene/NkCoordinate3.h"
#include "arbora/scene/NkGLRenderAction.h"
#include "arbora/scene/NkNormal.h"
#include "arbora/scene/NkSeparator.h"
#include "arbora/scene/NkTexture2.h"
#include "arbora/scene/NkTextureCoordinate2.h"

void NkSeparator::GLRender(NkGLRenderAction* action) { action->renderSeparator(this); }

namespace arbora {

RenderBackend::~RenderBackend() = default;

// Separator cache

SeparatorCache::~SeparatorCache() {
  for (DrawSegment* segment : segments) segment->nodeDied();
}

void SeparatorCache::markSegmentsDirty() {
  for (DrawSegment* segment : segments) segment->markDirty();
}

bool SeparatorCache::hasCleanSegments() const {
  return std::any_of(segments.begin(), segments.end(), [](const DrawSegment* segment) { return !segment->isDirty(); });
}

// Sets

namespace {

constexpr std::uint64_t kHashSeed = 0xcbf29ce484222325U;

std::uint64_t mixHash(std::uint64_t hash, std::uint64_t value) {
  hash ^= value;
  hash *= 0x9e3779b97f4a7c15U;
  return hash ^ (hash >> 29U);
}

std::uint64_t mixHash(std::uint64_t hash, float value) {
  // Equal values must have equal hashes: +0 and -0 are equal.
  return mixHash(hash, std::uint64_t{std::bit_cast<std::uint32_t>(value == 0.0f ? 0.0f : value)});
}

std::uint64_t mixHash(std::uint64_t hash, const NbVec3f& value) {
  return mixHash(mixHash(mixHash(hash, value[0]), value[1]), value[2]);
}

std::uint64_t hashOf(const ClipSet& set) {
  std::uint64_t hash = kHashSeed;
  for (int i = 0; i < set.count; ++i) {
    const NbPlane& plane = set.planes[static_cast<std::size_t>(i)];
    hash = mixHash(mixHash(hash, plane.getNormal()), plane.getDistanceFromOrigin());
  }
  return hash;
}

std::uint64_t hashOf(const LightSet& set) {
  std::uint64_t hash = kHashSeed;
  for (int i = 0; i < set.count; ++i) {
    const Light& light = set.lights[static_cast<std::size_t>(i)];
    hash = mixHash(mixHash(hash, light.direction), light.color);
  }
  return hash;
}

template <class Set>
constexpr std::size_t kTexels = 0;
template <>
constexpr std::size_t kTexels<ClipSet> = kClipSetTexels;
template <>
constexpr std::size_t kTexels<LightSet> = kLightSetTexels;

void writeTexels(const ClipSet& set, NbVec4f* texels) {
  for (int i = 0; i < ClipSet::kMaxPlanes; ++i) {
    // A plane that isn't there is one that everything is in front of.
    NbVec4f texel(0, 0, 0, 1);
    if (i < set.count) {
      const NbPlane& plane = set.planes[static_cast<std::size_t>(i)];
      const NbVec3f& normal = plane.getNormal();
      texel.setValue(normal[0], normal[1], normal[2], -plane.getDistanceFromOrigin());
    }
    texels[i] = texel;
  }
}

void writeTexels(const LightSet& set, NbVec4f* texels) {
  for (int i = 0; i < LightSet::kMaxLights; ++i) {
    NbVec4f direction;
    NbVec4f color;
    if (i < set.count) {
      const Light& light = set.lights[static_cast<std::size_t>(i)];
      NbVec3f towards = -light.direction;
      towards.normalize();
      direction.setValue(towards[0], towards[1], towards[2], 1);
      color.setValue(light.color[0], light.color[1], light.color[2], 1);
    }
    texels[i] = direction;
    texels[LightSet::kMaxLights + i] = color;
  }
}

} // namespace

template <class Set>
SetPool<Set>::SetPool() : m_sets(1), m_uses(1, 0) {
  write(0);
}

template <class Set>
std::uint32_t SetPool<Set>::acquire(const Set& set) {
  if (set.count == 0) return 0;
  if (m_last != 0 && m_sets[m_last] == set) {
    ++m_uses[m_last];
    return m_last;
  }
  const std::uint64_t hash = hashOf(set);
  const auto [begin, end] = m_byHash.equal_range(hash);
  for (auto it = begin; it != end; ++it) {
    if (m_sets[it->second] == set) {
      m_last = it->second;
      ++m_uses[m_last];
      return m_last;
    }
  }
  if (m_free.empty()) {
    m_last = static_cast<std::uint32_t>(m_sets.size());
    m_sets.push_back(set);
    m_uses.push_back(1);
  } else {
    m_last = m_free.back();
    m_free.pop_back();
    m_sets[m_last] = set;
    m_uses[m_last] = 1;
  }
  m_byHash.emplace(hash, m_last);
  write(m_last);
  return m_last;
}

template <class Set>
void SetPool<Set>::release(std::uint32_t index) {
  if (index == 0 || --m_uses[index] > 0) return;
  const auto [begin, end] = m_byHash.equal_range(hashOf(m_sets[index]));
  m_byHash.erase(std::find_if(begin, end, [index](const auto& entry) { return entry.second == index; }));
  m_free.push_back(index);
  if (m_last == index) m_last = 0;
}

template <class Set>
void SetPool<Set>::write(std::uint32_t index) {
  const std::size_t first = index * kTexels<Set>;
  const std::size_t end = first + kTexels<Set>;
  if (m_texels.size() < end) m_texels.resize(end);
  writeTexels(m_sets[index], m_texels.data() + first);
  if (m_changed.count == 0) {
    m_changed = {first, kTexels<Set>};
  } else {
    const std::size_t changedEnd = std::max(m_changed.first + m_changed.count, end);
    m_changed.first = std::min(m_changed.first, first);
    m_changed.count = changedEnd - m_changed.first;
  }
}

template <class Set>
void SetPool<Set>::upload(RenderBackend& backend, RenderBackend::Handle tables, RenderBackend::SetKind kind) {
  if (m_changed.count == 0) return;
  backend.updateTable(tables, kind, m_texels, m_changed);
  m_changed = {0, 0};
}

// Segment

DrawSegment::DrawSegment(DrawList& list, DrawSegment* parent, NkSeparator* node)
    : m_list(list), m_parent(parent), m_node(node), m_depth(parent ? parent->m_depth + 1 : 0) {
  if (m_node) {
    auto& segments = m_node->getCache().segments;
    m_cacheIndex = static_cast<std::uint32_t>(segments.size());
    segments.push_back(this);
  }
}

DrawSegment::~DrawSegment() {
  m_children.clear();
  if (m_node) {
    auto& segments = m_node->getCache().segments;
    segments[m_cacheIndex] = segments.back();
    segments[m_cacheIndex]->m_cacheIndex = m_cacheIndex;
    segments.pop_back();
  }
  if (m_queueIndex != kNotQueued) m_list.m_dirty[m_queueIndex] = nullptr;
}

void DrawSegment::markDirty() {
  m_dirty = true;
  if (m_queueIndex == kNotQueued) {
    m_queueIndex = m_list.m_dirty.size();
    m_list.m_dirty.push_back(this);
  }
}

// List

DrawList::DrawList(NkGLRenderAction& action, NkNode* root) : m_action(action), m_isKept(true) {
  m_rootIsSeparator = root->isOfType(NkSeparator::getClassTypeId());
  m_root = std::make_unique<DrawSegment>(*this, nullptr, m_rootIsSeparator ? static_cast<NkSeparator*>(root) : nullptr);
}

DrawList::DrawList(NkGLRenderAction& action)
    : m_action(action), m_isKept(false), m_root(std::make_unique<DrawSegment>(*this, nullptr, nullptr)) {}

DrawList::~DrawList() {
  m_root.reset();
  RenderBackend* backend = m_action.getBackend();
  if (!backend) return;
  for (const DrawBatch* batch : m_order) {
    if (batch->handle) backend->destroyBatch(batch->handle);
  }
  if (m_tables) backend->destroyTables(m_tables);
}

bool DrawList::belongsTo(const NkNode* root) const { return !m_rootIsSeparator || m_root->m_node == root; }

// Compiling

void DrawList::update(NkNode* root) {
  if (m_rootIsSeparator) {
    if (m_root->m_dirty) compileAlone(*m_root);
  } else if (m_root->m_dirty || m_rootId != root->getNodeId()) {
    // A plain root hears of every change below it without knowing whether it is one of its own content. That content
    // is mostly segments, which stay as they are.
    m_rootId = root->getNodeId();
    fill([this, root] { m_action.NkAction::apply(root); });
  }
  compileDirty();
}

void DrawList::fill(const std::function<void()>& traverse) { compile(*m_root, traverse); }

void DrawList::compileDirty() {
  if (m_dirty.empty()) return;
  std::erase(m_dirty, nullptr);
  // From the top: compiling a segment may change what the ones below inherit, or remove them.
  std::sort(m_dirty.begin(), m_dirty.end(),
            [](const DrawSegment* a, const DrawSegment* b) { return a->m_depth < b->m_depth; });
  const std::size_t count = m_dirty.size();
  for (std::size_t i = 0; i < count; ++i) m_dirty[i]->m_queueIndex = i;
  for (std::size_t i = 0; i < count; ++i) {
    DrawSegment* segment = m_dirty[i];
    if (!segment) continue;
    segment->m_queueIndex = DrawSegment::kNotQueued;
    if (segment->m_dirty && segment->m_node) compileAlone(*segment);
  }
  // What was marked meanwhile, by a node that changes the scene in which it is drawn, waits for the next frame, so that
  // this one comes to an end.
  m_dirty.erase(m_dirty.begin(), m_dirty.begin() + static_cast<std::ptrdiff_t>(count));
  for (std::size_t i = 0; i < m_dirty.size(); ++i) {
    if (m_dirty[i]) m_dirty[i]->m_queueIndex = i;
  }
}

void DrawList::compileAlone(DrawSegment& segment) {
  m_alone = &segment;
  m_action.NkAction::apply(segment.m_node);
  m_alone = nullptr;
}

template <class Traverse>
void DrawList::compile(DrawSegment& segment, const Traverse& traverse) {
  Pass pass{&segment};
  Pass* outer = m_pass;
  m_pass = &pass;
  segment.m_dirty = false;
  segment.m_camera = nullptr;
  ++m_action.m_statistics.compiledSegments;
  traverse();
  m_pass = outer;
  cutItems(segment, pass.items);
  cutChildren(segment, pass.children);
  noteCamera(segment);
  m_cameraValid = false;
}

void DrawList::startState(NkState& state) const {
  if (!m_alone || !m_alone->m_parent) return;
  const Inherited& entry = m_alone->m_entry;
  state.model = entry.model;
  state.material = entry.material;
  state.font = entry.font;
  state.pickStyle = entry.pickStyle;
  state.switchChild = entry.switchChild;
  state.coordinates = entry.coordinates;
  state.normals = entry.normals;
  state.textureCoordinates = entry.textureCoordinates;
  state.texture = entry.texture;
  state.clip = m_clipSets.get(entry.clipSet);
  state.lights = m_lightSets.get(entry.lightSet);
}

Inherited DrawList::capture(const NkState& state) {
  const auto idOf = [](const NkNode* node) { return node ? node->getNodeId() : 0; };
  Inherited entry;
  entry.model = state.model;
  entry.material = state.material;
  entry.font = state.font;
  entry.pickStyle = state.pickStyle;
  entry.switchChild = state.switchChild;
  entry.coordinates = state.coordinates;
  entry.normals = state.normals;
  entry.textureCoordinates = state.textureCoordinates;
  entry.texture = state.texture;
  entry.coordinatesId = idOf(state.coordinates);
  entry.normalsId = idOf(state.normals);
  entry.textureCoordinatesId = idOf(state.textureCoordinates);
  entry.textureId = idOf(state.texture);
  entry.clipSet = m_clipSets.acquire(state.clip);
  entry.lightSet = m_lightSets.acquire(state.lights);
  return entry;
}

void DrawList::releaseSets(std::uint32_t clipSet, std::uint32_t lightSet) {
  m_clipSets.release(clipSet);
  m_lightSets.release(lightSet);
}

void DrawList::visitSeparator(NkSeparator* separator, const NkState& state) {
  const auto traverse = [this, separator] { separator->doAction(&m_action); };
  if (!m_isKept)
    traverse();
  else if (DrawSegment* segment = enterSeparator(separator, state))
    compile(*segment, traverse);
}

DrawSegment* DrawList::enterSeparator(NkSeparator* separator, const NkState& state) {
  if (m_alone && m_alone->m_node == separator) return std::exchange(m_alone, nullptr);
  if (!m_pass) return nullptr;
  const Inherited entry = capture(state);
  DrawSegment& segment = nextChild(separator);
  if (!segment.m_dirty && segment.m_entry == entry) {
    releaseSets(entry.clipSet, entry.lightSet);
    return nullptr;
  }
  releaseSets(segment.m_entry.clipSet, segment.m_entry.lightSet);
  segment.m_entry = entry;
  return &segment;
}

DrawSegment& DrawList::nextChild(NkSeparator* separator) {
  DrawSegment& parent = *m_pass->segment;
  auto& children = parent.m_children;
  const std::size_t place = m_pass->children++;
  if (place < children.size() && children[place]->m_node == separator) return *children[place];
  // Children came, went or changed places. The separator knows its segments, mostly a single one; where it has many,
  // looking through all of them each time would cost more than compiling anew.
  constexpr std::size_t kMaxLook = 64;
  const auto& known = separator->getCache().segments;
  std::size_t found = children.size();
  for (std::size_t i = 0; i < std::min(known.size(), kMaxLook); ++i) {
    if (known[i]->m_parent == &parent && known[i]->m_parentIndex > place) {
      found = known[i]->m_parentIndex;
      break;
    }
  }
  if (found == children.size()) children.push_back(std::make_unique<DrawSegment>(*this, &parent, separator));
  std::swap(children[place], children[found]);
  children[found]->m_parentIndex = static_cast<std::uint32_t>(found);
  children[place]->m_parentIndex = static_cast<std::uint32_t>(place);
  return *children[place];
}

void DrawList::cutChildren(DrawSegment& segment, std::size_t count) {
  while (segment.m_children.size() > count) {
    DrawSegment& child = *segment.m_children.back();
    cutItems(child, 0);
    cutChildren(child, 0);
    releaseSets(child.m_entry.clipSet, child.m_entry.lightSet);
    if (child.m_hasCamera) --segment.m_childrenWithCamera;
    segment.m_children.pop_back();
  }
}

void DrawList::cutItems(DrawSegment& segment, std::size_t count) {
  while (segment.m_items.size() > count) {
    const DrawSegment::Item item = segment.m_items.back();
    freeSlot(*item.batch, item.slot);
    segment.m_items.pop_back();
  }
}

// Cameras

void DrawList::addCamera(NkCamera* camera, const NbMatrix& model) {
  if (!m_pass || m_pass->segment->m_camera) return;
  m_pass->segment->m_camera = camera;
  m_pass->segment->m_cameraModel = model;
  m_pass->segment->m_cameraOrder = m_pass->children;
}

void DrawList::noteCamera(DrawSegment& segment) {
  for (DrawSegment* s = &segment; s; s = s->m_parent) {
    const bool hasCamera = s->m_camera || s->m_childrenWithCamera > 0;
    if (hasCamera == s->m_hasCamera) return;
    s->m_hasCamera = hasCamera;
    if (s->m_parent) s->m_parent->m_childrenWithCamera += hasCamera ? 1 : -1;
  }
}

const DrawSegment* DrawList::findCamera() const {
  const DrawSegment* segment = m_root.get();
  while (segment && segment->m_hasCamera) {
    const std::size_t ahead = segment->m_camera ? segment->m_cameraOrder : segment->m_children.size();
    const auto end = segment->m_children.begin() + static_cast<std::ptrdiff_t>(ahead);
    const auto child = segment->m_childrenWithCamera == 0
                           ? end
                           : std::find_if(segment->m_children.begin(), end,
                                          [](const std::unique_ptr<DrawSegment>& c) { return c->m_hasCamera; });
    if (child == end) return segment->m_camera ? segment : nullptr;
    segment = child->get();
  }
  return nullptr;
}

void DrawList::placeView(Frame& frame) {
  if (!m_cameraValid) {
    m_camera = findCamera();
    m_cameraValid = true;
  }
  NbViewVolume volume;
  if (m_camera) {
    volume = m_camera->m_camera->getViewVolumeUnder(m_camera->m_cameraModel, frame.viewport.getViewportAspectRatio());
  } else {
    volume.ortho(-1, 1, -1, 1, -1, 1);
  }
  frame.worldToClip = volume.getMatrix();
  frame.towardsViewer = -volume.getProjectionDirection();
  const bool isPerspective = volume.getProjectionType() == NbViewVolume::PERSPECTIVE;
  const NbVec3f& eye = isPerspective ? volume.getProjectionPoint() : frame.towardsViewer;
  frame.eye.setValue(eye[0], eye[1], eye[2], isPerspective ? 1.0f : 0.0f);
}

// Meshes

namespace {

std::uint32_t packByte(float value) {
  if (!(value > 0)) return 0;
  return value >= 1 ? 255 : static_cast<std::uint32_t>(value * 255.0f + 0.5f);
}

std::uint32_t pack(const NbColor& color, float fourth) {
  return packByte(color[0]) | packByte(color[1]) << 8U | packByte(color[2]) << 16U | packByte(fourth) << 24U;
}

} // namespace

void DrawList::addMesh(const PlacedMesh& placed, const NkState& state) {
  if (!m_pass || !placed.mesh || placed.mesh->getIndices().empty()) return;
  const Material& material = state.material;
  Instance instance;
  instance.diffuse = pack(material.diffuse, 1.0f - material.transparency);
  const std::uint32_t opacity = instance.diffuse >> 24U;
  if (opacity == 0) return;
  instance.emissive = pack(material.emissive, 0);
  instance.specular = pack(material.specular, material.shininess);
  instance.ambient = pack(material.ambient, 0);
  for (int j = 0; j < 3; ++j) {
    float offset = state.model[3][j];
    for (int i = 0; i < 3; ++i) {
      instance.columns[j][i] = placed.scale[i] * state.model[i][j];
      offset += placed.offset[i] * state.model[i][j];
    }
    instance.columns[j][3] = offset;
  }
  instance.clipSet = m_clipSets.acquire(state.clip);
  instance.lightSet = m_lightSets.acquire(state.lights);
  takeTexture(state);

  const BatchKey key{placed.mesh->getId(), m_textureData.id, opacity < 255 || m_textureTransparent,
                     instance.clipSet != 0};
  DrawSegment& segment = *m_pass->segment;
  const auto index = static_cast<std::uint32_t>(m_pass->items++);
  if (index < segment.m_items.size()) {
    const DrawSegment::Item& item = segment.m_items[index];
    DrawBatch& batch = *item.batch;
    if (batch.key == key) {
      overwrite(batch, item.slot, instance);
      return;
    }
    freeSlot(batch, item.slot);
  } else {
    segment.m_items.emplace_back();
  }
  DrawBatch& batch = findBatch(key, placed.mesh);
  segment.m_items[index] = {&batch, allocate(batch, instance, {&segment, index})};
}

void DrawList::takeTexture(const NkState& state) {
  const std::uint64_t id = state.texture ? state.texture->getNodeId() : 0;
  if (m_texture == state.texture && m_textureNodeId == id) return;
  m_texture = state.texture;
  m_textureNodeId = id;
  m_textureData = Texture();
  m_textureTransparent = false;
  if (!state.texture) return;
  const Image& image = state.texture->getImage();
  if (image.width <= 0 || image.height <= 0) return;
  m_textureData.id = id;
  m_textureData.image = &image;
  m_textureData.repeatS = state.texture->wrapS.getValue() == NkTexture2::REPEAT;
  m_textureData.repeatT = state.texture->wrapT.getValue() == NkTexture2::REPEAT;
  m_textureTransparent = image.components == 2 || image.components == 4;
}

// Batches

std::size_t DrawList::BatchKeyHash::operator()(const BatchKey& key) const {
  const unsigned flags = (key.transparent ? 1U : 0U) + (key.clipped ? 2U : 0U);
  return mixHash(mixHash(mixHash(kHashSeed, key.mesh), key.texture), std::uint64_t{flags});
}

DrawBatch& DrawList::findBatch(const BatchKey& key, const Ref<Mesh>& mesh) {
  std::unique_ptr<DrawBatch>& entry = m_batches[key];
  if (!entry) {
    entry = std::make_unique<DrawBatch>();
    entry->key = key;
    entry->mesh = mesh;
    entry->texture = m_textureData;
    entry->serial = m_nextSerial++;
    m_order.push_back(entry.get());
    m_orderValid = false;
  }
  return *entry;
}

void DrawList::touch(DrawBatch& batch, std::size_t slot) {
  if (!batch.touched) {
    batch.touched = true;
    m_touched.push_back(&batch);
  }
  if (!batch.changed.empty()) {
    RenderBackend::Range& last = batch.changed.back();
    if (slot >= last.first && slot < last.first + last.count) return;
    if (slot == last.first + last.count) {
      ++last.count;
      return;
    }
  }
  batch.changed.push_back({slot, 1});
}

void DrawList::overwrite(DrawBatch& batch, std::uint32_t slot, const Instance& instance) {
  Instance& place = batch.instances[slot];
  releaseSets(place.clipSet, place.lightSet);
  if (std::memcmp(&place, &instance, sizeof(Instance)) == 0) return;
  place = instance;
  touch(batch, slot);
}

std::uint32_t DrawList::allocate(DrawBatch& batch, const Instance& instance, DrawBatch::Owner owner) {
  const std::size_t slot = batch.instances.size();
  batch.instances.push_back(instance);
  batch.owners.push_back(owner);
  touch(batch, slot);
  return static_cast<std::uint32_t>(slot);
}

void DrawList::freeSlot(DrawBatch& batch, std::uint32_t slot) {
  releaseSets(batch.instances[slot].clipSet, batch.instances[slot].lightSet);
  // The last one moves into the gap.
  const DrawBatch::Owner owner = batch.owners.back();
  batch.instances[slot] = batch.instances.back();
  batch.owners[slot] = owner;
  owner.segment->m_items[owner.item].slot = slot;
  batch.instances.pop_back();
  batch.owners.pop_back();
  touch(batch, slot);
}

// Sending

void DrawList::flush() {
  RenderBackend* backend = m_action.getBackend();
  bool anyEmpty = false;
  for (DrawBatch* batch : m_touched) {
    batch->touched = false;
    m_runsValid &= !batch->transparent();
    if (batch->instances.empty())
      anyEmpty = true;
    else if (backend)
      sendBatch(*backend, *batch);
    batch->changed.clear();
    batch->texture.image = nullptr;
  }
  m_touched.clear();
  if (anyEmpty) dropEmptyBatches();
  if (!m_orderValid) sortBatches();
  // The image may change or go before a texture is used again.
  m_texture = nullptr;
  m_textureNodeId = 0;
  m_textureData = Texture();
  m_textureTransparent = false;
  if (!backend) return;
  if (!m_tables) m_tables = backend->createTables();
  m_clipSets.upload(*backend, m_tables, RenderBackend::CLIP_SETS);
  m_lightSets.upload(*backend, m_tables, RenderBackend::LIGHT_SETS);
}

void DrawList::sendBatch(RenderBackend& backend, DrawBatch& batch) {
  if (!batch.handle) {
    BatchDescription description;
    description.mesh = batch.mesh.get();
    description.texture = batch.texture;
    description.transparent = batch.key.transparent;
    description.clipped = batch.key.clipped;
    batch.handle = backend.createBatch(description);
  }
  if (batch.transparent()) return; // Sent in the order of the frame.
  // Neighbouring ranges go together: a call costs more than a few instances too many.
  constexpr std::size_t kGap = 32;
  std::sort(batch.changed.begin(), batch.changed.end(),
            [](const RenderBackend::Range& a, const RenderBackend::Range& b) { return a.first < b.first; });
  m_ranges.clear();
  for (RenderBackend::Range range : batch.changed) {
    if (range.first >= batch.instances.size()) break;
    range.count = std::min(range.count, batch.instances.size() - range.first);
    if (!m_ranges.empty() && range.first <= m_ranges.back().first + m_ranges.back().count + kGap) {
      RenderBackend::Range& last = m_ranges.back();
      last.count = std::max(last.first + last.count, range.first + range.count) - last.first;
    } else {
      m_ranges.push_back(range);
    }
  }
  if (!m_ranges.empty()) backend.updateBatch(batch.handle, batch.instances, m_ranges);
}

void DrawList::dropEmptyBatches() {
  std::erase_if(m_order, [](const DrawBatch* batch) { return batch->instances.empty(); });
  std::erase_if(m_batches, [this](const auto& entry) {
    const DrawBatch& batch = *entry.second;
    if (!batch.instances.empty()) return false;
    if (batch.handle) m_action.getBackend()->destroyBatch(batch.handle);
    return true;
  });
}

void DrawList::sortBatches() {
  // Alike ones stand together, so that the back end rarely has to switch; among them, what came first to the scene.
  const auto rank = [](const DrawBatch* batch) {
    return std::make_tuple(batch->transparent(), batch->key.clipped, batch->key.texture != 0, batch->serial);
  };
  std::sort(m_order.begin(), m_order.end(),
            [&rank](const DrawBatch* a, const DrawBatch* b) { return rank(a) < rank(b); });
  m_orderValid = true;
}

void DrawList::sortTransparent(RenderBackend& backend, const Frame& frame) {
  if (m_runsValid && m_runsEye == frame.eye) return;
  m_runsValid = true;
  m_runsEye = frame.eye;
  m_runs.clear();
  struct Entry {
    float distance;
    DrawBatch* batch;
    std::uint32_t slot;
  };
  std::vector<Entry> entries;
  const NbVec3f eye(frame.eye[0], frame.eye[1], frame.eye[2]);
  for (DrawBatch* batch : m_order) {
    if (!batch->transparent()) continue;
    batch->sorted.clear();
    const NbVec3f middle = batch->mesh->getBox().getCenter();
    for (std::size_t slot = 0; slot < batch->instances.size(); ++slot) {
      NbVec3f center;
      for (int j = 0; j < 3; ++j) {
        const float* column = batch->instances[slot].columns[j];
        center[j] = column[0] * middle[0] + column[1] * middle[1] + column[2] * middle[2] + column[3];
      }
      const float distance = frame.eye[3] != 0 ? (center - eye).sqrLength() : -center.dot(eye);
      // What is not a number has no place in an order.
      entries.push_back({std::isfinite(distance) ? distance : 0.0f, batch, static_cast<std::uint32_t>(slot)});
    }
  }
  std::stable_sort(entries.begin(), entries.end(),
                   [](const Entry& a, const Entry& b) { return a.distance > b.distance; });
  for (const Entry& entry : entries) {
    std::vector<Instance>& sorted = entry.batch->sorted;
    if (!m_runs.empty() && m_runs.back().batch == entry.batch)
      ++m_runs.back().count;
    else
      m_runs.push_back({entry.batch, sorted.size(), 1});
    sorted.push_back(entry.batch->instances[entry.slot]);
  }
  for (DrawBatch* batch : m_order) {
    if (batch->transparent()) backend.updateBatch(batch->handle, batch->sorted, {{0, batch->sorted.size()}});
  }
}

void DrawList::draw(Frame& frame) {
  RenderBackend* backend = m_action.getBackend();
  if (!backend) return;
  placeView(frame);
  frame.headlight = !m_lightSets.isUsed();
  sortTransparent(*backend, frame);
  backend->beginFrame(frame, m_tables);
  NkGLRenderAction::Statistics& statistics = m_action.m_statistics;
  const auto drawBatch = [&](const DrawBatch& batch, std::size_t first, std::size_t count) {
    backend->drawBatch(batch.handle, first, count);
    ++statistics.drawCalls;
    statistics.drawnInstances += static_cast<int>(count);
  };
  for (const DrawBatch* batch : m_order) {
    if (!batch->transparent()) drawBatch(*batch, 0, batch->instances.size());
  }
  for (const Run& run : m_runs) drawBatch(*run.batch, run.first, run.count);
  backend->endFrame();
}

} // namespace arbora
