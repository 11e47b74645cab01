#pragma once

#include "src/platform/Win32.h"

/// What the main loop is on each system; for NkWin.
namespace arbora {

/// Makes the delay queue wake the loop, whoever runs it.
void prepareLoop();
void finishLoop();

int runLoop();
void quitLoop(int code);
/// False if `quitLoop` was called.
bool serveLoop();

/// True if the message was an accelerator key, which is sent now.
bool translateAccelerator(MSG& message);

/// The module of the running program; NULL where that means nothing.
HINSTANCE programModule();

} // namespace arbora
