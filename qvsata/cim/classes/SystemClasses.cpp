#include "qvsata/cim/classes/SystemClasses.h"

#include <array>
#include <string_view>

namespace qv::service {
namespace {

enum class Trait { none, abstract };
enum class Shape { scalar, array, key };

struct SystemClass {
    std::string_view name;
    std::string_view superclass;
    Trait trait;
};

struct SystemClassProperty {
    std::string_view className;
    std::string_view name;
    CimType type;
    Shape shape;
    std::string_view referenceClass = {};
};

constexpr std::array systemClasses{
    SystemClass{"__SystemClass", "", Trait::abstract},
    SystemClass{"__IndicationRelated", "__SystemClass", Trait::abstract},
    SystemClass{"__Event", "__IndicationRelated", Trait::abstract},
    SystemClass{"__ExtrinsicEvent", "__Event", Trait::abstract},
    SystemClass{"__NotifyStatus", "__SystemClass", Trait::abstract},
    SystemClass{"__ExtendedStatus", "__NotifyStatus", Trait::none},
    SystemClass{"__Namespace", "__SystemClass", Trait::none},
    SystemClass{"__Provider", "__SystemClass", Trait::abstract},
    SystemClass{"__Win32Provider", "__Provider", Trait::none},
    SystemClass{"__ProviderRegistration", "__SystemClass", Trait::abstract},
    SystemClass{"__ObjectProviderRegistration", "__ProviderRegistration", Trait::abstract},
    SystemClass{"__InstanceProviderRegistration", "__ObjectProviderRegistration", Trait::none},
    SystemClass{"__EventProviderRegistration", "__ProviderRegistration", Trait::none},
    SystemClass{"__EventFilter", "__IndicationRelated", Trait::none},
    SystemClass{"__EventConsumer", "__IndicationRelated", Trait::abstract},
    SystemClass{"__FilterToConsumerBinding", "__IndicationRelated", Trait::none},
};

constexpr std::array systemProperties{
    SystemClassProperty{"__Event", "SECURITY_DESCRIPTOR", CimType::uint8, Shape::array},
    SystemClassProperty{"__Event", "TIME_CREATED", CimType::uint64, Shape::scalar},

    SystemClassProperty{"__NotifyStatus", "StatusCode", CimType::uint32, Shape::scalar},
    SystemClassProperty{"__ExtendedStatus", "Description", CimType::string, Shape::scalar},
    SystemClassProperty{"__ExtendedStatus", "Operation", CimType::string, Shape::scalar},
    SystemClassProperty{"__ExtendedStatus", "ParameterInfo", CimType::string, Shape::scalar},
    SystemClassProperty{"__ExtendedStatus", "ProviderName", CimType::string, Shape::scalar},

    SystemClassProperty{"__Namespace", "Name", CimType::string, Shape::key},

    SystemClassProperty{"__Provider", "Name", CimType::string, Shape::key},
    SystemClassProperty{"__Win32Provider", "CLSID", CimType::string, Shape::scalar},
    SystemClassProperty{"__Win32Provider", "ClientLoadableCLSID", CimType::string, Shape::scalar},
    SystemClassProperty{"__Win32Provider", "Concurrency", CimType::sint32, Shape::scalar},
    SystemClassProperty{"__Win32Provider", "DefaultMachineName", CimType::string, Shape::scalar},
    SystemClassProperty{"__Win32Provider", "HostingModel", CimType::string, Shape::scalar},
    SystemClassProperty{"__Win32Provider", "ImpersonationLevel", CimType::sint32, Shape::scalar},
    SystemClassProperty{"__Win32Provider", "InitializationReentrancy", CimType::sint32,
                        Shape::scalar},
    SystemClassProperty{"__Win32Provider", "PerLocaleInitialization", CimType::boolean,
                        Shape::scalar},
    SystemClassProperty{"__Win32Provider", "PerUserInitialization", CimType::boolean,
                        Shape::scalar},
    SystemClassProperty{"__Win32Provider", "Pure", CimType::boolean, Shape::scalar},
    SystemClassProperty{"__Win32Provider", "SecurityDescriptor", CimType::string, Shape::scalar},
    SystemClassProperty{"__Win32Provider", "UnloadTimeout", CimType::datetime, Shape::scalar},
    SystemClassProperty{"__Win32Provider", "Version", CimType::uint32, Shape::scalar},

    SystemClassProperty{"__ProviderRegistration", "provider", CimType::reference, Shape::key,
                        "__Provider"},
    SystemClassProperty{"__ObjectProviderRegistration", "InteractionType", CimType::sint32,
                        Shape::scalar},
    SystemClassProperty{"__ObjectProviderRegistration", "QuerySupportLevels", CimType::string,
                        Shape::array},
    SystemClassProperty{"__ObjectProviderRegistration", "SupportsBatching", CimType::boolean,
                        Shape::scalar},
    SystemClassProperty{"__ObjectProviderRegistration", "SupportsDelete", CimType::boolean,
                        Shape::scalar},
    SystemClassProperty{"__ObjectProviderRegistration", "SupportsEnumeration", CimType::boolean,
                        Shape::scalar},
    SystemClassProperty{"__ObjectProviderRegistration", "SupportsGet", CimType::boolean,
                        Shape::scalar},
    SystemClassProperty{"__ObjectProviderRegistration", "SupportsPut", CimType::boolean,
                        Shape::scalar},
    SystemClassProperty{"__ObjectProviderRegistration", "SupportsTransactions", CimType::boolean,
                        Shape::scalar},
    SystemClassProperty{"__EventProviderRegistration", "EventQueryList", CimType::string,
                        Shape::array},

    SystemClassProperty{"__EventFilter", "CreatorSID", CimType::uint8, Shape::array},
    SystemClassProperty{"__EventFilter", "EventAccess", CimType::string, Shape::scalar},
    SystemClassProperty{"__EventFilter", "EventNamespace", CimType::string, Shape::scalar},
    SystemClassProperty{"__EventFilter", "Name", CimType::string, Shape::key},
    SystemClassProperty{"__EventFilter", "Query", CimType::string, Shape::scalar},
    SystemClassProperty{"__EventFilter", "QueryLanguage", CimType::string, Shape::scalar},

    SystemClassProperty{"__EventConsumer", "CreatorSID", CimType::uint8, Shape::array},
    SystemClassProperty{"__EventConsumer", "MachineName", CimType::string, Shape::scalar},
    SystemClassProperty{"__EventConsumer", "MaximumQueueSize", CimType::uint32, Shape::scalar},

    SystemClassProperty{"__FilterToConsumerBinding", "Consumer", CimType::reference, Shape::key,
                        "__EventConsumer"},
    SystemClassProperty{"__FilterToConsumerBinding", "CreatorSID", CimType::uint8, Shape::array},
    SystemClassProperty{"__FilterToConsumerBinding", "DeliverSynchronously", CimType::boolean,
                        Shape::scalar},
    SystemClassProperty{"__FilterToConsumerBinding", "DeliveryQoS", CimType::uint32, Shape::scalar},
    SystemClassProperty{"__FilterToConsumerBinding", "Filter", CimType::reference, Shape::key,
                        "__EventFilter"},
    SystemClassProperty{"__FilterToConsumerBinding", "MaintainSecurityContext", CimType::boolean,
                        Shape::scalar},
    SystemClassProperty{"__FilterToConsumerBinding", "SlowDownProviders", CimType::boolean,
                        Shape::scalar},
};

PropertyDefinition Define(const SystemClassProperty& row) {
    PropertyDefinition property;
    property.name = row.name;
    property.type = row.type;
    property.isArray = row.shape == Shape::array;
    property.isKey = row.shape == Shape::key;
    property.declaringClass = row.className;
    property.referenceClass = row.referenceClass;
    if (property.isKey) {
        property.qualifiers.push_back({"key", true, true, true});
    }
    return property;
}

}  // namespace

std::vector<ClassDefinition> SystemClasses() {
    std::vector<ClassDefinition> classes;
    classes.reserve(systemClasses.size());
    for (const SystemClass& row : systemClasses) {
        ClassDefinition& defined = classes.emplace_back();
        defined.name = row.name;
        defined.superclass = row.superclass;
        if (row.trait == Trait::abstract) {
            defined.qualifiers.push_back({"abstract", true, false, false});
        }
        for (const SystemClassProperty& property : systemProperties) {
            if (property.className == row.name) {
                defined.properties.push_back(Define(property));
            }
        }
    }
    return classes;
}

}  // namespace qv::service
