#pragma once

#include "Panelix/NkDialogAuditor.h"

/// Auditor of last resort of a group that stands alone in a scene.
class NkDialogGroupAuditor : public NkDialogAuditor {};
