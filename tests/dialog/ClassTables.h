#pragma once

#include <string>

class NkBaseKit;
class NkFieldData;
class NkNode;
class NkNodekitCatalog;

/// Names of the fields that the node's class adds to an inherited table, in their order, each with a blank behind it.
std::string ownFields(const NkNode* node, const NkFieldData* inherited);

/// The parts that the kit's class adds to an inherited catalog, in their order, one a line: type, name, "<", parent,
/// and a "+" for a public part. Checks that they are null by default, filled with nodes of their type, and no lists.
std::string ownParts(const NkBaseKit* kit, const NkNodekitCatalog* inherited);
