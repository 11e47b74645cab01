#pragma once

#include "arbora/base/NbName.h"
#include "arbora/scene/NkBaseKit.h"
#include "arbora/scene/NkDetail.h"

/// Tells which part of a node kit was picked.
class ARBORA_API NkNodeKitDetail : public NkDetail {
public:
  NkNodeKitDetail();
  ~NkNodeKitDetail() override;
  static NkType getClassTypeId();
  NkType getTypeId() const override;
  static void initClass();
  static void exitClass();

  NkNodeKitDetail* copy() const override;

  NkBaseKit* getNodeKit() const { return m_kit.get(); }
  /// The public part that is deepest on the way to what was picked; NULL, and the empty name, if there is none.
  NkNode* getPart() const { return m_part.get(); }
  const NbName& getPartName() const { return m_partName; }

  void setNodeKit(NkBaseKit* kit) { m_kit = arbora::Ref<NkBaseKit>(kit); }
  void setPart(NkNode* part) { m_part = arbora::Ref<NkNode>(part); }
  void setPartName(const NbName& name) { m_partName = name; }

private:
  static NkType s_classTypeId;
  arbora::Ref<NkBaseKit> m_kit;
  arbora::Ref<NkNode> m_part;
  NbName m_partName;
};
