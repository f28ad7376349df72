#include "qvsata/doctor/NamespaceFacts.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "catalogue/Classes.h"
#include "events/DeviceIndication.h"
#include "qvsata/cim/StatusCodes.h"
#include "qvsata/mof/ShippedMof.h"
#include "qvsata/output/OutputJson.h"
#include "qvsata/view/diff/Differences.h"
#include "source/Text.h"

namespace qv::doctor {
namespace {

using service::Answer;
using service::InstanceDefinition;
using service::Object;
using service::ObjectProperty;
using service::Services;

constexpr std::string_view providerClass = "__Win32Provider";
constexpr std::string_view eventRegistrationClass = "__EventProviderRegistration";
constexpr std::string_view registeredProvider = "provider";
constexpr std::string_view superclassProperty = "__SUPERCLASS";

/// Returns what the installed definition of a class has otherwise than the shipped one; empty if
/// nothing. Inherited properties are those of others.
std::string GapOf(const Object& installed, const Object& shipped, const std::string& name) {
    for (const ObjectProperty& wanted : service::PropertiesOf(shipped)) {
        const auto found = installed.Find(wanted.name);
        if (!wanted.isInherited && !found) {
            return name + '.' + wanted.name + " is missing";
        }
        if (!wanted.isInherited &&
            (found->type != wanted.type || found->isArray != wanted.isArray)) {
            return name + '.' + wanted.name + " has another type";
        }
    }
    const std::string superclass = service::TextOf(installed, superclassProperty);
    const std::string usual = service::TextOf(shipped, superclassProperty);
    return EqualsIgnoringCase(superclass, usual)
               ? ""
               : name + " derives from " + (superclass.empty() ? "no class" : superclass) +
                     ", not from " + usual;
}

std::vector<std::string> ClassGaps(const Services& installed, const Services& shipped) {
    std::vector<std::string> names;
    for (const PublishedClass& one : PublishedClasses()) {
        names.emplace_back(one.name);
    }
    names.emplace_back(deviceIndicationClass);
    std::vector<std::string> gaps;
    for (const std::string& name : names) {
        const Answer wanted = shipped.Get(name);
        const Answer found = installed.Get(name);
        const std::string gap = found.objects.empty()
                                    ? name + ": " + service::StatusText(found.status)
                                    : GapOf(*found.objects.front(), *wanted.objects.front(), name);
        if (!gap.empty()) {
            gaps.push_back(gap);
        }
    }
    return gaps;
}

/// Returns whether the path of a registration's provider names a provider.
bool IsPathOf(const std::string& path, const std::string& provider) {
    return path.ends_with("Name=\"" + provider + '"');
}

/// Returns the registration with which a provider is shipped.
const InstanceDefinition& ShippedRegistration(const std::string& provider,
                                              const service::ClassRepository& shipped) {
    const auto stated = shipped.Instances();
    return *std::ranges::find_if(stated, [&provider](const InstanceDefinition& one) {
        const service::CimValue* const path = one.Find(registeredProvider);
        return path != nullptr && IsPathOf(std::get<std::string>(*path), provider);
    });
}

/// Returns the installed registration of a provider; null if there is none.
service::ObjectPtr InstalledRegistration(const std::string& provider, const std::string& className,
                                         const Services& installed) {
    for (const service::ObjectPtr& one : installed.Enumerate(className).objects) {
        if (IsPathOf(service::TextOf(*one, registeredProvider), provider)) {
            return one;
        }
    }
    return nullptr;
}

/// Returns "NAME is not as shipped" for the first of the properties of which that is true; empty if
/// all are.
std::string WrongProperty(const Object& installed, const InstanceDefinition& shipped,
                          const std::vector<std::string_view>& names) {
    for (const std::string_view name : names) {
        const auto property = installed.Find(name);
        if (!property || property->value != *shipped.Find(name)) {
            return std::string(name) + " is not as shipped";
        }
    }
    return {};
}

ProviderFacts FactsOf(const InstanceDefinition& wanted, const service::ClassRepository& shipped,
                      const Services& installed) {
    ProviderFacts facts;
    facts.name = std::get<std::string>(*wanted.Find("Name"));
    facts.usualHostingModel = std::get<std::string>(*wanted.Find("HostingModel"));
    const InstanceDefinition& registration = ShippedRegistration(facts.name, shipped);
    facts.isEventProvider = registration.className == eventRegistrationClass;
    const service::ObjectPtr registered =
        InstalledRegistration(facts.name, registration.className, installed);
    facts.hasRegistration = registered != nullptr;
    if (registered) {
        facts.wrongProperty = WrongProperty(
            *registered, registration,
            facts.isEventProvider
                ? std::vector<std::string_view>{"EventQueryList"}
                : std::vector<std::string_view>{"SupportsGet", "SupportsEnumeration"});
    }
    const service::ObjectList providers = installed.Enumerate(providerClass).objects;
    const auto found = std::ranges::find_if(providers, [&facts](const service::ObjectPtr& one) {
        return service::TextOf(*one, "Name") == facts.name;
    });
    facts.exists = found != providers.end();
    if (facts.exists) {
        // What would keep the provider from being loaded, or give it another identity.
        const std::string wrong = WrongProperty(
            **found, wanted, {"CLSID", "ImpersonationLevel", "PerUserInitialization"});
        facts.wrongProperty = wrong.empty() ? facts.wrongProperty : wrong;
        facts.hostingModel = service::TextOf(**found, "HostingModel");
    }
    return facts;
}

std::vector<view::Item> ItemsOf(const service::ObjectList& objects) {
    std::vector<view::Item> items;
    for (const service::ObjectPtr& object : objects) {
        items.push_back({service::TextOf(*object, "__RELPATH"), tool::ObjectAsJson(*object)});
    }
    return items;
}

/// Returns the first difference in words; empty if there is none.
std::string FirstOf(const view::Differences& differences) {
    if (!differences.gone.empty()) {
        return differences.gone.front().key + " is not published";
    }
    if (!differences.appeared.empty()) {
        return differences.appeared.front().key + " is published by the installed provider only";
    }
    if (!differences.changed.empty()) {
        const view::ChangedItem& changed = differences.changed.front();
        const view::MemberChange& first = changed.changes.front();
        return changed.now.key + ": " + first.member + " is " + first.now.dump() + ", and " +
               first.before.dump() + " from the hosted library";
    }
    return {};
}

std::string DifferenceOf(const Answer& installed, const Answer& hosted) {
    if (!Succeeded(installed.status)) {
        return service::StatusName(installed.status);
    }
    return FirstOf(view::FindDifferences(ItemsOf(hosted.objects), ItemsOf(installed.objects)));
}

}  // namespace

std::shared_ptr<const service::PublishedClasses> ReadShipped(
    const std::filesystem::path& mofFolder) {
    std::vector<std::filesystem::path> files;
    std::ranges::transform(service::shippedClassFiles, std::back_inserter(files),
                           [&](std::string_view file) { return mofFolder / file; });
    files.push_back(mofFolder / service::shippedRegistrationFile);
    return service::ReadPublishedClasses(files);
}

void ReadNamespace(const Services& installed, const service::PublishedClasses& shipped,
                   Facts& facts) {
    facts.classGaps = ClassGaps(installed, *service::OpenPublished(shipped, {}));
    std::vector<ProviderFacts> providers;
    for (const InstanceDefinition& stated : shipped.repository.Instances()) {
        if (stated.className == providerClass) {
            providers.push_back(FactsOf(stated, shipped.repository, installed));
        }
    }
    facts.providers = providers;
}

AnswerFacts CompareAnswers(const Services& installed, const Services& hosted) {
    AnswerFacts facts;
    for (const PublishedClass& one : PublishedClasses()) {
        const std::string prefix = std::string(one.name) + ": ";
        const Answer own = hosted.Enumerate(one.name);
        if (!Succeeded(own.status)) {
            facts.notCompared.push_back(prefix +
                                        "not compared: " + service::StatusName(own.status));
            continue;
        }
        const Answer answer = installed.Enumerate(one.name);
        facts.isLoaded = facts.isLoaded && answer.status != service::status::providerLoadFailure;
        if (const std::string difference = DifferenceOf(answer, own); !difference.empty()) {
            facts.differences.push_back(prefix + difference);
        }
    }
    return facts;
}

}  // namespace qv::doctor
