#include "FileTest.h"

#include "Trees.h"

std::string FileTest::writeText(NkNode* node) { return writeTree(node, false); }

std::string FileTest::writeBinary(NkNode* node) { return writeTree(node, true); }

std::string FileTest::difference(NkNode* a, NkNode* b) { return treeDifference(a, b); }
