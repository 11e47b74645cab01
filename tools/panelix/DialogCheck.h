#pragma once

class NkNode;

namespace panelix {

class Messages;

/// Warns of what reading lets pass in the dialogs below `root` and no form could show. A message names the component by
/// its type and `auditorID`; one without an `auditorID`, by its way from the nearest container that has one.
void checkDialogs(NkNode* root, Messages& messages);

} // namespace panelix
