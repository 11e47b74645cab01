#pragma once

#include "arbora/base/NbName.h"
#include "arbora/scene/NkAction.h"
#include "arbora/scene/NkPath.h"

/// Looks for nodes by type, by name or by identity; all that are set must fit. What a switch hides is searched only
/// with `setSearchingAll`.
class ARBORA_API NkSearchAction : public NkAction {
public:
  enum Interest { FIRST = 0, LAST = 1, ALL = 2 };

  NkSearchAction();
  ~NkSearchAction() override;
  static NkType getClassTypeId();
  NkType getTypeId() const override;
  static void initClass();
  static void exitClass();

  void setInterest(int interest) { m_interest = interest; }
  int getInterest() const { return m_interest; }
  void setType(NkType type, bool derivedToo = true);
  void setName(const NbName& name);
  void setNode(NkNode* node);
  void setSearchingAll(bool flag) { m_searchingAll = flag; }
  bool isSearchingAll() const { return m_searchingAll; }

  /// The first or last match; NULL if there is none. It lives until the next search.
  NkPath* getPath();
  /// All matches, with the interest `ALL`.
  NkPathList& getPaths() { return m_paths; }
  /// Back to a search for nothing with the interest `FIRST`.
  void reset();

  /// True when no further match is looked for.
  bool isFound() const { return m_found; }
  void setFound();

  /// Tests the present node and notes it; for nodes.
  void checkNode(NkNode* node);

protected:
  void beginTraversal() override;
  void endTraversal() override;
  void dispatch(NkNode* node) override;

private:
  static NkType s_classTypeId;
  int m_interest = FIRST;
  NkType m_type;
  bool m_derivedToo = true;
  NbName m_name;
  arbora::Ref<NkNode> m_node;
  bool m_searchingAll = false;
  bool m_found = false;
  arbora::Ref<NkPath> m_path;
  std::vector<Step> m_lastMatch; // Made a path when it's asked for: a search for the last match meets many.
  NkPathList m_paths;
};
