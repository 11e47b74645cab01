#pragma once

#include <vector>

#include "arbora/scene/NkAction.h"

/// Traverses a scene and calls functions of the application ahead of and behind nodes.
class ARBORA_API NkCallbackAction : public NkAction {
public:
  enum Response { CONTINUE, ABORT, PRUNE };
  using Callback = Response(void* data, NkCallbackAction* action, const NkNode* node);

  NkCallbackAction();
  static NkType getClassTypeId();
  NkType getTypeId() const override;
  static void initClass();
  static void exitClass();

  /// `callback` runs ahead of (behind) every node whose class derives from `type`. `PRUNE` skips what is below.
  void addPreCallback(NkType type, Callback* callback, void* data = nullptr);
  void addPostCallback(NkType type, Callback* callback, void* data = nullptr);

protected:
  void dispatch(NkNode* node) override;

private:
  struct Entry {
    NkType type;
    Callback* callback;
    void* data;
  };
  Response invoke(const std::vector<Entry>& entries, NkNode* node);
  static NkType s_classTypeId;
  std::vector<Entry> m_pre;
  std::vector<Entry> m_post;
};
