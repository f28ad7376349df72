// The properties of the indication and their MOF types.
#include "tests/support/ExpectedCatalogue.h"

namespace qv::test {

const std::vector<ExpectedEventProperty>& ExpectedEventProperties() {
    static const std::vector<ExpectedEventProperty> properties{
        {"AlertingManagedElement", "string"},
        {"AlertingElementFormat", "uint16"},
        {"EventTime", "datetime"},
        {"EventID", "string"},
        {"DeviceID", "string"},
        {"DeviceModel", "string"},
        {"ProviderName", "string"},
        {"IndicationIdentifier", "string"},
        {"IndicationTime", "datetime"},
        {"OSVersion", "string"},
        {"OSType", "uint16"},
        {"NetworkAddresses", "string[]"},
        {"SystemSerialNumber", "string"},
        {"SystemProductID", "string"},
        {"SystemModel", "string"},
        {"SystemGUID", "string"},
        {"SystemVirtualSerialNumber", "string"},
        {"SystemVirtualUUID", "string"},
        {"SystemFirmwareVersion", "string"},
        {"SystemCreationClassName", "string"},
        {"SystemName", "string"},
        {"ProviderVersion", "string"},
        {"EnclosureName", "string"},
        {"BladeName", "string"},
        {"BladeBay", "string"},
        {"RackName", "string"},
        {"RackUID", "string"},
        {"ImpactedDomain", "string"},
        {"Description", "string"},
        {"AlertType", "uint16"},
        {"OtherAlertType", "string"},
        {"PerceivedSeverity", "uint16"},
        {"OtherSeverity", "string"},
        {"ProbableCause", "uint16"},
        {"ProbableCauseDescription", "string"},
        {"RecommendedActions", "string[]"},
        {"Summary", "string"},
        {"EventCategory", "uint16"},
        {"OtherEventCategory", "string"},
        {"EventSubCategory", "uint16"},
        {"OtherEventSubCategory", "string"},
    };
    return properties;
}

}  // namespace qv::test
