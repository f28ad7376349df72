// The associations of the recorded hosts, held against counts of their source rows and against the
// plain cross product of the endpoints.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <set>

#include "NativeAPI/NativeAPI.h"
#include "SourceTree.h"
#include "catalogue/Associations.h"
#include "catalogue/Catalogue.h"
#include "qvsata/recorded/HostFile.h"
#include "source/PropertyReaders.h"
#include "tests/core/Records.h"
#include "tests/support/RecordedPort.h"

namespace qv {
namespace {

using Counts = std::map<std::string, std::size_t, std::less<>>;

class SilentLog : public platform::LogPort {
public:
    LogLevel Level() const override { return LogLevel::error; }
    void Write(LogLevel, std::string_view) override {}
};

// A recorded host whose own published disks can be asked for.
class PublishingHost : public test::RecordedPort {
public:
    using test::RecordedPort::RecordedPort;

    Status RunWqlQuery(std::string_view nameSpace, std::string_view query,
                       platform::Rows& rows) const override {
        if (query == "SELECT * FROM QV_SATADiskDrive") {
            rows.clear();
            return Status::noError;
        }
        return RecordedPort::RunWqlQuery(nameSpace, query, rows);
    }
};

bool Contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

class RecordedAssociations : public testing::TestWithParam<std::filesystem::path> {
protected:
    RecordList All(std::string_view className) const {
        return api.BuildAllInstances(className, mode::allProperties);
    }

    platform::Rows Rows(const std::string& className) const {
        platform::Rows rows;
        host.RunWqlQuery("root\\CIMv2", "SELECT * FROM " + className, rows);
        return rows;
    }

    std::vector<std::string> Texts(const std::string& className, std::string_view name) const {
        std::vector<std::string> texts;
        for (const auto& row : Rows(className)) {
            texts.push_back(TextOrEmpty(*row, name));
        }
        return texts;
    }

    std::size_t Count(const std::string& className, std::string_view name,
                      std::string_view part) const {
        const auto texts = Texts(className, name);
        return static_cast<std::size_t>(
            std::ranges::count_if(texts, [&](const auto& text) { return Contains(text, part); }));
    }

    // The devices with the other part that links name with a controller with the one part. A device
    // can have several links.
    std::size_t CountLinks(std::string_view controllerPart, std::string_view devicePart) const {
        std::set<std::string> devices;
        for (const auto& link : Rows("Win32_IDEControllerDevice")) {
            const std::string device = TextOrEmpty(*link, "Dependent");
            if (Contains(TextOrEmpty(*link, "Antecedent"), controllerPart) &&
                Contains(device, devicePart)) {
                devices.insert(device);
            }
        }
        return devices.size();
    }

    // The links of an IDE disk, by its plug-and-play ID, whose controller has the part.
    std::size_t CountLinkedDisks(std::string_view controllerPart) const {
        std::size_t count = 0;
        for (const auto& disk : Rows("Win32_DiskDrive")) {
            if (TextOrEmpty(*disk, "InterfaceType") != "IDE") {
                continue;
            }
            std::string doubled;
            for (const char character : TextOrEmpty(*disk, "PNPDeviceID")) {
                doubled.append(character == '\\' ? 2 : 1, character);
            }
            count += CountLinks(controllerPart, "=\"" + doubled + "\"");
        }
        return count;
    }

    // The software identities of a class that are those of a controller, not of a channel.
    std::size_t CountOfControllers(std::string_view className) const {
        const auto ids = test::ValuesOf(All(className), "InstanceID");
        return static_cast<std::size_t>(
            std::ranges::count_if(ids, [](const auto& id) { return Contains(id, "&REV_"); }));
    }

