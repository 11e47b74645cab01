#pragma once

#include <array>

#include "arbora/base/NbColor.h"

class NkNode;

/// Checks that a skin part is a square of side 1, in front of z = 0, with two rings around its field: seen from above
/// it shows the colours of the outer ring's upper left and lower right halves, the inner ring's, and the field's.
void expectBevelledButton(NkNode* part, const std::array<NbColor, 5>& colors);
