#include "source/HostIdentity.h"

#include <utility>

#include "source/PropertyReaders.h"

namespace qv {
namespace {

constexpr std::string_view computerSystemClass = "QV_WinComputerSystem";

platform::QueryResult FindComputerSystemClass(const platform::QueryPort& queries,
                                              platform::Rows& definitions) {
    return queries.RunWqlQuery("root\\QVQ",
                               R"(SELECT * FROM meta_class WHERE __CLASS = "QV_WinComputerSystem")",
                               definitions);
}

}  // namespace

std::string_view GetComputerSystemClassName() {
    return computerSystemClass;
}

std::uint32_t GetHostName(const platform::HostFacts& host, std::string& name) {
    using platform::NameFormat;
    std::uint32_t error = 0;
    for (const NameFormat format :
         {NameFormat::dnsFullyQualified, NameFormat::dnsHostname, NameFormat::netBios}) {
        platform::ComputerName found = host.NameInFormat(format);
        error = found.error;
        if (error == 0) {
            name = std::move(found.name);
            break;
        }
    }
    return error;
}

std::string BuildNamespacePrefix(const platform::QueryPort& queries, std::string_view nameSpace,
                                 std::string_view className) {
    platform::Rows definitions;
    std::string prefix = "\\\\";
    if (FindComputerSystemClass(queries, definitions) == platform::QueryResult::submitted &&
        !definitions.empty()) {
        prefix += TextOrEmpty(*definitions.front(), "__SERVER");
    }
    prefix.append("\\").append(nameSpace).append(":").append(className);
    return prefix;
}

Status BuildComputerSystemPath(const platform::QueryPort& queries, const platform::HostFacts& host,
                               std::string& path) {
    platform::Rows definitions;
    if (FindComputerSystemClass(queries, definitions) == platform::QueryResult::failed ||
        definitions.size() != 1) {
        return Status::failed;
    }
    const std::string classPath = TextOrEmpty(*definitions.front(), "__PATH");
    std::string name;
    if (GetHostName(host, name) != 0) {
        return Status::failed;
    }
    path = classPath;
    path.append(".CreationClassName=\"").append(computerSystemClass).append("\",Name=\"");
    path.append(name).append("\"");
    return Status::noError;
}

}  // namespace qv
