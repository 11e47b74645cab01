#pragma once

#include <vector>

#include "arbora/scene/RenderBackend.h"

/// Takes what a renderer draws and does nothing with it: what is left is the processor's part of a frame.
class NullBackend : public arbora::RenderBackend {
public:
  Handle createBatch(const arbora::BatchDescription&) override { return ++m_last; }
  void destroyBatch(Handle) override {}
  void updateBatch(Handle, const std::vector<arbora::Instance>&, const std::vector<Range>&) override {}
  Handle createTables() override { return ++m_last; }
  void destroyTables(Handle) override {}
  void updateTable(Handle, SetKind, const std::vector<NbVec4f>&, const Range&) override {}
  void beginFrame(const arbora::Frame&, Handle) override {}
  void drawBatch(Handle, std::size_t, std::size_t) override {}
  void endFrame() override {}

private:
  Handle m_last = 0;
};
