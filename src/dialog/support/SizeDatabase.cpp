#include "Panelix/SizeDatabase.h"

#include <algorithm>

namespace panelix {

void SizeDatabase::set(int child, const SizeTriple& triple) {
  if (child < getCount()) m_children[static_cast<std::size_t>(child)] = triple;
}

void SizeDatabase::setCount(int count) {
  if (count == getCount()) return;
  m_children.assign(static_cast<std::size_t>(count), SizeTriple{});
  // The turn may stand behind the last child.
  if (m_turn >= count) m_turn = 0;
}

void SizeDatabase::clear() {
  m_children.clear();
  m_turn = 0;
}

void SizeDatabase::share(int axis, long long difference) {
  const std::size_t count = m_children.size();
  const int step = difference < 0 ? -1 : 1;
  const long long pixels = difference < 0 ? -difference : difference;
  long long most = 0;
  long long room = 0;
  m_room.resize(count);
  for (std::size_t i = 0; i < count; ++i) {
    const long long size = m_children[i].size[axis];
    const long long min = m_children[i].min[axis];
    const long long max = m_children[i].max[axis];
    // A child whose next pixel would still leave it outside its limits takes none.
    const bool canStart = size + step >= min && size + step <= max;
    m_room[i] = !canStart ? 0 : step > 0 ? max - size : size - min;
    most = std::max(most, m_room[i]);
    room += m_room[i];
  }
  if (pixels == 0 || room == 0) return;

  // The rounds in which everybody who has room left gets a pixel: the largest number that the pixels last for.
  const auto givenAfter = [&](long long rounds) {
    long long given = 0;
    for (const long long child : m_room) given += std::min(child, rounds);
    return given;
  };
  long long rounds = most;
  if (room > pixels) {
    long long tooMany = most;
    rounds = pixels / static_cast<long long>(count);
    while (tooMany - rounds > 1) {
      const long long middle = rounds + (tooMany - rounds) / 2;
      (givenAfter(middle) <= pixels ? rounds : tooMany) = middle;
    }
  }
  // What is left goes to the next in turn; the last one who got any ends the turn.
  long long left = std::min(pixels, room) - givenAfter(rounds);
  const bool endsInFullRound = left == 0;
  std::size_t last = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t child = (static_cast<std::size_t>(m_turn) + i) % count;
    long long given = std::min(m_room[child], rounds);
    if (left > 0 && m_room[child] > rounds) {
      ++given;
      if (--left == 0) last = child;
    } else if (endsInFullRound && m_room[child] >= rounds) {
      last = child;
    }
    int& size = m_children[child].size[axis];
    size = static_cast<int>(size + step * given);
  }
  m_turn = static_cast<int>((last + 1) % count);
}

} // namespace panelix
