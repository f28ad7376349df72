#include <numeric>
#include <set>
#include <string>
#include <utility>

#include "fuzz/Chooser.h"
#include "qvsata/mof/MofParser.h"
#include "qvsata/mof/MofReader.h"
#include "qvsata/mof/MofText.h"
#include "qvsata/service/StatedInstances.h"

namespace qv::fuzz {
namespace {

using namespace service;

constexpr std::string_view nameSpace = R"(root\default)";

NamespaceClasses ClassesOf(const Namespaces& namespaces) {
    return NamespaceClasses(*namespaces.Find(nameSpace), "SRV", nameSpace);
}

// A set, because reading an instance without a key again adds a duplicate.
std::set<std::string> InstancesAsMof(const Namespaces& namespaces) {
    const NamespaceClasses classes = ClassesOf(namespaces);
    const StatedInstances stated(*namespaces.Find(nameSpace), classes);
    std::set<std::string> texts;
    for (const ResolvedClassPtr& type : classes.Listed()) {
        for (const ObjectPtr& instance : stated.Enumerate(type).objects) {
            texts.insert(ObjectAsMof(*instance));
        }
    }
    return texts;
}

// Classes are written without qualifier flavors, so they are only parsed and not compared.
void CheckClasses(const Namespaces& namespaces) {
    const NamespaceClasses classes = ClassesOf(namespaces);
    for (const ResolvedClassPtr& type : classes.Listed()) {
        const std::string text = ClassAsMof(*type);
        try {
            ParseMof(text, "class.mof");
        } catch (const MofError& error) {
            throw Finding(std::string(error.what()) + " in a class that was written:\n" + text);
        }
    }
}

void CheckInstances(Namespaces namespaces) {
    const std::set<std::string> instances = InstancesAsMof(namespaces);
    const std::string text = std::accumulate(instances.begin(), instances.end(), std::string());
    try {
        ReadMof(text, "instances.mof", namespaces);
    } catch (const MofError& error) {
        throw Finding(std::string(error.what()) + " in instances that were written:\n" + text);
    }
    Require(InstancesAsMof(namespaces) == instances,
            "instances that are written are read as the same:\n" + text);
}

}  // namespace

// A form feed ends a file: the next one changes what is there.
void RunMof(Bytes input) {
    Namespaces namespaces;
    try {
        for (Chooser files(input); !files.AtEnd();) {
            ReadMof(files.Line('\f'), "read.mof", namespaces);
        }
    } catch (const MofError& error) {
        const std::string_view message = error.what();
        Require(message.starts_with("read.mof:") && message.find('\n') == std::string_view::npos,
                "the error is one line that names the file");
        return;
    }
    if (namespaces.Find(nameSpace) != nullptr) {
        CheckClasses(namespaces);
        CheckInstances(std::move(namespaces));
    }
}

}  // namespace qv::fuzz
