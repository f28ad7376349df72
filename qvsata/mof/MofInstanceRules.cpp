#include "qvsata/mof/MofInstanceRules.h"

#include <algorithm>
#include <array>

#include "source/Text.h"

namespace qv::service {
namespace {

using Refusal = std::optional<InstanceBreach>;

constexpr std::size_t mostKeys = 256;

constexpr std::array<std::string_view, 8> hostingModels{
    "SelfHost",
    "LocalSystemHost",
    "LocalSystemHostOrSelfHost",
    "NetworkServiceHost",
    "NetworkServiceHostOrSelfHost",
    "LocalServiceHost",
    "Decoupled:Com",
    "Decoupled:Com:FoldIdentity(FALSE)",
};

Refusal Keys(const InstanceDefinition& instance, const ClassRepository& classes) {
    const PropertyRefs keys = classes.Keys(instance.className);
    const Qualifier* const singleton = classes.ClassQualifier(instance.className, "singleton");
    if (keys.empty() && singleton == nullptr) {
        return InstanceBreach{"class " + instance.className + " has no key", &mof_status::noKey};
    }
    if (keys.size() > mostKeys) {
        return InstanceBreach{"class " + instance.className + " has more than 256 keys"};
    }
    const auto unset = std::ranges::find_if(keys, [&instance](const PropertyDefinition& key) {
        const CimValue* const value = instance.Find(key.name);
        return value == nullptr || std::holds_alternative<std::monostate>(*value);
    });
    if (unset != keys.end()) {
        return InstanceBreach{"key " + unset->get().name + " has no value",
                              &mof_status::illegalNull};
    }
    return {};
}

/// Returns the hosting model without the name of a host process after it.
std::string_view WithoutHostName(std::string_view model) {
    return model.starts_with("Decoupled:") ? model : model.substr(0, model.find(':'));
}

bool Is(const InstanceDefinition& instance, std::string_view property, const CimValue& value) {
    const CimValue* const stated = instance.Find(property);
    return stated != nullptr && *stated == value;
}

Refusal Provider(const InstanceDefinition& instance, const ClassRepository& classes) {
    if (!classes.IsA(instance.className, "__Win32Provider")) {
        return {};
    }
    const CimValue* const stated = instance.Find("HostingModel");
    const auto* const model = stated == nullptr ? nullptr : std::get_if<std::string>(stated);
    if (model != nullptr && std::ranges::none_of(hostingModels, [model](std::string_view known) {
            return EqualsIgnoringCase(known, WithoutHostName(*model));
        })) {
        return InstanceBreach{"unknown hosting model " + *model,
                              &mof_status::invalidProviderRegistration};
    }
    if (Is(instance, "ImpersonationLevel", std::int64_t{1}) &&
        !Is(instance, "PerUserInitialization", true)) {
        return InstanceBreach{"a provider that impersonates is initialised once for each user"};
    }
    return {};
}

}  // namespace

std::optional<InstanceBreach> FindBreach(const InstanceDefinition& instance,
                                         const ClassRepository& classes) {
    if (Refusal breach = Keys(instance, classes)) {
        return breach;
    }
    return Provider(instance, classes);
}

}  // namespace qv::service
