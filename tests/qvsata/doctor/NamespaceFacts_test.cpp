// The provider's namespace as a management service has it, against the shipped one.
#include "qvsata/doctor/NamespaceFacts.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <map>

#include "SourceTree.h"
#include "qvsata/cim/Snapshot.h"
#include "qvsata/cim/StatusCodes.h"
#include "qvsata/recorded/HostFile.h"
#include "qvsata/service/PublishedNamespace.h"
#include "qvsata/service/StartProvider.h"
#include "qvsata/service/StatedInstances.h"

namespace qv::test {
namespace {

using namespace doctor;
using service::Answer;
using service::ObjectProperty;
using testing::ElementsAre;
using testing::IsEmpty;

const service::PublishedClasses& Shipped() {
    static const auto shipped = ReadShipped(QV_SOURCE_DIR "/mof");
    return *shipped;
}

/// Returns the instances of a system class that the shipped files state.
Answer Stated(std::string_view className) {
    const service::NamespaceClasses& classes = Shipped().resolved;
    return service::StatedInstances(Shipped().repository, classes)
        .Enumerate(classes.Find(className));
}

/// The namespace of an installation, with answers of its own to some requests.
class InstalledStandIn final : public service::Services {
public:
    explicit InstalledStandIn(const service::Services& usual) : usual_(usual) {}

    std::map<std::string, Answer, std::less<>> answers;  ///< by path or class

    Answer Get(std::string_view path) const override {
        const auto found = answers.find(path);
        return found == answers.end() ? usual_.Get(path) : found->second;
    }
    Answer Enumerate(std::string_view className) const override {
        const auto found = answers.find(className);
        if (found != answers.end()) {
            return found->second;
        }
        return className.starts_with("__") ? Stated(className) : usual_.Enumerate(className);
    }
    Answer Query(std::string_view wql) const override { return usual_.Query(wql); }

private:
    const service::Services& usual_;
};

/// Changes the property of an object.
service::ObjectPtr With(const service::Object& object, const std::string& name,
                        const service::CimValue& value) {
    std::vector<ObjectProperty> properties = service::PropertiesOf(object);
    properties.push_back(*object.Find("__RELPATH"));
    properties.push_back(*object.Find("__CLASS"));
    properties.push_back(*object.Find("__SUPERCLASS"));
    std::ranges::find(properties, name, &ObjectProperty::name)->value = value;
    return std::make_shared<service::Snapshot>(properties);
}

/// The definition of a class without one of its properties.
service::ObjectPtr Without(const service::Object& definition, const std::string& name) {
    std::vector<ObjectProperty> properties = service::PropertiesOf(definition);
    std::erase_if(properties, [&name](const ObjectProperty& one) { return one.name == name; });
    properties.push_back(*definition.Find("__SUPERCLASS"));
    return std::make_shared<service::Snapshot>(properties);
}

class InstalledNamespace : public testing::Test {
protected:
    Facts Read() {
        Facts facts;
        ReadNamespace(installed, Shipped(), facts);
        return facts;
    }
    std::vector<std::string> Gaps() { return std::get<std::vector<std::string>>(Read().classGaps); }
    std::vector<ProviderFacts> Providers() {
        return std::get<std::vector<ProviderFacts>>(Read().providers);
    }

