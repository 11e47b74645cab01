#pragma once

#include <string>

class NkNode;

// Trees of nodes as files and in comparison.

/// The scene file of a tree.
std::string writeTree(NkNode* node, bool binary);

/// Empty if the trees are equal: types, names, fields with their default flags and connections, children, and which
/// nodes stand in several places. Else what differs first.
std::string treeDifference(NkNode* a, NkNode* b);
