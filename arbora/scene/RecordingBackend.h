#pragma once

#include <map>
#include <set>

#include "arbora/scene/RenderBackend.h"

namespace arbora {

/// A back end that draws nothing: it keeps what it is sent and counts. For tests and benchmarks of what lies above the
/// graphics card.
class ARBORA_API RecordingBackend : public RenderBackend {
public:
  struct Batch {
    BatchDescription description;
    std::vector<Instance> instances; // As the card would have them.
  };
  struct Draw {
    Handle batch;
    std::size_t first;
    std::size_t count;
  };
  struct Counts {
    std::size_t createdBatches = 0;
    std::size_t destroyedBatches = 0;
    std::size_t uploads = 0;       // Ranges of instances and sets.
    std::size_t uploadedBytes = 0; // Of instances and sets.
    std::size_t draws = 0;
    std::size_t drawnInstances = 0;
    std::size_t frames = 0;
  };

  Handle createBatch(const BatchDescription& description) override;
  void destroyBatch(Handle batch) override;
  void updateBatch(Handle batch, const std::vector<Instance>& instances, const std::vector<Range>& changed) override;
  Handle createTables() override;
  void destroyTables(Handle tables) override;
  void updateTable(Handle tables, SetKind kind, const std::vector<NbVec4f>& texels, const Range& changed) override;
  void beginFrame(const Frame& frame, Handle tables) override;
  void drawBatch(Handle batch, std::size_t first, std::size_t count) override;
  void endFrame() override;

  /// Since the start or the last `resetCounts`.
  const Counts& getCounts() const { return m_counts; }
  void resetCounts() { m_counts = Counts(); }

  // What stands at present.
  const std::map<Handle, Batch>& getBatches() const { return m_batches; }
  std::size_t getNumTables() const { return m_tables.size(); }
  const std::vector<NbVec4f>& getTable(Handle tables, SetKind kind) const { return m_tables.at(tables).at(kind); }

  // The last frame.
  const Frame& getFrame() const { return m_frame; }
  Handle getFrameTables() const { return m_frameTables; }
  const std::vector<Draw>& getDraws() const { return m_draws; }
  /// All instances in the order in which they were drawn.
  std::vector<Instance> getDrawnInstances() const;

  /// Calls that a real back end could not have followed: a handle or range that isn't there. Must stay 0.
  std::size_t getNumErrors() const { return m_errors; }

private:
  Counts m_counts;
  Handle m_nextHandle = 1;
  std::map<Handle, Batch> m_batches;
  std::map<Handle, std::array<std::vector<NbVec4f>, 2>> m_tables;
  Frame m_frame;
  Handle m_frameTables = 0;
  std::vector<Draw> m_draws;
  bool m_inFrame = false;
  std::size_t m_errors = 0;
};

} // namespace arbora
