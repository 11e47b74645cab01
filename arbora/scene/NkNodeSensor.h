#pragma once

#include "arbora/scene/NkDataSensor.h"

/// Watches a node and everything below it.
class ARBORA_API NkNodeSensor : public NkDataSensor {
public:
  explicit NkNodeSensor(NkSensorCB* callback = nullptr, void* data = nullptr) : NkDataSensor(callback, data) {}
  ~NkNodeSensor() override;

  void attach(NkNode* node);
  void detach();
  NkNode* getAttachedNode() const { return m_node; }

private:
  friend class NkNode;
  void watchedObjectDies() override;
  NkNode* m_node = nullptr;
};
