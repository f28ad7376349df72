#include "qvsata/view/AssociationGraph.h"

#include <algorithm>
#include <array>

#include "qvsata/view/text/Characters.h"
#include "qvsata/view/text/Columns.h"

namespace qv::view {
namespace {

/// Returns the first property that names an object for a reader; its path if it has none.
std::string ShortName(const PublishedObject& object) {
    constexpr std::array<std::string_view, 4> naming{"Model", "ElementName", "Name", "InstanceID"};
    for (const std::string_view property : naming) {
        const std::string text = object.Text(property);
        if (const std::string_view name = Trimmed(text); !name.empty()) {
            return std::string(name);
        }
    }
    return object.path;
}

class Graph {
public:
    void AddInstance(const PublishedObject& object) {
        AddNode(object.Identity(), object.className + '\n' + Printable(ShortName(object)));
    }

    void AddAssociation(const PublishedObject& association) {
        const auto& references = association.references;
        for (std::size_t index = 0; index + 1 < references.size(); ++index) {
            const std::string& from = NodeOf(references[index].second);
            const std::string& to = NodeOf(references[index + 1].second);
            edges_.append("    ").append(from).append(" -> ").append(to);
            edges_.append(" [label=").append(QuotedForGraph(association.className)).append("];\n");
        }
    }

    std::string Text() const {
        return "digraph associations {\n    rankdir=LR;\n    node [shape=box];\n" + nodes_ +
               edges_ + "}\n";
    }

private:
    const std::string& AddNode(const std::string& identity, const std::string& label) {
        const auto [node, isNew] = names_.emplace(identity, "node" + std::to_string(names_.size()));
        if (isNew) {
            nodes_ += "    " + node->second + " [label=" + QuotedForGraph(label) + "];\n";
        }
        return node->second;
    }

    /// Returns the node of a path; creates it for a path that is not an instance.
    const std::string& NodeOf(const std::string& path) {
        return AddNode(IdentityOf(path), Printable(path));
    }

    std::map<std::string, std::string> names_;  ///< nodes by identity
    std::string nodes_;
    std::string edges_;
};

}  // namespace

std::string AssociationGraph(const std::vector<PublishedObject>& objects) {
    Graph graph;
    for (const PublishedObject& object : objects) {
        if (object.references.empty()) {
            graph.AddInstance(object);
        }
    }
    std::ranges::for_each(
        objects, [&graph](const PublishedObject& object) { graph.AddAssociation(object); });
    return graph.Text();
}

std::string QuotedForGraph(std::string_view text) {
    std::string quoted = "\"";
    for (const char character : text) {
        if (character == '\n') {
            quoted += "\\n";
            continue;
        }
        if (character == '"' || character == '\\') {
            quoted += '\\';
        }
        quoted += character;
    }
    return quoted + '"';
}

}  // namespace qv::view
