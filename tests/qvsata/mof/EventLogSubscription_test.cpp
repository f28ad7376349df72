// The subscription that writes the indications into the event log of Windows, as the shipped files
// install and remove it.
#include <gmock/gmock.h>

#include <array>
#include <map>
#include <regex>
#include <set>

#include "qvsata/view/events/DiskEvent.h"
#include "tests/qvsata/mof/ShippedFiles.h"

namespace qv::test {
namespace {

using namespace service;
using testing::IsEmpty;
using testing::IsSubsetOf;
using testing::SizeIs;

const std::vector<std::string> eventIds{"600", "601", "602", "603", "604", "605", "613"};

/// The consumer class as Windows documents it, without the properties that it inherits.
constexpr std::string_view documentedConsumer = R"(
    #pragma namespace("\\\\.\\root\\subscription")
    class NTEventLogEventConsumer : __EventConsumer
    {
        uint16 Category;
        string NameOfRawDataProperty;
        uint32 EventID;
        uint32 EventType = 1;
        string InsertionStringTemplates[] = {""};
        [key] string Name;
        uint32 NumberOfInsertionStrings = 0;
        string NameOfUserSidProperty;
        string SourceName;
        string UNCServerName;
    };)";

Namespaces Subscribed() {
    Namespaces namespaces = Shipped();
    ReadMof(documentedConsumer, "windows.mof", namespaces);
    ReadMofFiles(std::array{ShippedFile("qvwmisata_eventlog.mof")}, namespaces);
    return namespaces;
}

/// The installed instances of root\subscription.
const ClassRepository& Subscription() {
    static const Namespaces namespaces = Subscribed();
    return *namespaces.Find("root\\subscription");
}

/// Returns the values of a property in the instances of a class, by the instances' names.
template <typename Value>
std::map<std::string, Value> ValuesOf(std::string_view className, std::string_view property) {
    std::map<std::string, Value> values;
    for (const InstanceDefinition& instance : Subscription().Instances()) {
        if (instance.className == className) {
            const auto& name = std::get<std::string>(*instance.Find("Name"));
            values[name] = std::get<Value>(*instance.Find(property));
        }
    }
    return values;
}

/// Returns what `valueOf` says of each event, by the names of the event's instances.
template <typename ValueOf>
auto ByEvent(ValueOf valueOf) {
    std::map<std::string, decltype(valueOf(std::string()))> values;
    for (const std::string& eventId : eventIds) {
        values["QVWMISATA_" + eventId] = valueOf(eventId);
    }
    return values;
}

TEST(EventLogSubscription, SelectsTheIndicationsOfOneKindWithEachFilter) {
    EXPECT_EQ(ValuesOf<std::string>("__EventFilter", "Query"),
              ByEvent([](const std::string& eventId) {
                  return "SELECT * FROM QV_SATADeviceIndication WHERE EventID = \"" + eventId + '"';
              }));
    EXPECT_EQ(ValuesOf<std::string>("__EventFilter", "EventNamespace"),
              ByEvent([](const std::string&) { return std::string("root\\QVQ"); }));
}

TEST(EventLogSubscription, WritesEntriesWithTheIdOfTheEvent) {
    EXPECT_EQ(ValuesOf<std::int64_t>("NTEventLogEventConsumer", "EventID"),
              ByEvent([](const std::string& eventId) { return std::int64_t{std::stoi(eventId)}; }));
}

TEST(EventLogSubscription, WritesEntriesOfTheTypeThatTheSeverityOfTheEventHas) {
    const std::map<std::string_view, std::int64_t> types{
        {"critical", 1}, {"warning", 2}, {"information", 4}};
    EXPECT_EQ(ValuesOf<std::int64_t>("NTEventLogEventConsumer", "EventType"),
              ByEvent([&types](const std::string& eventId) {
                  return types.at(view::MeaningOf(eventId).severity);
              }));
}

/// Returns the properties of the event that the texts of the entries name.
std::set<std::string> NamedProperties() {
    static const std::regex named("%([A-Za-z]+)%");
    std::set<std::string> names;
    for (const auto& [name, templates] : ValuesOf<std::vector<std::string>>(
             "NTEventLogEventConsumer", "InsertionStringTemplates")) {
        const std::string& text = templates.front();
        for (std::sregex_iterator match(text.begin(), text.end(), named), end; match != end;
             ++match) {
            names.insert((*match)[1]);
        }
    }
    return names;
}

std::set<std::string> DeclaredProperties() {
    std::set<std::string> names;
    for (const PropertyDefinition& one :
         ShippedRepository().Properties("QV_SATADeviceIndication")) {
        names.insert(one.name);
    }
    return names;
}

TEST(EventLogSubscription, NamesPropertiesOfTheIndicationOnly) {
    EXPECT_THAT(NamedProperties(), SizeIs(4));
    EXPECT_THAT(NamedProperties(), IsSubsetOf(DeclaredProperties()));
}

/// Returns the ends of each binding as "filter - consumer".
std::vector<std::string> Bindings() {
    std::vector<std::string> paths;
    for (const InstanceDefinition& instance : Subscription().Instances()) {
        if (instance.className == "__FilterToConsumerBinding") {
            paths.push_back(std::get<std::string>(*instance.Find("Filter")) + " - " +
                            std::get<std::string>(*instance.Find("Consumer")));
        }
    }
    return paths;
}

std::vector<std::string> ExpectedBindings() {
    std::vector<std::string> paths;
    for (const std::string& eventId : eventIds) {
        const std::string name = ".Name=\"QVWMISATA_" + eventId + '"';
        paths.push_back("__EventFilter" + name + " - NTEventLogEventConsumer" + name);
    }
    return paths;
}

TEST(EventLogSubscription, BindsTheFilterAndTheConsumerOfEachEvent) {
    EXPECT_EQ(Bindings(), ExpectedBindings());
}

TEST(EventLogSubscription, NeedsTheConsumerClassOfWindows) {
    Namespaces namespaces = Shipped();
    EXPECT_THROW(ReadMofFiles(std::array{ShippedFile("qvwmisata_eventlog.mof")}, namespaces),
                 MofError);
}

TEST(EventLogSubscription, IsRemovedWithoutATrace) {
    Namespaces namespaces = Subscribed();
    ReadMofFiles(std::array{ShippedFile("qvwmisata_eventlog_remove.mof")}, namespaces);
    EXPECT_THAT(namespaces.Find("root\\subscription")->Instances(), IsEmpty());
}

TEST(EventLogSubscription, IsRemovedWhereItIsMissing) {
    Namespaces namespaces = Shipped();
    EXPECT_NO_THROW(
        ReadMofFiles(std::array{ShippedFile("qvwmisata_eventlog_remove.mof")}, namespaces));
}

}  // namespace
}  // namespace qv::test
