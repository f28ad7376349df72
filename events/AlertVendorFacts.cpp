#include "events/AlertVendorFacts.h"

#include <algorithm>
#include <array>
#include <span>
#include <string>
#include <type_traits>
#include <variant>

#include "source/Namespaces.h"
#include "source/PropertyReaders.h"
#include "source/Text.h"

namespace qv {
namespace {

/// A property of a source row and the indication's property that copies it. A source text is put as
/// `textType`.
struct Copy {
    std::string_view source;
    std::string_view target;
    PropertyType textType = PropertyType::string;
};

constexpr std::array packageProperties{
    Copy{"SerialNumber", "SystemSerialNumber"},
    Copy{"ProductID", "SystemProductID"},
    Copy{"Model", "SystemModel"},
    Copy{"PlatformGUID", "SystemGUID"},
    Copy{"VirtualSerialNumber", "SystemVirtualSerialNumber"},
    Copy{"VirtualUUID", "SystemVirtualUUID"},
};

constexpr std::array firmwareProperties{Copy{"VersionString", "SystemFirmwareVersion"}};

constexpr std::array enclosureProperties{
    Copy{"Name", "EnclosureName"},
    Copy{"RackName", "RackName"},
    Copy{"RackUID", "RackUID"},
};

constexpr std::array bladeProperties{
    Copy{"Name", "BladeName"},
    Copy{"LocationInformation", "BladeBay"},
    Copy{"ImpactedDomain", "ImpactedDomain"},
};

constexpr std::array metadataProperties{
    Copy{"Description", "Description"},
    Copy{"AlertType", "AlertType"},
    Copy{"OtherAlertType", "OtherAlertType"},
    Copy{"Severity", "PerceivedSeverity"},
    Copy{"OtherSeverity", "OtherSeverity"},
    Copy{"ProbableCause", "ProbableCause"},
    Copy{"ProbableCauseDescription", "ProbableCauseDescription"},
    Copy{"Actions", "RecommendedActions", PropertyType::stringArray},
    Copy{"Summary", "Summary"},
    Copy{"EventCategory", "EventCategory"},
    Copy{"OtherEventCategory", "OtherEventCategory"},
    Copy{"EventSubCategory", "EventSubCategory"},
    Copy{"OtherEventSubCategory", "OtherEventSubCategory"},
};

/// A query of the family's classes and what is copied from its first row.
struct Source {
    std::string_view query;
    std::span<const Copy> copies;
};

/// The copies are from an end of the association that the query lists.
constexpr std::array identitySources{
    Source{"select * from QV_ComputerSystemPackage", packageProperties},
    Source{"select * from QV_SystemROMElementFirmwareIdentity", firmwareProperties},
};

constexpr std::array locationSources{
    Source{"SELECT * FROM QV_BladeEnclosureCS", enclosureProperties},
    Source{"SELECT * FROM QV_BladeCSLocation", bladeProperties},
};

platform::Rows Query(const platform::QueryPort& queries, std::string_view query) {
    platform::Rows rows;
    queries.RunWqlQuery(providerNamespace, query, rows);
    return rows;
}

/// Puts the property if the source has it: a text, number, boolean or list of texts.
Status PutCopy(PropertyTarget& indication, const platform::Row& row, const Copy& copy) {
    const platform::PropertyRead read = row.Get(copy.source);
    return std::visit(
        [&](const auto& value) {
            using T = std::decay_t<decltype(value)>;
            const std::string target(copy.target);
            if constexpr (std::is_same_v<T, std::string>) {
                return indication.Put({target, value, copy.textType, false});
            } else if constexpr (std::is_same_v<T, bool>) {
                return indication.Put(
                    {target, value ? "TRUE" : "FALSE", PropertyType::boolean, false});
            } else if constexpr (std::is_integral_v<T>) {
                return indication.Put({target, std::to_string(value), PropertyType::int32, false});
            } else if constexpr (std::is_same_v<T, std::vector<std::string>>) {
                return indication.Put({target, JoinList(value), PropertyType::stringArray, false});
            } else {
                return Status::noError;
            }
        },
        read.value);
}

Status PutCopies(PropertyTarget& indication, const platform::Row& row,
                 std::span<const Copy> copies) {
    for (const Copy& copy : copies) {
        const Status put = PutCopy(indication, row, copy);
        if (!Succeeded(put)) {
            return put;
        }
    }
    return Status::noError;
}

Status PutCopiesOfFirst(PropertyTarget& indication, const platform::QueryPort& queries,
                        const Source& source) {
    const platform::Rows rows = Query(queries, source.query);
    return rows.empty() ? Status::noError : PutCopies(indication, *rows.front(), source.copies);
}

/// Returns an object path without server and namespace. The colon that ends these precedes any key
/// value.
std::string_view RelativePath(std::string_view path) {
    const std::string_view unquoted = path.substr(0, path.find('"'));
    return path.substr(unquoted.find(':') + 1);
}

/// Returns the object of root\QVQ that an object path names; null if there is none. Ignores the
/// server and the namespace in the path.
std::shared_ptr<const platform::Row> FindReferenced(const platform::QueryPort& queries,
                                                    std::string_view path) {
    const std::string_view relative = RelativePath(path);
    if (relative.empty()) {
        return nullptr;
    }
    const auto className = relative.substr(0, relative.find('.'));
    const platform::Rows rows = Query(queries, "SELECT * FROM " + std::string(className));
    const auto found = std::ranges::find_if(rows, [relative](const auto& row) {
        return EqualsIgnoringCase(TextOrEmpty(*row, "__RELPATH"), relative);
    });
    return found == rows.end() ? nullptr : *found;
}

/// Puts the copies from one end of the association's first row: the first end that has any of the
/// properties.
Status PutCopiesOfEnd(PropertyTarget& indication, const platform::QueryPort& queries,
                      const Source& source) {
    const platform::Rows links = Query(queries, source.query);
    if (links.empty()) {
        return Status::noError;
    }
    for (const char* role : {"Antecedent", "Dependent"}) {
        const auto end = FindReferenced(queries, TextOrEmpty(*links.front(), role));
        const auto isThere = [&end](const Copy& copy) {
            const platform::PropertyRead read = end->Get(copy.source);
            return !std::holds_alternative<std::monostate>(read.value);
        };
        if (end != nullptr && std::ranges::any_of(source.copies, isThere)) {
            return PutCopies(indication, *end, source.copies);
        }
    }
    return Status::noError;
}

/// Puts the copies from each source by `put`, up to the first that the indication refuses.
template <typename Put>
Status PutCopiesOfEach(PropertyTarget& indication, const platform::QueryPort& queries,
                       std::span<const Source> sources, Put put) {
    for (const Source& source : sources) {
        const Status result = put(indication, queries, source);
        if (!Succeeded(result)) {
            return result;
        }
    }
    return Status::noError;
}

bool NamesVersionLibrary(const platform::Row& software) {
    static constexpr std::string_view library = "qvwmiver.dll";
    const platform::Value value = software.Get("IdentityInfoValue").value;
    if (const auto* text = std::get_if<std::string>(&value)) {
        return EqualsIgnoringCase(*text, library);
    }
    const auto* texts = std::get_if<std::vector<std::string>>(&value);
    return texts != nullptr && std::ranges::any_of(*texts, [](const std::string& text) {
               return EqualsIgnoringCase(text, library);
           });
}

}  // namespace

Status PutSystemIdentity(PropertyTarget& indication, const platform::QueryPort& queries) {
    return PutCopiesOfEach(indication, queries, identitySources, PutCopiesOfEnd);
}

Status PutProviderVersion(PropertyTarget& indication, const platform::QueryPort& queries) {
    const platform::Rows software = Query(queries, "select * from QV_SoftwareIdentity");
    const auto found =
        std::ranges::find_if(software, [](const auto& row) { return NamesVersionLibrary(*row); });
    if (found == software.end()) {
        return Status::noError;
    }
    std::string version;
    for (const char* name : {"MajorVersion", "MinorVersion", "RevisionNumber", "BuildNumber"}) {
        std::int32_t number = 0;
        if (!Succeeded(GetIntegerProperty(**found, name, number))) {
            return Status::noError;
        }
        if (!version.empty()) {
            version += '.';
        }
        version += std::to_string(number);
    }
    return indication.Put({"ProviderVersion", version, PropertyType::string, false});
}

Status PutEnclosureLocation(PropertyTarget& indication, const platform::QueryPort& queries) {
    return PutCopiesOfEach(indication, queries, locationSources, PutCopiesOfFirst);
}

Status PutErrorMetadata(PropertyTarget& indication, const platform::QueryPort& queries,
                        std::string_view providerName, std::string_view eventId) {
    if (providerName == "QV MCHealth") {
        return Status::noError;
    }
    // The two blanks before AND are on purpose.
    std::string query = R"(SELECT * FROM QV_ErrorMetadataForAlertIndication WHERE ErrorID1 = ")";
    query.append(providerName).append(R"("  AND ErrorID2 = ")").append(eventId).append("\"");
    return PutCopiesOfFirst(indication, queries, {query, metadataProperties});
}

}  // namespace qv