    const std::shared_ptr<service::Namespace> shipped = service::OpenPublished(Shipped(), "SRV");
    InstalledStandIn installed{*shipped};
};

const std::string providerClass = "__Win32Provider";

TEST_F(InstalledNamespace, HasNoGapsIfItIsAsShipped) {
    EXPECT_THAT(Gaps(), IsEmpty());
}

TEST_F(InstalledNamespace, LacksAClass) {
    installed.answers["QV_SATADiskDrive"] = {Status::notFound, "", {}};
    EXPECT_THAT(Gaps(), ElementsAre("QV_SATADiskDrive: not found (0x80041002)"));
}

TEST_F(InstalledNamespace, LacksTheIndication) {
    installed.answers["QV_SATADeviceIndication"] = {Status::notFound, "", {}};
    EXPECT_THAT(Gaps(), ElementsAre("QV_SATADeviceIndication: not found (0x80041002)"));
}

TEST_F(InstalledNamespace, LacksAPropertyOfAClass) {
    const Answer whole = shipped->Get("QV_SATADiskDrive");
    installed.answers["QV_SATADiskDrive"] = {
        Status::noError, "", {Without(*whole.objects.front(), "InterfaceType")}};
    EXPECT_THAT(Gaps(), ElementsAre("QV_SATADiskDrive.InterfaceType is missing"));
}

TEST_F(InstalledNamespace, MayLackAPropertyOfASuperclass) {
    const Answer whole = shipped->Get("QV_SATADiskDrive");
    installed.answers["QV_SATADiskDrive"] = {
        Status::noError, "", {Without(*whole.objects.front(), "InstanceID")}};
    EXPECT_THAT(Gaps(), IsEmpty());
}

TEST_F(InstalledNamespace, DerivesAClassFromAnother) {
    const Answer whole = shipped->Get("QV_SATADiskDrive");
    installed.answers["QV_SATADiskDrive"] = {
        Status::noError, "", {With(*whole.objects.front(), "__SUPERCLASS", "CIM_Other")}};
    EXPECT_THAT(Gaps(), ElementsAre("QV_SATADiskDrive derives from CIM_Other, not from " +
                                    service::TextOf(*whole.objects.front(), "__SUPERCLASS")));
}

TEST_F(InstalledNamespace, DerivesAClassFromNone) {
    const Answer whole = shipped->Get("QV_SATADiskDrive");
    installed.answers["QV_SATADiskDrive"] = {
        Status::noError, "", {With(*whole.objects.front(), "__SUPERCLASS", {})}};
    EXPECT_THAT(Gaps(),
                ElementsAre(testing::StartsWith("QV_SATADiskDrive derives from no class, not ")));
}

TEST_F(InstalledNamespace, HasBothProvidersAsShipped) {
    const std::vector<ProviderFacts> providers = Providers();
    ASSERT_EQ(providers.size(), 2U);
    EXPECT_EQ(providers[0].name, "QVWMISATA_InstProv");
    EXPECT_TRUE(providers[0].exists && providers[0].hasRegistration);
    EXPECT_EQ(providers[0].wrongProperty, "");
    EXPECT_EQ(providers[0].hostingModel, "NetworkServiceHost:QVWMISATA");
    EXPECT_EQ(providers[0].usualHostingModel, "NetworkServiceHost:QVWMISATA");
    EXPECT_FALSE(providers[0].isEventProvider);
    EXPECT_EQ(providers[1].name, "QVWMISATA_EventProv");
    EXPECT_TRUE(providers[1].isEventProvider);
    EXPECT_TRUE(providers[1].exists && providers[1].hasRegistration);
    EXPECT_EQ(providers[1].wrongProperty, "");
}

TEST_F(InstalledNamespace, LacksAProvider) {
    installed.answers[providerClass] = {Status::noError, "", {Stated(providerClass).objects[1]}};
    EXPECT_FALSE(Providers()[0].exists);
    EXPECT_TRUE(Providers()[1].exists);
}

TEST_F(InstalledNamespace, LacksTheRegistrationOfAProvidersInstances) {
    installed.answers["__InstanceProviderRegistration"] = {};
    EXPECT_FALSE(Providers()[0].hasRegistration);
    EXPECT_TRUE(Providers()[1].hasRegistration);
}

TEST_F(InstalledNamespace, RegistersTheEventProviderForInstances) {
    const Answer events = Stated("__EventProviderRegistration");
    installed.answers["__InstanceProviderRegistration"] = events;
    installed.answers["__EventProviderRegistration"] = {};
    EXPECT_FALSE(Providers()[0].hasRegistration);
    EXPECT_FALSE(Providers()[1].hasRegistration);
}

TEST_F(InstalledNamespace, NamesAnotherClassId) {
    const service::ObjectList whole = Stated(providerClass).objects;
    installed.answers[providerClass] = {
        Status::noError, "", {whole[1], With(*whole[0], "CLSID", "{0}")}};
    EXPECT_EQ(Providers()[0].wrongProperty, "CLSID is not as shipped");
}

TEST_F(InstalledNamespace, DoesNotAskTheProviderForOneInstance) {
    const service::ObjectPtr whole = Stated("__InstanceProviderRegistration").objects[0];
    installed.answers["__InstanceProviderRegistration"] = {
        Status::noError, "", {With(*whole, "SupportsGet", false)}};
    EXPECT_EQ(Providers()[0].wrongProperty, "SupportsGet is not as shipped");
    EXPECT_EQ(Providers()[1].wrongProperty, "");
}

TEST_F(InstalledNamespace, AsksTheEventProviderForOtherEvents) {
    const service::ObjectPtr whole = Stated("__EventProviderRegistration").objects[0];
    installed.answers["__EventProviderRegistration"] = {
        Status::noError,
        "",
        {With(*whole, "EventQueryList", std::vector<std::string>{"SELECT * FROM QV_Other"})}};
    EXPECT_EQ(Providers()[0].wrongProperty, "");
    EXPECT_EQ(Providers()[1].wrongProperty, "EventQueryList is not as shipped");
}

TEST_F(InstalledNamespace, HostsAProviderUnderAnotherAccount) {
    const service::ObjectList whole = Stated(providerClass).objects;
    installed.answers[providerClass] = {
        Status::noError, "", {whole[1], With(*whole[0], "HostingModel", "SelfHost")}};
    EXPECT_EQ(Providers()[0].hostingModel, "SelfHost");
    EXPECT_EQ(Providers()[0].wrongProperty, "");
}

/// The provider on a recorded host, and an installed one that answers alike unless told otherwise.
class InstalledAnswers : public testing::Test {
protected:
    static std::unique_ptr<service::ProviderHost> Start() {
        service::HostOptions options;
        options.classes = ReadShipped(QV_SOURCE_DIR "/mof");
        options.recorded = std::make_shared<const service::RecordedHost>(
            service::ReadHostFile(std::string(QV_SOURCE_DIR "/hosts/ahci-desktop.json")));
        return service::StartProvider(options);
    }
    AnswerFacts Compared() { return CompareAnswers(installed, host->Published()); }
    std::vector<std::string> Differences() { return Compared().differences; }

