// Each association is fetched from the library by its path: as the embedded management service
// passes it, with other server names, and with its keys in another order.
#include <gmock/gmock.h>

#include <algorithm>
#include <iterator>
#include <map>

#include "qvsata/cim/ObjectPathParser.h"
#include "tests/golden/GoldenFiles.h"
#include "tests/golden/windows/PublishingHost.h"
#include "tests/support/HostBuilder.h"

namespace qv::test {
namespace {

using testing::Each;
using testing::Pair;
using testing::ResultOf;
using testing::UnorderedElementsAre;

constexpr std::string_view way = "QV_SATAInitiatorTargetLogicalUnitPath";

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
    for (std::size_t at = text.find(from); at != std::string::npos;
         at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
    }
    return text;
}

/// Returns the path that a client reads from an object: its keys in alphabetical order.
std::string PathGiven(const service::Object& object) {
    return service::TextOf(object, "__RELPATH");
}

/// Returns the path with the keys in the library's order.
std::string PathAsPut(const service::Object& object) {
    return object.PathAsPut().value();
}

/// Returns \\server\root\QVQ: with its backslashes doubled, as inside a key.
std::string EmbeddedPrefix(const std::string& server) {
    return Replaced(NamespacePrefix(server), "\\", "\\\\");
}

class AssociationPathsTest : public testing::TestWithParam<std::filesystem::path> {
protected:
    service::ObjectList All(std::string_view className) {
        const service::Answer answer = host_.Published().Enumerate(className);
        EXPECT_EQ(answer.status, Status::noError) << className;
        return answer.objects;
    }

    service::ObjectList AllAssociations() {
        service::ObjectList all;
        for (const std::string& className : ExpectedAssociationNames()) {
            std::ranges::copy(All(className), std::back_inserter(all));
        }
        return all;
    }

    using Puts = std::vector<std::string>;

    static Puts PutsOf(const service::Object& object) {
        Puts puts;
        for (const service::PutCall& put : dynamic_cast<const service::Instance&>(object).Puts()) {
            puts.push_back(put.name + " = " + ValueText(put.value));
        }
        return puts;
    }

    /// Paths, each with the puts of the one object that it finds.
    using PutsByPath = std::vector<std::pair<std::string, Puts>>;

    /// Returns a path of each object and its puts.
    template <typename PathFunction>
    static PutsByPath Expected(const service::ObjectList& objects, PathFunction pathOf) {
        PutsByPath expected;
        for (const auto& object : objects) {
            expected.emplace_back(pathOf(*object), PutsOf(*object));
        }
        return expected;
    }

    /// Returns the same paths with the puts of the objects that the library finds there.
    PutsByPath Found(PutsByPath expected) {
        for (auto& [path, puts] : expected) {
            const service::ProviderAnswer answer = host_.Host().Provider().Get(path);
            EXPECT_EQ(answer.Status(), S_OK) << path;
            puts = answer.objects.size() == 1 ? PutsOf(*answer.objects[0]) : Puts{};
        }
        return expected;
    }

    /// Returns the path of an object with the references to another server.
    std::string PathOn(const std::string& server, const service::Object& object) const {
        const std::string own = PathAsPut(object);
        std::string other = Replaced(own, EmbeddedPrefix(server_), EmbeddedPrefix(server));
        EXPECT_NE(other, own);
        return other;
    }

