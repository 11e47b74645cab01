#include "arbora/scene/RecordingBackend.h"

#include <algorithm>

namespace arbora {

RenderBackend::Handle RecordingBackend::createBatch(const BatchDescription& description) {
  ++m_counts.createdBatches;
  m_batches[m_nextHandle].description = description;
  return m_nextHandle++;
}

void RecordingBackend::destroyBatch(Handle batch) {
  ++m_counts.destroyedBatches;
  m_errors += m_batches.erase(batch) == 1 ? 0 : 1;
}

void RecordingBackend::updateBatch(Handle batch, const std::vector<Instance>& instances,
                                   const std::vector<Range>& changed) {
  const auto it = m_batches.find(batch);
  if (it == m_batches.end()) {
    ++m_errors;
    return;
  }
  // Only what is told to have changed is taken over, so that a range that was forgotten shows.
  std::vector<Instance>& kept = it->second.instances;
  kept.resize(instances.size());
  for (const Range& range : changed) {
    if (range.first + range.count > instances.size()) {
      ++m_errors;
      continue;
    }
    const auto first = instances.begin() + static_cast<std::ptrdiff_t>(range.first);
    std::copy(first, first + static_cast<std::ptrdiff_t>(range.count),
              kept.begin() + static_cast<std::ptrdiff_t>(range.first));
    ++m_counts.uploads;
    m_counts.uploadedBytes += range.count * sizeof(Instance);
  }
}

RenderBackend::Handle RecordingBackend::createTables() {
  m_tables[m_nextHandle] = {};
  return m_nextHandle++;
}

void RecordingBackend::destroyTables(Handle tables) { m_errors += m_tables.erase(tables) == 1 ? 0 : 1; }

void RecordingBackend::updateTable(Handle tables, SetKind kind, const std::vector<NbVec4f>& texels,
                                   const Range& changed) {
  const auto it = m_tables.find(tables);
  if (it == m_tables.end() || changed.first + changed.count > texels.size()) {
    ++m_errors;
    return;
  }
  std::vector<NbVec4f>& kept = it->second.at(kind);
  kept.resize(texels.size());
  const auto first = texels.begin() + static_cast<std::ptrdiff_t>(changed.first);
  std::copy(first, first + static_cast<std::ptrdiff_t>(changed.count),
            kept.begin() + static_cast<std::ptrdiff_t>(changed.first));
  ++m_counts.uploads;
  m_counts.uploadedBytes += changed.count * sizeof(NbVec4f);
}

void RecordingBackend::beginFrame(const Frame& frame, Handle tables) {
  m_errors += m_inFrame || !m_tables.contains(tables) ? 1 : 0;
  m_inFrame = true;
  m_frame = frame;
  m_frameTables = tables;
  m_draws.clear();
  ++m_counts.frames;
}

void RecordingBackend::drawBatch(Handle batch, std::size_t first, std::size_t count) {
  const auto it = m_batches.find(batch);
  if (!m_inFrame || it == m_batches.end() || count == 0 || first + count > it->second.instances.size()) {
    ++m_errors;
    return;
  }
  m_draws.push_back({batch, first, count});
  ++m_counts.draws;
  m_counts.drawnInstances += count;
}

void RecordingBackend::endFrame() {
  m_errors += m_inFrame ? 0 : 1;
  m_inFrame = false;
}

std::vector<Instance> RecordingBackend::getDrawnInstances() const {
  std::vector<Instance> drawn;
  for (const Draw& draw : m_draws) {
    const std::vector<Instance>& instances = m_batches.at(draw.batch).instances;
    const auto first = instances.begin() + static_cast<std::ptrdiff_t>(draw.first);
    drawn.insert(drawn.end(), first, first + static_cast<std::ptrdiff_t>(draw.count));
  }
  return drawn;
}

} // namespace arbora
