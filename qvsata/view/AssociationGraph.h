#pragma once

#include <string>
#include <vector>

#include "qvsata/view/PublishedObject.h"

namespace qv::view {

/// A directed graph in Graphviz's language: a node for each instance, labelled with its class and a
/// short name; an edge for each pair of neighbouring references of an association, labelled with
/// the association's class. Objects with references are associations, the others instances; two
/// instances with the same path are one node; an end that is no instance is a node with its path.
std::string AssociationGraph(const std::vector<PublishedObject>& objects);

/// A text between double quotes as Graphviz reads it: quotes and backslashes escaped, line feeds
/// as \n.
std::string QuotedForGraph(std::string_view text);

}  // namespace qv::view
