#pragma once

#include <vector>

#include "Panelix/Sizes.h"
#include "Panelix/export.h"

namespace panelix {

/// The size triples of a container's children, and whose turn it is to take the next odd pixel. The turn survives from
/// one layout to the next.
class PANELIX_API SizeDatabase {
public:
  int getCount() const { return static_cast<int>(m_children.size()); }
  SizeTriple& operator[](int child) { return m_children[static_cast<std::size_t>(child)]; }
  const SizeTriple& operator[](int child) const { return m_children[static_cast<std::size_t>(child)]; }

  /// Sets a child's sizes, if there still is such a child.
  void set(int child, const SizeTriple& triple);

  /// Makes room for so many children; another number forgets all sizes, but not the turn.
  void setCount(int count);
  void clear();

  /// Shares a surplus or a lack of pixels out among the children's sizes along an axis, 0 for x and 1 for y: one pixel
  /// to a child, in turns, where a child at its limit is passed over, until all is given or nobody takes any more.
  /// Takes the same time however many pixels there are.
  void share(int axis, long long difference);

  int getTurn() const { return m_turn; }

private:
  std::vector<SizeTriple> m_children;
  std::vector<long long> m_room; // How much each child can take; kept for its memory.
  int m_turn = 0;
};

} // namespace panelix
