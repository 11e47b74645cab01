#pragma once

#include "arbora/scene/NkGroup.h"

constexpr int NK_SWITCH_NONE = -1;
constexpr int NK_SWITCH_INHERIT = -2;
constexpr int NK_SWITCH_ALL = -3;

/// Group that traverses none, one or all of its children.
class ARBORA_API NkSwitch : public NkGroup {
  NK_NODE_HEADER(NkSwitch);

public:
  /// Index of the child that is traversed; -1 none, -2 the value of the switch further up, -3 all. An index past the
  /// children shows nothing.
  NkSFInt32 whichChild;

  NkSwitch();
  explicit NkSwitch(int expectedChildren);

  bool affectsState() const override;
  void doAction(NkAction* action) override;
  void search(NkSearchAction* action) override;
  void write(NkWriteAction* action) override;

protected:
  ~NkSwitch() override;

private:
  void traverseChosen(NkAction* action);
};
