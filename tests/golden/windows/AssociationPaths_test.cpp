// Each association is fetched from the library by its path: as the embedded management service
// passes it, with other server names, and with its keys in another order.
#include <algorithm>

#include "qvsata/cim/ObjectPathParser.h"
#include "tests/golden/GoldenFiles.h"
#include "tests/golden/windows/PublishingHost.h"
#include "tests/support/HostBuilder.h"

namespace qv::test {
namespace {

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

    static std::vector<std::string> PutsOf(const service::Object& object) {
        std::vector<std::string> puts;
        for (const service::PutCall& put : dynamic_cast<const service::Instance&>(object).Puts()) {
            puts.push_back(put.name + " = " + ValueText(put.value));
        }
        return puts;
    }

    /// Expects the path to find the one object with the same puts, ignoring the references' server.
    void ExpectFound(const std::string& path, const service::Object& object) {
        const service::ProviderAnswer answer = host_.Host().Provider().Get(path);
        ASSERT_EQ(answer.Status(), S_OK) << path;
        ASSERT_EQ(answer.objects.size(), 1U) << path;
        EXPECT_EQ(PutsOf(*answer.objects[0]), PutsOf(object)) << path;
    }

    PublishingHost host_{GetParam()};
    std::string server_ = service::ReadHostFile(GetParam()).Computer().server;
};

TEST_P(AssociationPathsTest, OfTwoReferencesLeadToTheAssociationAsTheyAreGiven) {
    for (const std::string& className : ExpectedAssociationNames()) {
        if (className == way) {
            continue;
        }
        for (const auto& object : All(className)) {
            ExpectFound(PathGiven(*object), *object);
        }
    }
}

TEST_P(AssociationPathsTest, OfThreeReferencesLeadToTheAssociationInTheLibrarysOrderOnly) {
    for (const auto& object : All(way)) {
        ExpectFound(PathAsPut(*object), *object);
        const service::ProviderAnswer given = host_.Host().Provider().Get(PathGiven(*object));
        EXPECT_EQ(given.returned, windows::Hr(WBEM_E_NOT_FOUND));
        EXPECT_EQ(given.completions, 0U);
    }
}

TEST_P(AssociationPathsTest, LeadToTheAssociationUnderAnotherServersName) {
    for (const std::string& className : ExpectedAssociationNames()) {
        for (const auto& object : All(className)) {
            const std::string own = PathAsPut(*object);
            for (const char* server : {".", "OTHER"}) {
                const std::string other =
                    Replaced(own, EmbeddedPrefix(server_), EmbeddedPrefix(server));
                EXPECT_NE(other, own);
                ExpectFound(other, *object);
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(ShippedHosts, AssociationPathsTest, testing::ValuesIn(ShippedHosts()),
                         HostName);
INSTANTIATE_TEST_SUITE_P(RealMachines, AssociationPathsTest, testing::ValuesIn(RealMachines()),
                         HostName);

/// A host with one chain of a channel, a disk and its extent, and the object path of the
/// association.
class AssociationPathsOfThreeTest : public testing::Test {
protected:
    static service::RecordedHost OneDisk(const std::string& server) {
        HostBuilder host(server);
        host.Controller(R"(PCI\VEN_8086&DEV_7010&REV_01\3&1)").Channel(R"(PCIIDE\IDECHANNEL\4&1)");
        host.Disk(0, R"(IDE\DISK\5&1)").BehindChannel().Partition();
        return host.Build();
    }

    static std::string PathOfWay(PublishingHost& host) {
        const service::ObjectList ways = host.Published().Enumerate(way).objects;
        return ways.size() == 1 ? PathAsPut(*ways[0]) : "";
    }

    static HRESULT Get(PublishingHost& host, const std::string& path) {
        const service::ProviderAnswer answer = host.Host().Provider().Get(path);
        EXPECT_EQ(answer.objects.size(), SUCCEEDED(answer.returned) ? 1U : 0U);
        EXPECT_EQ(answer.completions, answer.objects.size());
        return answer.returned;
    }
};

TEST_F(AssociationPathsOfThreeTest, IsFoundInOneOrderOfItsThreeReferencesOnly) {
    PublishingHost host(OneDisk("SRV01"));
    auto path = service::ParseObjectPath(PathOfWay(host));
    ASSERT_TRUE(path);
    std::vector<std::string> found;
    std::ranges::sort(path->keys, {}, &service::PathKey::name);
    do {
        const HRESULT status = Get(host, service::FormatObjectPath(*path));
        if (status == S_OK) {
            found.push_back(path->keys[0].name + path->keys[1].name + path->keys[2].name);
        } else {
            EXPECT_EQ(status, windows::Hr(WBEM_E_NOT_FOUND));
        }
    } while (std::ranges::next_permutation(path->keys, {}, &service::PathKey::name).found);
    EXPECT_EQ(found, std::vector<std::string>{"InitiatorTargetLogicalUnit"});
}

TEST_F(AssociationPathsOfThreeTest, IsFoundByAPathOf999CharactersAndNotByALongerOne) {
    PublishingHost host(OneDisk("SRV01"));
    std::string path = PathOfWay(host);
    const std::size_t server = path.find("SRV01");
    ASSERT_LT(path.size(), 999U);
    path.insert(server, 999 - path.size(), 'X');
    EXPECT_EQ(Get(host, path), S_OK);
    path.insert(server, 1, 'X');
    EXPECT_EQ(Get(host, path), windows::Hr(WBEM_E_BUFFER_TOO_SMALL));
}

TEST_F(AssociationPathsOfThreeTest,
       OfAHostWithALongNameIsFoundWithoutServerAndNamespaceInItsReferences) {
    const std::string server(60, 'S');
    PublishingHost host(OneDisk(server));
    const std::string path = PathOfWay(host);
    ASSERT_GT(path.size(), 999U);
    EXPECT_EQ(Get(host, path), windows::Hr(WBEM_E_BUFFER_TOO_SMALL));
    EXPECT_EQ(Get(host, Replaced(path, EmbeddedPrefix(server), "")), S_OK);
}

}  // namespace
}  // namespace qv::test
