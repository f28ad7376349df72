#include "qvsata/hosting/ProviderSource.h"

#include <gmock/gmock.h>

#include <atomic>

#include "tests/qvsata/hosting/FakeProvider.h"
#include "tests/support/windows/Threads.h"

namespace qv::test {
namespace {

using service::Answer;
using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> Paths(const Answer& answer) {
    std::vector<std::string> paths;
    for (const auto& object : answer.objects) {
        paths.push_back(service::TextOf(*object, "__RELPATH"));
    }
    return paths;
}

/// Delivers one link between the given disk and port.
void IndicateLink(IWbemServices& services, const BSTR className, const wchar_t* disk,
                  const wchar_t* port, IWbemObjectSink* sink) {
    ComPtr<IWbemClassObject> type;
    services.GetObject(className, 0, nullptr, &type, nullptr);
    ComPtr<IWbemClassObject> link;
    type->SpawnInstance(0, &link);
    Variant value;
    link->Put(L"Disk", 0, TextVariant(value, disk), 0);
    link->Put(L"Port", 0, TextVariant(value, port), 0);
    sink->Indicate(1, link.GetAddressOf());
}

TEST(ProviderSource, EnumeratesEachServedSubclassOfASuperclass) {
    const TestNamespace names;
    names.fake->keys = {L"a"};
    EXPECT_THAT(Paths(names.names->Enumerate("t_base")),
                ElementsAre("T_Disk.Key=\"a\"", "T_Port.Key=\"a\""));
}

TEST(ProviderSource, NamesAnUnknownClass) {
    const TestNamespace names;
    const Answer answer = names.names->Enumerate("Nope");
    EXPECT_EQ(answer.status, windows::ToStatus(Hr(WBEM_E_INVALID_CLASS)));
    EXPECT_EQ(answer.message, "unknown class 'Nope'");
}

TEST(ProviderSource, FindsInstancesThatTheMofStates) {
    const TestNamespace names;
    EXPECT_THAT(Paths(names.names->Query("SELECT * FROM T_Stated WHERE Key='there'")),
                ElementsAre("T_Stated.Key=\"there\""));
    EXPECT_THAT(Paths(names.names->Get("T_Stated.Key='there'")),
                ElementsAre("T_Stated.Key=\"there\""));
}

TEST(ProviderSource, FiltersAnEnumerationWhenTheProviderRefusesTheQuery) {
    const TestNamespace names;
    names.fake->keys = {L"a", L"b"};
    EXPECT_THAT(Paths(names.names->Query("SELECT * FROM T_Disk WHERE Key = 'B'")),
                ElementsAre("T_Disk.Key=\"b\""));
}

TEST(ProviderSource, OffersAQueryToTheProviderFirst) {
    const TestNamespace names;
    names.fake->keys = {L"a"};
    std::wstring offered;
    names.fake->query = [&offered](IWbemServices&, const BSTR text, IWbemObjectSink* sink) {
        offered = text;
        return sink->SetStatus(WBEM_STATUS_COMPLETE, S_OK, nullptr, nullptr);
    };
    EXPECT_THAT(names.names->Query("SELECT * FROM T_Disk").objects, IsEmpty());
    EXPECT_EQ(offered, L"SELECT * FROM T_Disk");
}

TEST(ProviderSource, ShowsOnlyWhatAQuerySelects) {
    const TestNamespace names;
    names.fake->keys = {L"a"};
    const Answer answer = names.names->Query("SELECT Number FROM T_Disk");
    ASSERT_EQ(answer.objects.size(), 1U);
    EXPECT_TRUE(answer.objects.front()->Find("Number"));
    EXPECT_FALSE(answer.objects.front()->Find("Key"));
}

TEST(ProviderSource, AnswersQueriesOnClassDefinitions) {
    const TestNamespace names;
    EXPECT_THAT(Paths(names.names->Query("SELECT * FROM meta_class WHERE __CLASS = 't_disk'")),
                ElementsAre("T_Disk"));
}

TEST(ProviderSource, HandsAPathToTheProviderAsItIsWritten) {
    const TestNamespace names;
    std::wstring asked;
    names.fake->get = [&asked](IWbemServices&, const BSTR path, IWbemObjectSink*) {
        asked = path;
        return Hr(WBEM_E_NOT_FOUND);
    };
    EXPECT_EQ(names.names->Get("t_Disk.KEY='x'").status, windows::ToStatus(Hr(WBEM_E_NOT_FOUND)));
    EXPECT_EQ(asked, L"t_Disk.KEY='x'");
}

TEST(ProviderSource, FindsAnInstanceInAnyOrderOfItsKeys) {
    const TestNamespace names;
    names.fake->enumerate = [](IWbemServices& services, const BSTR name, IWbemObjectSink* sink) {
        IndicateLink(services, name, L"\\\\SRV\\root\\QVQ:T_Disk.Key=\"d\"", L"T_Port.Key=\"p\"",
                     sink);
        return sink->SetStatus(WBEM_STATUS_COMPLETE, S_OK, nullptr, nullptr);
    };
    std::wstring asked;
    names.fake->get = [&asked](IWbemServices&, const BSTR path, IWbemObjectSink*) {
        asked = path;
        return Hr(WBEM_E_NOT_FOUND);
    };
    names.names->GetInAnyOrder(R"(T_Link.Port="T_Port.Key='p'",Disk="T_Disk.Key=\"D\"")");
    EXPECT_EQ(asked,
              LR"(T_Link.Disk="\\\\SRV\\root\\QVQ:T_Disk.Key=\"d\"",Port="T_Port.Key=\"p\"")");
}

TEST(ProviderSource, SaysWhatIsWrongWithAPathOrAQuery) {
    const TestNamespace names;
    EXPECT_THAT(names.names->Get("T_Disk.").message, testing::StartsWith("path: position 8: "));
    EXPECT_EQ(names.names->Get("T_Disk.").status,
              windows::ToStatus(Hr(WBEM_E_INVALID_OBJECT_PATH)));
    EXPECT_THAT(names.names->Query("SELEC").message, testing::StartsWith("query: column 1: "));
    EXPECT_EQ(names.names->Query("SELEC").status, windows::ToStatus(Hr(WBEM_E_INVALID_QUERY)));
}

class ProviderSourceTest : public testing::Test {
protected:
    ProviderSourceTest() {
        names_.fake->enumerate = [this](IWbemServices& services, const BSTR name,
                                        IWbemObjectSink* sink) {
            enumerated_.push_back(name);
            if (failing_ == name) {
                return sink->SetStatus(WBEM_STATUS_COMPLETE, Hr(WBEM_E_OUT_OF_MEMORY), nullptr,
                                       nullptr);
            }
            return std::wstring_view(name) == L"T_Link" ? DeliverLinks(services, name, sink)
                                                        : Deliver(services, name, sink);
        };
    }