    Counts CountsFromSources() const {
        const std::size_t disks = Count("Win32_DiskDrive", "InterfaceType", "IDE");
        const std::size_t controllers = Count("Win32_IDEController", "DeviceID", "&REV_");
        const std::size_t channels = Count("Win32_IDEController", "PNPDeviceID", "IDECHANNEL");
        return {
            {"QV_WinComputerSystemSATAPortController", controllers},
            {"QV_SATAPortControllerSATALogicalPort", CountLinks("&REV_", "IDECHANNEL")},
            {"QV_SATAPortControllerPhysicalPackageSATAControllerLocation", controllers},
            {"QV_SATAPortControllerProductSATAPortControllerPhysicalPackage", controllers},
            {"QV_SATAPortControllerProductSATAPortController", controllers},
            {"QV_SATAPortControllerPhysicalPackageSATAPortController", controllers},
            {"QV_WinComputerSystemSATAStorageExtent", disks},
            {"QV_WinComputerSystemSATADiskDrive", disks},
            {"QV_WinComputerSystemSATALogicalPort", channels},
            {"QV_SATADiskDriveStorageExtent", disks},
            {"QV_SATADiskPhysicalPackageSATADiskDrive", disks},
            {"QV_SATADiskPhysicalPackageSATADiskLocation", disks},
            {"QV_SATADiskDriveDiskDriveFW", disks},
            {"QV_TSATAProtocolEndpointSATADiskDrive", CountLinkedDisks("")},
            {"QV_SATALogicalPortISATAProtocolEndpoint", channels},
            {"QV_SATAInitiatorTargetLogicalUnitPath", CountLinkedDisks("IDECHANNEL")},
            {"QV_SATAStorageCollectionSATADiskDrive", disks},
            {"QV_SATAHostedCollection", 1},
            {"QV_SATAPortControllerFWSATAPortController",
             CountOfControllers("QV_SATAPortControllerFW")},
            {"QV_SATAPortControllerDriverSATAPortController",
             CountOfControllers("QV_SATAPortControllerDriver")},
            {"QV_SATAPortControllerBIOSSATAPortController",
             CountOfControllers("QV_SATAPortControllerBIOS")},
        };
    }

    // The object paths that the records refer to, one list per record.
    static std::vector<std::vector<std::string>> References(const RecordList& records) {
        std::vector<std::vector<std::string>> references;
        for (const InstanceRecord& record : records) {
            references.emplace_back();
            for (const PropertyEntry& entry : record.properties) {
                if (entry.type == PropertyType::reference) {
                    references.back().push_back(entry.value);
                }
            }
        }
        return references;
    }

    static bool Match(const InstanceRecord& one, const AssociationEnd& end,
                      const InstanceRecord& other, const AssociationEnd& otherEnd, MatchRule rule) {
        return MatchKeyValues(GetPropertyEntry(one, end.key).value,
                              GetPropertyEntry(other, otherEnd.key).value, rule);
    }

    std::vector<std::vector<std::string>> CrossProduct(const Association& association) const {
        std::vector<std::vector<std::string>> references;
        for (const auto& a : All(association.first.className)) {
            for (const auto& b : All(association.second.className)) {
                if (!Match(a, association.first, b, association.second, association.rule)) {
                    continue;
                }
                if (!association.HasThreeEnds()) {
                    references.push_back({BuildObjectPath(a), BuildObjectPath(b)});
                    continue;
                }
                for (const auto& c : All(association.third.className)) {
                    if (Match(b, association.second, c, association.third, association.thirdRule)) {
                        references.push_back(
                            {BuildObjectPath(a), BuildObjectPath(b), BuildObjectPath(c)});
                    }
                }
            }
        }
        return references;
    }

    PublishingHost host{service::ReadHostFile(GetParam())};
    SilentLog log;
    NativeAPI api{PublishedCatalogue(), host, host, log};
};

TEST_P(RecordedAssociations, AreAsManyAsTheSourceRowsSay) {
    Counts counts;
    for (const Association& one : associations) {
        counts.emplace(one.name, All(one.name).size());
    }
    EXPECT_EQ(counts, CountsFromSources());
}

TEST_P(RecordedAssociations, AreThoseOfTheCrossProductInItsOrder) {
    for (const Association& one : associations) {
        EXPECT_EQ(References(All(one.name)), CrossProduct(one)) << one.name;
    }
}

TEST_P(RecordedAssociations, EachIsFoundByItsPath) {
    for (const Association& one : associations) {
        for (const InstanceRecord& record : All(one.name)) {
            EXPECT_EQ(api.BuildInstances(one.name, mode::allProperties, BuildObjectPath(record)),
                      RecordList{record});
        }
    }
}

std::vector<std::filesystem::path> RecordedHosts() {
    std::set<std::filesystem::path> files;
    for (const auto& entry :
         std::filesystem::directory_iterator(std::filesystem::path(QV_SOURCE_DIR) / "hosts")) {
        if (entry.path().extension() == ".json") {
            files.insert(entry.path());
        }
    }
    return {files.begin(), files.end()};
}

INSTANTIATE_TEST_SUITE_P(EveryHost, RecordedAssociations, testing::ValuesIn(RecordedHosts()),
                         [](const auto& host) {
                             std::string name = host.param.stem().string();
                             std::ranges::replace(name, '-', '_');
                             return name;
                         });

}  // namespace
}  // namespace qv
