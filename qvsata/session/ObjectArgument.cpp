#include "qvsata/session/ObjectArgument.h"

#include <algorithm>

#include "qvsata/cim/ObjectPathParser.h"
#include "qvsata/output/Output.h"
#include "qvsata/session/Options.h"
#include "qvsata/session/OsDisks.h"
#include "qvsata/session/Session.h"
#include "qvsata/view/text/Characters.h"
#include "source/Text.h"

namespace qv::tool {
namespace {

constexpr std::string_view diskClass = "QV_SATADiskDrive";

bool Contains(const std::string& text, const std::string& part) {
    return FoldCase(text).find(FoldCase(part)) != std::string::npos;
}

/// Returns whether the object has a key with that name, or any key, whose value contains the given
/// one.
bool HasKeyLike(const service::ObjectPath& object, const service::PathKey& given) {
    return std::ranges::any_of(object.keys, [&given](const service::PathKey& key) {
        return (given.name.empty() || EqualsIgnoringCase(key.name, given.name)) &&
               Contains(key.value, given.value);
    });
}

/// Returns the relative paths of the instances of the path's class that have all keys that the path
/// gives, or keys that contain them.
std::vector<std::string> FittingPaths(const service::Namespace& nameSpace,
                                      const service::ObjectPath& given) {
    std::vector<std::string> fitting;
    for (const auto& object : nameSpace.Enumerate(given.className).objects) {
        const std::string path = service::TextOf(*object, "__RELPATH");
        const auto parsed = service::ParseObjectPath(path);
        const bool fits = parsed && std::ranges::all_of(given.keys, [&](const auto& key) {
                              return HasKeyLike(*parsed, key);
                          });
        if (fits) {
            fitting.push_back(path);
        }
    }
    return fitting;
}

/// Returns an answer to a request for the object with a path. For a failed one lists on standard
/// error the paths that would fit.
service::Answer WithFittingPaths(const service::Namespace& nameSpace, const std::string& path,
                                 service::Answer answer) {
    const auto parsed = service::ParseObjectPath(path);
    if (Succeeded(answer.status) || !parsed) {
        return answer;
    }
    std::string lines;
    for (const std::string& fitting : FittingPaths(nameSpace, *parsed)) {
        lines += "    " + view::Printable(fitting) + '\n';
    }
    if (!lines.empty()) {
        WriteErrorFitted("paths that would fit:\n" + lines);
    }
    return answer;
}

/// Returns the published disk with a drive number. Throws CommandError if there is none.
service::ObjectPtr PublishedDisk(const service::ProviderHost& host, unsigned number) {
    const std::string name = "disk #" + std::to_string(number);
    const view::OsDisks all = ReadOsDisks(host);
    if (!all.disksAreRead) {
        throw CommandError(name + ": disks not readable");
    }
    const auto disk = std::ranges::find(all.disks, number, &view::OsDisk::number);
    if (disk == all.disks.end()) {
        throw CommandError(name + ": there is no such disk");
    }
    if (!disk->whyUnpublished.empty()) {
        throw CommandError(name + " is not published: " + disk->whyUnpublished);
    }
    const std::string key = EncodeDeviceId(disk->deviceId);
    service::ObjectList published = Take(host.Published().Enumerate(diskClass));
    std::erase_if(published, [&key](const service::ObjectPtr& one) {
        return !EqualsIgnoringCase(service::TextOf(*one, "DeviceID"), key);
    });
    if (published.size() > 1) {
        throw CommandError(name +
                           " has the plug-and-play ID of another disk: no path names it alone");
    }
    if (published.empty()) {
        throw CommandError(name + ": no instance has its ID");
    }
    return published.front();
}

}  // namespace

void AddObjectArgument(CLI::App& command, ObjectArgument& object) {
    CLI::Option* path =
        command.add_option("PATH", object.path, "an object path, its keys in any order");
    CLI::Option* disk =
        command.add_option("--disk", object.disk, "the published disk with this drive number");
    CheckWhole(disk, 0, "N");
    disk->excludes(path);
}

service::Answer NamedObject(const service::ProviderHost& host, const ObjectArgument& object) {
    if (object.disk) {
        return {Status::noError, {}, {PublishedDisk(host, *object.disk)}};
    }
    if (object.path.empty()) {
        throw CLI::ValidationError("give the PATH of an object or --disk N");
    }
    const service::Namespace& nameSpace = host.Published();
    return WithFittingPaths(nameSpace, object.path, nameSpace.GetInAnyOrder(object.path));
}

service::ObjectPath ExistingObject(const service::ProviderHost& host,
                                   const ObjectArgument& object) {
    // Throws for a text that is not a path or names nothing.
    const service::ObjectPtr found = Take(NamedObject(host, object)).front();
    const std::string path = object.disk ? service::TextOf(*found, "__RELPATH") : object.path;
    service::PathError error;
    std::optional<service::ObjectPath> parsed = service::ParseObjectPath(path, &error);
    if (!parsed) {
        throw CommandError("'" + path + "': " + error.reason);
    }
    if (!parsed->NamesInstance()) {
        throw CommandError("'" + path + "' is a class; give the path of an object");
    }
    return *std::move(parsed);
}

void RequireClass(const service::Namespace& nameSpace, const std::string& className) {
    if (!className.empty() && !nameSpace.Classes().Find(className)) {
        throw CommandError("unknown class '" + className + "'");
    }
}

}  // namespace qv::tool