    /// Delivers one instance with the key "a" of T_Disk, "b" of T_Port.
    static HRESULT Deliver(IWbemServices& services, const BSTR name, IWbemObjectSink* sink) {
        ComPtr<IWbemClassObject> type;
        services.GetObject(name, 0, nullptr, &type, nullptr);
        ComPtr<IWbemClassObject> instance;
        type->SpawnInstance(0, &instance);
        Variant value;
        const bool isDisk = std::wstring_view(name) == L"T_Disk";
        instance->Put(L"Key", 0, TextVariant(value, isDisk ? L"a" : L"b"), 0);
        sink->Indicate(1, instance.GetAddressOf());
        return sink->SetStatus(WBEM_STATUS_COMPLETE, S_OK, nullptr, nullptr);
    }

    std::vector<std::string> Ask(const char* query) { return Paths(names_.names->Query(query)); }

    /// Expects the query to fail as the enumeration of `className`.
    void ExpectFailureOf(const wchar_t* className, const char* query) {
        failing_ = className;
        const Answer answer = names_.names->Query(query);
        EXPECT_EQ(answer.status, windows::ToStatus(Hr(WBEM_E_OUT_OF_MEMORY)));
        EXPECT_THAT(answer.message,
                    testing::StartsWith("enumerating " + windows::ToNarrow(className, CP_UTF8)));
        EXPECT_THAT(answer.objects, IsEmpty());
    }

    /// Delivers the links.
    HRESULT DeliverLinks(IWbemServices& services, const BSTR name, IWbemObjectSink* sink) const {
        for (const auto& [disk, port] : links_) {
            IndicateLink(services, name, disk, port, sink);
        }
        return sink->SetStatus(WBEM_STATUS_COMPLETE, S_OK, nullptr, nullptr);
    }

