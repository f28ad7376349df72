#include "fuzz/Oracle.h"
#include "qvsata/cim/ObjectPathParser.h"
#include "qvsata/cim/PathParts.h"
#include "source/EmbeddedPaths.h"
#include "source/Text.h"

namespace qv::fuzz {
namespace {

using namespace service;

bool HasSameParts(const ObjectPath& left, const ObjectPath& right) {
    const auto parts = [](const ObjectPath& path) {
        std::string text = path.nameSpace + '\n' + path.className + (path.singleton ? "\n@" : "");
        for (const PathKey& key : path.keys) {
            text += '\n' + key.name + (key.quoted ? "=\"" : "=") + key.value;
        }
        return text;
    };
    return parts(left) == parts(right);
}

void CheckPath(std::string_view text) {
    const auto cut = CutPath(text);
    Require(!cut || text.ends_with(cut->relative), "the rest of a path that is cut is its end");
    PathError error;
    const auto path = ParseObjectPath(text, &error);
    if (!path) {
        Require(!error.reason.empty() && error.position <= text.size(),
                "a text that is no path has a reason and its place");
        return;
    }
    const auto same = ParseObjectPath(FormatObjectPath(*path, PathForm::full));
    Require(same && HasSameParts(*same, *path), "a path that is written is read as the same");
    Require(NamesSameObject(*path, *same), "it names the same object");
    const auto sorted =
        ParseObjectPath(FormatObjectPath(*path, PathForm::relative, KeyOrder::alphabetical));
    Require(sorted && IdentityOf(*sorted) == IdentityOf(*path),
            "the identity ignores server, namespace and the order of keys");
    Require(cut && EqualsIgnoringCase(cut->className, path->className),
            "a path that is cut has the class of the path that is parsed");
}

// A run without a colon after it is never removed, on purpose: this loop ends when nothing changes.
void CheckReduction(std::string text) {
    std::string before;
    bool found = false;
    do {
        before = text;
        found = ReduceFirstEmbeddedPath(text);
        Require(text.size() < before.size() || text == before,
                "a step shortens or changes nothing");
    } while (found && text != before);
    const std::size_t run = text.find(R"(\\\\)");
    Require(found == (run != std::string::npos), "steps go on while a run is left");
    Require(!found || text.find(':', run) == std::string::npos, "only a run without colon is left");
}

}  // namespace

void RunObjectPath(Bytes input) {
    const std::string_view text = TextOf(input);
    CheckPath(text);
    CheckReduction(std::string(text));
}

}  // namespace qv::fuzz
