#pragma once

#include <memory>
#include <vector>

#include "arbora/scene/BoxCache.h"
#include "arbora/scene/NkBaseKit.h"
#include "arbora/scene/NkHandleEventAction.h"

class NkPath;

/// Node kit that a user acts on. It draws under two separators, so that nothing inside changes what follows it. A part
/// can also be a surrogate: geometry that stands elsewhere in the scene and that counts as this kit's when it is
/// picked.
class ARBORA_API NkInteractionKit : public NkBaseKit {
  NK_KIT_HEADER(NkInteractionKit);

public:
  NkInteractionKit();

  /// Which child of a switch shows: -1 none, -3 all, from 0 on that one. NULL, and a node that is no switch, are left
  /// alone; so is a switch that has the value.
  static void setSwitchValue(NkNode* node, int whichChild);

  /// Makes a node the part's default, which isn't written to files. With `onlyIfAlready` a part that was changed stays
  /// as it is. False, in silence, if there is no such part or node.
  bool setPartAsDefault(const NbName& partName, NkNode* node, bool onlyIfAlready = true);
  /// The same with the node that bears a name; of several the one that was named last.
  bool setPartAsDefault(const NbName& partName, const NbName& nodeName, bool onlyIfAlready = true);

  /// Makes what stands at the end of a path the surrogate of a part, whose own node goes; NULL takes the surrogate
  /// back. False, with a message, if there is no such public part.
  bool setPartAsPath(const NbName& partName, NkPath* surrogate);

  void getBoundingBox(NkGetBoundingBoxAction* action) override;
  void handleEvent(NkHandleEventAction* action) override;
  void rayPick(NkRayPickAction* action) override;

protected:
  ~NkInteractionKit() override;

  bool setAnyPart(const NbName& partName, NkNode* node, bool anyPart = true) override;
  bool dropCaches(NkNotification& notification) override;
  /// True if a ray passes the kit by.
  bool isMissed(NkRayPickAction* action);
  /// The beginning of a pick path that ends at a surrogate of this kit; NULL if the pick went through none.
  arbora::Ref<NkPath> findSurrogate(NkPath* pickPath) const;

  bool hasSurrogates() const { return m_surrogates && !m_surrogates->empty(); }

  /// Makes or breaks the connections between the kit's fields and its parts, and gives the previous state. Nothing
  /// happens if they stand as wished, unless `doItAlways`. A class with connections overrides it.
  virtual bool setUpConnections(bool onOff, bool doItAlways = false);
  bool m_connectionsSetUp = false;

  bool readInstance(NkInput* in, unsigned short flags) override;
  void copyContents(const NkNode* original) override;

private:
  // The tail is kept; the nodes ahead of it are compared and never looked into: they may hold this kit.
  struct Surrogate {
    NbName part;
    std::vector<const NkNode*> nodes;
    arbora::Ref<NkNode> tail;
  };
  void removeSurrogate(const NbName& partName);
  bool keepsBox() const;

  NkSFNode topSeparator;
  NkSFNode geomSeparator;
  std::unique_ptr<std::vector<Surrogate>> m_surrogates; // Few kits have any.
  NkHandleEventAction::Learnt m_learnt;
  std::unique_ptr<arbora::BoxCache> m_box;
};
