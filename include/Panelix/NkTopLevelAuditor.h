#pragma once

#include "Panelix/NkDialogAuditor.h"

/// Auditor of last resort of a top-level dialog.
class NkTopLevelAuditor : public NkDialogAuditor {};
