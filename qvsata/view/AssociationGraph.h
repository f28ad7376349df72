#pragma once

#include <string>
#include <vector>

#include "qvsata/view/PublishedObject.h"

namespace qv::view {

/// Returns a directed graph in Graphviz's language. Each instance is a node, labelled with its
/// class and a short name. Each pair of neighbouring references of an association is an edge,
/// labelled with the association's class. Objects with references are associations, all others
/// instances. Instances with the same path share a node; a reference to anything else is a node
/// labelled with the path.
std::string AssociationGraph(const std::vector<PublishedObject>& objects);

/// Returns a text in double quotes for Graphviz: quotes and backslashes escaped, line feeds as \n.
std::string QuotedForGraph(std::string_view text);

}  // namespace qv::view
