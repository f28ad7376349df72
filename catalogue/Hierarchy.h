#pragma once

#include <span>
#include <string_view>

namespace qv {

/// A class of the published model and its superclass. The nodes are constants.
struct ClassNode {
    std::string_view name;
    const ClassNode* parent;  ///< null for the root
};

/// All nodes, each below its superclass.
std::span<const ClassNode> ClassHierarchy();

/// The node of a class, its name taken without regard to case; null when there is none.
const ClassNode* FindClassNode(std::string_view name);

/// Whether `name` is, without regard to case, the name of the node or of one of its ancestors;
/// false for a null node.
bool IsClassOrAncestor(const ClassNode* node, std::string_view name);

}  // namespace qv
