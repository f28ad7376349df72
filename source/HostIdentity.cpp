#include "source/HostIdentity.h"

#include <utility>

#include "source/Namespaces.h"

namespace qv {
namespace {

constexpr std::string_view computerSystemClass = "QV_WinComputerSystem";

Status FindComputerSystemClass(const platform::QueryPort& queries, platform::Rows& definitions) {
    return queries.RunWqlQuery(providerNamespace,
                               R"(SELECT * FROM meta_class WHERE __CLASS = "QV_WinComputerSystem")",
                               definitions);
}

}  // namespace

std::string_view GetComputerSystemClassName() {
    return computerSystemClass;
}

std::uint32_t GetHostName(const platform::HostFacts& host, std::wstring& name) {
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

std::optional<std::string> HostName(const platform::HostFacts& host) {
    std::wstring name;
    return GetHostName(host, name) == 0 ? std::optional(host.ToNarrow(name)) : std::nullopt;
}

std::wstring BuildNamespacePrefix(const platform::QueryPort& queries, std::wstring_view nameSpace,
                                  std::wstring_view className) {
    platform::Rows definitions;
    std::wstring server;
    if (Succeeded(FindComputerSystemClass(queries, definitions)) && !definitions.empty()) {
        definitions.front()->GetWideText("__SERVER", server);
    }
    std::wstring prefix = L"\\\\";
    prefix.append(server).append(L"\\").append(nameSpace).append(L":").append(className);
    return prefix;
}

Status BuildComputerSystemPath(const platform::QueryPort& queries, const platform::HostFacts& host,
                               std::wstring& path) {
    platform::Rows definitions;
    const Status found = FindComputerSystemClass(queries, definitions);
    if (!Succeeded(found)) {
        return found;
    }
    std::wstring name;
    if (definitions.size() != 1 || GetHostName(host, name) != 0) {
        return Status::failed;
    }
    std::wstring classPath;
    definitions.front()->GetWideText("__PATH", classPath);
    path = classPath.append(L".CreationClassName=\"");
    path.append(computerSystemClass.begin(), computerSystemClass.end());
    path.append(L"\",Name=\"").append(name).append(L"\"");
    return Status::noError;
}

}  // namespace qv
