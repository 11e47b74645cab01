#pragma once

#include <cstddef>
#include <vector>

#include "arbora/scene/NkInput.h"
#include "arbora/scene/NkOutput.h"

namespace arbora {

/// Reads `[ a, b, c ]` or one bare value; in the binary form a count and so many values. Each takes at least
/// `bytesEach` there.
template <class T, class ReadOne>
bool readList(NkInput* in, std::vector<T>& values, std::size_t bytesEach, ReadOne readOne) {
  values.clear();
  if (in->isBinary()) {
    int count = 0;
    if (!in->readCount(count, bytesEach)) return false;
    values.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
      if (!readOne(values.emplace_back())) return false;
    }
    return true;
  }
  if (!in->take('[')) return readOne(values.emplace_back());
  const std::size_t start = in->getTokenPosition();
  while (!in->take(']')) {
    const int next = in->peek();
    if (next < 0 || next == '}') {
      in->error("']' expected for the '[' at %s", in->describePosition(start).c_str());
      return false;
    }
    if (!readOne(values.emplace_back())) return false;
    in->take(',');
  }
  return true;
}

template <class T, class WriteOne>
void writeList(NkOutput* out, const std::vector<T>& values, WriteOne writeOne) {
  if (out->isBinary()) {
    out->write(static_cast<int>(values.size()));
    for (const T& value : values) writeOne(value);
    return;
  }
  if (values.size() == 1) {
    writeOne(values.front());
    return;
  }
  out->writeRaw("[ ");
  bool isFirst = true;
  for (const T& value : values) {
    if (!isFirst) {
      out->writeRaw(",");
      out->separate();
    }
    isFirst = false;
    writeOne(value);
  }
  out->writeRaw(values.empty() ? "]" : " ]");
}

} // namespace arbora
