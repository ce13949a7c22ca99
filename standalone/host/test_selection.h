#pragma once

#include <QString>

#include <map>
#include <vector>

#include "module/item_id.h"
#include "module/resource.h"

/// The words by which the module names its diagnostics or its tests.
using Aliases = std::map<ItemId, AliasEntry>;

/// The tests that `words` of a command line names: a diagnostic's word, directly followed by words of tests that are
/// separated by blanks or quotation marks. Either part may be missing; no test stands for all tests of the diagnostics.
/// Each test comes once, in the order of the words. Throws HostError for a word that nothing bears.
std::vector<ItemId> selectTests(const QString& words, const Aliases& diagnostics, const Aliases& tests);
