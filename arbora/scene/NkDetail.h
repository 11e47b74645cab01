#pragma once

#include "arbora/scene/NkTypedObject.h"

/// What a node tells about a pick beyond the point: a picked point holds one for each node of its path that has
/// something to tell.
class ARBORA_API NkDetail : public NkTypedObject {
public:
  static NkType getClassTypeId();
  static void initClass();
  static void exitClass();

  /// A copy that belongs to the caller.
  virtual NkDetail* copy() const = 0;

protected:
  NkDetail() = default;
  NkDetail(const NkDetail&) = default;
  NkDetail& operator=(const NkDetail&) = default;

private:
  static NkType s_classTypeId;
};
