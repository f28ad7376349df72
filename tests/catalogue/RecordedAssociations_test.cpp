// The associations of the recorded hosts, compared with counts of their source rows and with the
// plain cross product of the endpoints.
#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <map>
#include <set>

#include "SourceTree.h"
#include "catalogue/Associations.h"
#include "source/PropertyReaders.h"
#include "tests/support/ExpectedCatalogue.h"
#include "tests/support/RecordedProvider.h"

namespace qv::test {
namespace {

using Counts = std::map<std::string, std::size_t, std::less<>>;

bool Contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

class RecordedAssociationsTest : public testing::TestWithParam<std::filesystem::path> {
protected:
    RecordList All(std::string_view className) const { return host.All(className); }

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

    // Returns the number of devices with `devicePart` that links connect to a controller with
    // `controllerPart`. A device can have several links.
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

    // Returns the number of IDE disks, by plug-and-play ID, that are linked to a controller with
    // the part.
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

    // Returns the number of software identities of a class that belong to a controller and not to a
    // channel.
    std::size_t CountOfControllers(std::string_view className) const {
        const auto ids = ValuesOf(All(className), "InstanceID");
        return static_cast<std::size_t>(
            std::ranges::count_if(ids, [](const auto& id) { return Contains(id, "&REV_"); }));
    }

    std::size_t CountFromSources(const ExpectedAssociation& association) const {
        switch (association.quantity) {
            case Quantity::disks:
                return Count("Win32_DiskDrive", "InterfaceType", "IDE");
            case Quantity::controllers:
                return Count("Win32_IDEController", "DeviceID", "&REV_");
            case Quantity::channels:
                return Count("Win32_IDEController", "PNPDeviceID", "IDECHANNEL");
            case Quantity::attachedChannels:
                return CountLinks("&REV_", "IDECHANNEL");
            case Quantity::attachedDisks:
                return CountLinkedDisks("");
            case Quantity::disksOnChannels:
                return CountLinkedDisks("IDECHANNEL");
            case Quantity::familiesOfControllers:
                return CountOfControllers(association.ends.front().className);
            default:
                return 1;
        }
    }

    Counts CountsFromSources() const {
        Counts counts;
        for (const ExpectedAssociation& one : ExpectedAssociations()) {
            counts.emplace(one.name, CountFromSources(one));
        }
        return counts;
    }

    // Returns the object paths that the records refer to, one list per record.
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

    RecordList AllAssociations() const {
        RecordList all;
        for (const Association& one : associations) {
            std::ranges::copy(All(one.name), std::back_inserter(all));
        }
        return all;
    }

    Counts PublishedCounts() const {
        Counts counts;
        for (const Association& one : associations) {
            counts.emplace(one.name, All(one.name).size());
        }
        return counts;
    }

    using ReferencesByClass = std::map<std::string, std::vector<std::vector<std::string>>>;

    ReferencesByClass PublishedReferences() const {
        ReferencesByClass references;
        for (const Association& one : associations) {
            references.emplace(one.name, References(All(one.name)));
        }
        return references;
    }

    ReferencesByClass CrossProducts() const {
        ReferencesByClass references;
        for (const Association& one : associations) {
            references.emplace(one.name, CrossProduct(one));
        }
        return references;
    }

    RecordedProvider host{service::ReadHostFile(GetParam())};
};

TEST_P(RecordedAssociationsTest, AreAsManyAsTheSourceRowsSay) {
    EXPECT_EQ(PublishedCounts(), CountsFromSources());
}

TEST_P(RecordedAssociationsTest, AreThoseOfTheCrossProductInItsOrder) {
    EXPECT_EQ(PublishedReferences(), CrossProducts());
}

TEST_P(RecordedAssociationsTest, EachIsFoundByItsPath) {
    EXPECT_THAT(AllAssociations(),
                testing::Each(testing::Truly([this](const InstanceRecord& record) {
                    return host.At(record.className, BuildObjectPath(record)) == RecordList{record};
                })));
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

INSTANTIATE_TEST_SUITE_P(EveryHost, RecordedAssociationsTest, testing::ValuesIn(RecordedHosts()),
                         [](const auto& host) {
                             std::string name = host.param.stem().string();
                             std::ranges::replace(name, '-', '_');
                             return name;
                         });

}  // namespace
}  // namespace qv::test
