#pragma once

#include <span>
#include <string_view>

namespace qv {

/// A class of the published model and its superclass. The nodes are constants.
struct ClassNode {
    std::string_view name;
    const ClassNode* parent;  ///< null for the root
};

/// Returns all nodes, each after its superclass.
std::span<const ClassNode> ClassHierarchy();

/// Returns the node of a class, by name ignoring case; null if there is none.
const ClassNode* FindClassNode(std::string_view name);

/// Returns whether `name` is the name of the node or of one of its ancestors, ignoring case; false
/// for a null node.
bool IsClassOrAncestor(const ClassNode* node, std::string_view name);

}  // namespace qv