    /// The ends of the links: their disks and their ports.
    std::vector<std::pair<const wchar_t*, const wchar_t*>> links_{
        {L"\\\\SRV\\root\\QVQ:T_Disk.Key=\"a\"", L"\\\\SRV\\root\\QVQ:T_Port.Key=\"b\""}};
    std::wstring failing_;                  ///< the class whose enumeration fails
    std::vector<std::wstring> enumerated_;  ///< the classes, in the order of their enumerations
    TestNamespace names_;
};

TEST_F(ProviderSourceTest, AssociationsLeadFromEitherEndToTheOther) {
    EXPECT_THAT(Ask("ASSOCIATORS OF {T_Disk.Key='A'}"), ElementsAre("T_Port.Key=\"b\""));
    EXPECT_THAT(Ask("ASSOCIATORS OF {T_Port.Key='b'} WHERE AssocClass=T_Link"),
                ElementsAre("T_Disk.Key=\"a\""));
    EXPECT_THAT(Ask("ASSOCIATORS OF {T_Disk.Key='other'}"), IsEmpty());
}

TEST_F(ProviderSourceTest, AssociationsAreChosenByRoleAndResult) {
    EXPECT_THAT(Ask("ASSOCIATORS OF {T_Disk.Key='a'} WHERE Role=Port"), IsEmpty());
    EXPECT_THAT(Ask("ASSOCIATORS OF {T_Disk.Key='a'} WHERE ResultRole=Port"),
                ElementsAre("T_Port.Key=\"b\""));
    EXPECT_THAT(Ask("ASSOCIATORS OF {T_Disk.Key='a'} WHERE ResultClass=T_Disk"), IsEmpty());
    EXPECT_THAT(Ask("ASSOCIATORS OF {T_Disk.Key='a'} WHERE ClassDefsOnly"), ElementsAre("T_Port"));
}

TEST_F(ProviderSourceTest, AssociationsAreTheReferencesOfTheirEnds) {
    EXPECT_EQ(Ask("REFERENCES OF {T_Disk.Key='a'}").size(), 1U);
    EXPECT_THAT(Ask("REFERENCES OF {T_Disk.Key='a'} WHERE ClassDefsOnly"), ElementsAre("T_Link"));
    EXPECT_THAT(Ask("REFERENCES OF {T_Disk.Key='a'} WHERE Role=Port"), IsEmpty());
}

TEST_F(ProviderSourceTest, AssociationsWithOnePathAreOne) {
    links_ = {{L"T_Disk.Key=\"a\"", L"T_Port.Key=\"b\""},
              {L"T_Disk.Key=\"A\"", L"T_Port.Key=\"b\""},
              {L"T_Disk.Key=\"a\"", L"T_Port.Key=\"c\""}};
    EXPECT_EQ(names_.names->Enumerate("T_Link").objects.size(), 3U);
    EXPECT_THAT(Ask("REFERENCES OF {T_Disk.Key='a'}"),
                ElementsAre(R"(T_Link.Disk="T_Disk.Key=\"a\"",Port="T_Port.Key=\"b\"")",
                            R"(T_Link.Disk="T_Disk.Key=\"a\"",Port="T_Port.Key=\"c\"")"));
    EXPECT_THAT(Ask("ASSOCIATORS OF {T_Port.Key='b'}"), ElementsAre("T_Disk.Key=\"a\""));
}

TEST_F(ProviderSourceTest, AssociationsFailWhenTheirOwnClassOrThatOfANeighbourFails) {
    ExpectFailureOf(L"T_Link", "ASSOCIATORS OF {T_Disk.Key='a'}");
    ExpectFailureOf(L"T_Link", "REFERENCES OF {T_Disk.Key='a'}");
    ExpectFailureOf(L"T_Port", "ASSOCIATORS OF {T_Disk.Key='a'}");
    ExpectFailureOf(L"T_Port", "ASSOCIATORS OF {T_Disk.Key='a'} WHERE ClassDefsOnly");
}

TEST_F(ProviderSourceTest, AssociationsAreFollowedNoFurtherAfterTheFirstFailure) {
    // Two neighbours of one port, of different classes.
    links_ = {{L"T_Disk.Key=\"a\"", L"T_Port.Key=\"b\""},
              {L"T_Port.Key=\"c\"", L"T_Port.Key=\"b\""}};
    failing_ = L"T_Disk";
    EXPECT_EQ(names_.names->Query("ASSOCIATORS OF {T_Port.Key='b'}").status,
              windows::ToStatus(Hr(WBEM_E_OUT_OF_MEMORY)));
    EXPECT_THAT(enumerated_, ElementsAre(L"T_Link", L"T_Disk"));
}

void QueryDisksForPorts(IWbemServices& services, std::wstring_view name) {
    if (name == L"T_Port") {
        ComPtr<IEnumWbemClassObject> disks;
        EXPECT_EQ(services.ExecQuery(Bstr(L"WQL").Get(), Bstr(L"SELECT * FROM T_Disk").Get(), 0,
                                     nullptr, &disks),
                  S_OK);
    }
}

TEST(ProviderSource, LetsTheProviderAskItOnEightThreadsAtOnce) {
    const TestNamespace names;
    // Each request for ports first queries the namespace for the disks.
    names.fake->enumerate = [](IWbemServices& services, const BSTR name, IWbemObjectSink* sink) {
        QueryDisksForPorts(services, name);
        EXPECT_EQ(CoImpersonateClient(), S_OK);
        EXPECT_EQ(CoRevertToSelf(), S_OK);
        return sink->SetStatus(WBEM_STATUS_COMPLETE, S_OK, nullptr, nullptr);
    };
    std::atomic<int> succeeded = 0;
    RunOnThreads(8, [&](int) {
        Repeat(10, [&] {
            succeeded += names.names->Enumerate("T_Port").status == Status::noError ? 1 : 0;
        });
    });
    EXPECT_EQ(succeeded, 80);
}

}  // namespace
}  // namespace qv::test