    const std::unique_ptr<service::ProviderHost> host = Start();
    const service::ObjectList disks = host->Published().Enumerate("QV_SATADiskDrive").objects;
    InstalledStandIn installed{host->Published()};
};

TEST_F(InstalledAnswers, DoNotDiffer) {
    EXPECT_THAT(Differences(), IsEmpty());
}

TEST_F(InstalledAnswers, AreAFailure) {
    installed.answers["QV_SATADiskDrive"] = {service::status::providerLoadFailure, "", {}};
    EXPECT_THAT(Differences(),
                ElementsAre("QV_SATADiskDrive: WBEM_E_PROVIDER_LOAD_FAILURE (0x80041013)"));
}

TEST_F(InstalledAnswers, TellOfAnUnloadedProvider) {
    installed.answers["QV_SATADiskDrive"] = {service::status::providerLoadFailure, "", {}};
    EXPECT_FALSE(Compared().isLoaded);
}

TEST_F(InstalledAnswers, TellOfALoadedProviderIfTheyAreAnotherFailure) {
    installed.answers["QV_SATADiskDrive"] = {service::status::accessDenied, "", {}};
    EXPECT_TRUE(Compared().isLoaded);
}

TEST_F(InstalledAnswers, AreNotComparedWithAFailureOfTheHostedLibrary) {
    InstalledStandIn hosted{host->Published()};
    hosted.answers["QV_SATADiskDrive"] = {service::status::providerFailure, "", {}};
    const AnswerFacts facts = CompareAnswers(installed, hosted);
    EXPECT_THAT(facts.differences, IsEmpty());
    EXPECT_THAT(
        facts.notCompared,
        ElementsAre("QV_SATADiskDrive: not compared: WBEM_E_PROVIDER_FAILURE (0x80041004)"));
}

TEST_F(InstalledAnswers, LackAnInstance) {
    installed.answers["QV_SATADiskDrive"] = {Status::noError, "", {disks[0], disks[1]}};
    EXPECT_THAT(Differences(),
                ElementsAre("QV_SATADiskDrive: " + service::TextOf(*disks[2], "__RELPATH") +
                            " is not published"));
}

TEST_F(InstalledAnswers, HaveAnotherValue) {
    const service::ObjectPtr other = With(*disks[0], "Model", "Other");
    installed.answers["QV_SATADiskDrive"] = {Status::noError, "", {other, disks[1], disks[2]}};
    EXPECT_THAT(Differences(),
                ElementsAre("QV_SATADiskDrive: " + service::TextOf(*disks[0], "__RELPATH") +
                            ": Model is \"Other\", and \"" + service::TextOf(*disks[0], "Model") +
                            "\" from the hosted library"));
}

}  // namespace
}  // namespace qv::test
