#pragma once

#include "Panelix/NkDialogAuditor.h"

/// Auditor of last resort of a group that stands alone in a scene.
class PANELIX_API NkDialogGroupAuditor : public NkDialogAuditor {};
