#pragma once

#include "arbora/scene/export.h"

namespace arbora {

/// Register all classes of the scene library, in an order in which each stands behind its parent; and take them out
/// again in the reverse order.
ARBORA_API void initSceneClasses();
ARBORA_API void exitSceneClasses();

} // namespace arbora
