#pragma once

#include <optional>
#include <string>

#include "CLI/CLI.hpp"
#include "qvsata/service/ProviderHost.h"

namespace qv::tool {

/// An object that the command line names: by its path, or a published disk by its drive number.
struct ObjectArgument {
    std::string path;
    std::optional<unsigned> disk;
};

/// Adds PATH and --disk to a command.
void AddObjectArgument(CLI::App& command, ObjectArgument& object);

/// Returns the object or class that the argument names, or the failure to get it by its path. For a
/// failure lists on standard error the paths of the class whose keys contain those that the path
/// gives. Throws CommandError if no published disk has the number, CLI::ParseError without an
/// argument.
service::Answer NamedObject(const service::ProviderHost& host, const ObjectArgument& object);

/// Returns the path of an existing object. Throws CommandError for a path that does not fit or that
/// names no object or a class.
service::ObjectPath ExistingObject(const service::ProviderHost& host, const ObjectArgument& object);

/// Throws CommandError if the namespace lacks a class. An empty name passes.
void RequireClass(const service::Namespace& nameSpace, const std::string& className);

}  // namespace qv::tool