    PublishingHost host_{GetParam()};
    std::string server_ = service::ReadHostFile(GetParam()).Computer().server;
};

TEST_P(AssociationPathsTest, OfTwoReferencesLeadToTheAssociationAsTheyAreGiven) {
    service::ObjectList pairs = AllAssociations();
    std::erase_if(pairs, [](const auto& object) { return object->ClassName() == way; });
    const PutsByPath expected = Expected(pairs, PathGiven);
    EXPECT_EQ(Found(expected), expected);
}

TEST_P(AssociationPathsTest, OfThreeReferencesLeadToTheAssociationInTheLibrarysOrderOnly) {
    const service::ObjectList ways = All(way);
    const PutsByPath expected = Expected(ways, PathAsPut);
    EXPECT_EQ(Found(expected), expected);
    const auto returnedAsGiven = [this](const service::ObjectPtr& object) {
        const service::ProviderAnswer given = host_.Host().Provider().Get(PathGiven(*object));
        EXPECT_EQ(given.completions, 0U);
        return given.returned;
    };
    EXPECT_THAT(ways, Each(ResultOf(returnedAsGiven, windows::Hr(WBEM_E_NOT_FOUND))));
}

TEST_P(AssociationPathsTest, LeadToTheAssociationUnderAnotherServersName) {
    const service::ObjectList all = AllAssociations();
    const PutsByPath onDot =
        Expected(all, [this](const service::Object& object) { return PathOn(".", object); });
    EXPECT_EQ(Found(onDot), onDot);
    const PutsByPath onOther =
        Expected(all, [this](const service::Object& object) { return PathOn("OTHER", object); });
    EXPECT_EQ(Found(onOther), onOther);
}

INSTANTIATE_TEST_SUITE_P(ShippedHosts, AssociationPathsTest, testing::ValuesIn(ShippedHosts()),
                         HostName);
INSTANTIATE_TEST_SUITE_P(RealMachines, AssociationPathsTest, testing::ValuesIn(RealMachines()),
                         HostName);

/// A host with one chain of a channel, a disk and its extent.
service::RecordedHost OneDisk(const std::string& server) {
    HostBuilder host(server);
    host.Controller(R"(PCI\VEN_8086&DEV_7010&REV_01\3&1)").Channel(R"(PCIIDE\IDECHANNEL\4&1)");
    host.Disk(0, R"(IDE\DISK\5&1)").BehindChannel().Partition();
    return host.Build();
}

std::string PathOfWay(PublishingHost& host) {
    const service::ObjectList ways = host.Published().Enumerate(way).objects;
    return ways.size() == 1 ? PathAsPut(*ways[0]) : "";
}

HRESULT StatusOf(PublishingHost& host, const std::string& path) {
    const service::ProviderAnswer answer = host.Host().Provider().Get(path);
    EXPECT_EQ(answer.objects.size(), SUCCEEDED(answer.returned) ? 1U : 0U);
    EXPECT_EQ(answer.completions, answer.objects.size());
    return answer.returned;
}

/// Returns the status of the path with its keys in each order.
std::map<std::string, HRESULT> StatusOfEachOrder(PublishingHost& host, service::ObjectPath path) {
    std::map<std::string, HRESULT> statuses;
    std::ranges::sort(path.keys, {}, &service::PathKey::name);
    do {
        statuses[path.keys[0].name + path.keys[1].name + path.keys[2].name] =
            StatusOf(host, service::FormatObjectPath(path));
    } while (std::ranges::next_permutation(path.keys, {}, &service::PathKey::name).found);
    return statuses;
}

TEST(AssociationPaths, OfThreeReferencesAreFoundInOneOrderOnly) {
    PublishingHost host(OneDisk("SRV01"));
    const auto path = service::ParseObjectPath(PathOfWay(host));
    ASSERT_TRUE(path);
    const HRESULT notFound = windows::Hr(WBEM_E_NOT_FOUND);
    EXPECT_THAT(StatusOfEachOrder(host, *path),
                UnorderedElementsAre(Pair("InitiatorTargetLogicalUnit", S_OK),
                                     Pair("InitiatorLogicalUnitTarget", notFound),
                                     Pair("TargetInitiatorLogicalUnit", notFound),
                                     Pair("TargetLogicalUnitInitiator", notFound),
                                     Pair("LogicalUnitInitiatorTarget", notFound),
                                     Pair("LogicalUnitTargetInitiator", notFound)));
}

TEST(AssociationPaths, OfThreeReferencesAreFoundUpTo999CharactersOnly) {
    PublishingHost host(OneDisk("SRV01"));
    std::string path = PathOfWay(host);
    const std::size_t server = path.find("SRV01");
    ASSERT_LT(path.size(), 999U);
    path.insert(server, 999 - path.size(), 'X');
    EXPECT_EQ(StatusOf(host, path), S_OK);
    path.insert(server, 1, 'X');
    EXPECT_EQ(StatusOf(host, path), windows::Hr(WBEM_E_BUFFER_TOO_SMALL));
}

TEST(AssociationPaths, OfAHostWithALongNameAreFoundWithoutServerAndNamespaceInTheReferences) {
    const std::string server(60, 'S');
    PublishingHost host(OneDisk(server));
    const std::string path = PathOfWay(host);
    ASSERT_GT(path.size(), 999U);
    EXPECT_EQ(StatusOf(host, path), windows::Hr(WBEM_E_BUFFER_TOO_SMALL));
    EXPECT_EQ(StatusOf(host, Replaced(path, EmbeddedPrefix(server), "")), S_OK);
}

}  // namespace
}  // namespace qv::test
