#include "qvsata/capture/Related.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "source/Namespaces.h"
#include "source/Text.h"

namespace qv::capture {
namespace {

using namespace service;

/// A class of which only those rows are kept that name a kept row of `others`, or that one of them
/// names.
struct Filter {
    std::string_view className;
    bool isLink;  ///< the row names the others
    std::array<std::string_view, 2> others;
};

/// In the order in which one leads to the next.
constexpr std::array filters{
    Filter{"Win32_PnPDevice", true, {"Win32_IDEController"}},
    Filter{"Win32_PnPEntity", false, {"Win32_PnPDevice", "Win32_IDEControllerDevice"}},
    Filter{"Win32_SystemDriverPNPEntity", true, {"Win32_PnPEntity"}},
    Filter{"Win32_SystemDriver", false, {"Win32_SystemDriverPNPEntity"}},
};

const Filter* FilterOf(std::string_view className) {
    const auto* const found = std::ranges::find_if(filters, [className](const Filter& filter) {
        return EqualsIgnoringCase(filter.className, className);
    });
    return found == filters.end() ? nullptr : found;
}

bool IsKept(const RecordedRow& row, const Filter& filter, const RecordedNamespace& kept) {
    return std::ranges::any_of(filter.others, [&](std::string_view name) {
        const RecordedClass* const others = kept.Find(name);
        if (others == nullptr) {
            return false;
        }
        if (filter.isLink) {
            return std::ranges::any_of(row.References(), [others](const Reference& reference) {
                return others->Find(reference.path) != nullptr;
            });
        }
        ObjectPath path;
        path.className = row.ClassName();
        path.keys = row.Keys();
        return !path.keys.empty() && !others->Referencing(path).empty();
    });
}

void Add(RecordedHost& related, const RecordedNamespace& nameSpace, const RecordedClass& recorded) {
    related.DefineClass(nameSpace.Name(), recorded.Name());
    if (recorded.Failure()) {
        return related.FailClass(nameSpace.Name(), recorded.Name(), *recorded.Failure());
    }
    const Filter* const filter = FilterOf(recorded.Name());
    for (const RecordedRow& row : recorded.Rows()) {
        if (filter != nullptr && !IsKept(row, *filter, *related.FindNamespace(nameSpace.Name()))) {
            continue;
        }
        RowProperties properties = row.Properties();
        std::erase_if(properties, [](const auto& property) {
            return EqualsIgnoringCase(property.first, "Signature");
        });
        related.AddRow(nameSpace.Name(), recorded.Name(), std::move(properties));
    }
}

}  // namespace

RecordedHost Related(const RecordedHost& host) {
    RecordedHost related = host.WithoutRows();
    for (const RecordedNamespace& nameSpace : host.Namespaces()) {
        related.DefineNamespace(nameSpace.Name());
        for (const RecordedClass& recorded : nameSpace.Classes()) {
            if (FilterOf(recorded.Name()) == nullptr) {
                Add(related, nameSpace, recorded);
            }
        }
        for (const Filter& filter : filters) {
            if (const RecordedClass* const recorded = nameSpace.Find(filter.className)) {
                Add(related, nameSpace, *recorded);
            }
        }
    }
    return related;
}

}  // namespace qv::capture
