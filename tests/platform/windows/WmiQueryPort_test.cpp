// The query port on a scripted source.
#include "platform/windows/WmiQueryPort.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "source/PropertyReaders.h"
#include "tests/support/windows/ReplacedImport.h"
#include "tests/support/windows/SourceStandIn.h"

namespace qv::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using windows::ComPtr;
using windows::Hr;
using windows::WmiQueryPort;

class WmiQueryPortTest : public ::testing::Test {
protected:
    using Objects = std::vector<ComPtr<IWbemClassObject>>;

    static Objects Named(std::vector<std::wstring> names) {
        Objects rows;
        for (std::wstring& name : names) {
            rows.push_back(MakeRow({{L"Name", std::move(name)}}));
        }
        return rows;
    }

    void Script(std::vector<Batch> batches) {
        source.queries[L"SELECT * FROM C"] = {S_OK, std::move(batches)};
    }

    static Status StatusOf(HRESULT result) { return static_cast<Status>(result); }

    Status Run() { return port.RunWqlQuery("root\\wmi", "SELECT * FROM C", rows); }

    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const auto& row : rows) {
            names.push_back(TextOrEmpty(*row, "Name"));
        }
        return names;
    }

    SourceStandIn source;
    WmiQueryPort port;
    platform::Rows rows;
};

TEST_F(WmiQueryPortTest, ConnectsPlainlyToTheNamespace) {
    Run();
    EXPECT_THAT(source.connects.All(), ElementsAre(ConnectCall{L"root\\wmi", true}));
}

TEST_F(WmiQueryPortTest, AsksInWqlForwardOnlyAndWithoutAContext) {
    Run();
    EXPECT_THAT(source.asked.All(),
                ElementsAre(QueryCall{L"root\\wmi", L"WQL", L"SELECT * FROM C", 0x30, false}));
}

TEST_F(WmiQueryPortTest, FetchesTenObjectsWithinTwoSeconds) {
    Run();
    EXPECT_THAT(source.nexts.All(), ElementsAre(NextCall{2000, 10}));
}

TEST_F(WmiQueryPortTest, ConnectsAnewForEachQuery) {
    Run();
    Run();
    EXPECT_EQ(source.connects.All().size(), 2U);
}

/// Returns the system function itself, even if this program's import of it is replaced.
template <typename Function>
Function* SystemFunction(const wchar_t* module, const char* name) {
    return reinterpret_cast<Function*>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(module), name)));
}

/// The number of SysAllocStringLen calls that still succeed; the next one fails.
int allocationsLeft = 0;

BSTR WINAPI AllocateWhileAnyAreLeft(const OLECHAR* text, UINT length) {
    static auto* const allocate =
        SystemFunction<BSTR WINAPI(const OLECHAR*, UINT)>(L"oleaut32.dll", "SysAllocStringLen");
    return allocationsLeft-- == 0 ? nullptr : allocate(text, length);
}

/// Parameter: how many of a query's strings can be allocated (namespace, language, text).
class WmiQueryPortScarceStrings : public WmiQueryPortTest,
                                  public ::testing::WithParamInterface<int> {};

TEST_P(WmiQueryPortScarceStrings, FailAQueryWithoutRaisingAnything) {
    Script({{WBEM_S_FALSE, Named({L"a"})}});
    Run();
    const qv::test::ReplacedImport allocation(GetModuleHandleW(nullptr), "SysAllocStringLen",
                                              &AllocateWhileAnyAreLeft);
    allocationsLeft = GetParam();
    EXPECT_EQ(Run(), Status::outOfMemory);
    EXPECT_THAT(rows, IsEmpty());
    EXPECT_EQ(source.asked.All().size(), 1U);
}

INSTANTIATE_TEST_SUITE_P(EachString, WmiQueryPortScarceStrings, ::testing::Values(0, 1, 2));

/// Set: the next allocation fails.
bool memoryIsShort = false;

void* AllocateUnlessShort(std::size_t size) {
    static auto* const allocate = SystemFunction<void*(std::size_t)>(L"msvcrt.dll", "malloc");
    return std::exchange(memoryIsShort, false) ? nullptr : allocate(size);
}

TEST_F(WmiQueryPortTest, FailsWithoutMemoryForTheRowsAndKeepsNone) {
    Script({{WBEM_S_NO_ERROR, Named({L"a", L"b"})}, {WBEM_S_FALSE, Named({L"c"})}});
    source.afterNext = [this] { memoryIsShort = source.nexts.All().size() == 2; };
    const qv::test::ReplacedImport allocation(GetModuleHandleW(nullptr), "malloc",
                                              &AllocateUnlessShort);
    EXPECT_EQ(Run(), Status::outOfMemory);
    EXPECT_THAT(rows, IsEmpty());
}

TEST_F(WmiQueryPortTest, FailsWithoutALocator) {
    source.created = REGDB_E_CLASSNOTREG;
    EXPECT_EQ(Run(), StatusOf(REGDB_E_CLASSNOTREG));
    EXPECT_THAT(source.connects.All(), IsEmpty());
}

TEST_F(WmiQueryPortTest, FailsWithoutAConnection) {
    source.connected = E_ACCESSDENIED;
    EXPECT_EQ(Run(), StatusOf(E_ACCESSDENIED));
    EXPECT_THAT(source.asked.All(), IsEmpty());
}

TEST_F(WmiQueryPortTest, FailsWhenTheQueryIsRefused) {
    source.queries[L"SELECT * FROM C"].submitted = Hr(WBEM_E_INVALID_QUERY);
    EXPECT_EQ(Run(), StatusOf(Hr(WBEM_E_INVALID_QUERY)));
    EXPECT_THAT(source.nexts.All(), IsEmpty());
}

TEST_F(WmiQueryPortTest, EmptiesTheListWhenItFails) {
    Script({{WBEM_S_FALSE, Named({L"a"})}});
    Run();
    source.connected = E_ACCESSDENIED;
    Run();
    EXPECT_THAT(rows, IsEmpty());
}

TEST_F(WmiQueryPortTest, ReplacesFormerRows) {
    Script({{WBEM_S_FALSE, Named({L"a"})}});
    Run();
    Run();
    EXPECT_THAT(Names(), ElementsAre("a"));
}

TEST_F(WmiQueryPortTest, SucceedsWithoutRows) {
    EXPECT_EQ(Run(), Status::noError);
    EXPECT_THAT(rows, IsEmpty());
}

TEST_F(WmiQueryPortTest, CollectsBatchesInOrder) {
    Script({{WBEM_S_NO_ERROR, Named({L"1", L"2", L"3", L"4", L"5", L"6", L"7", L"8", L"9", L"10"})},
            {WBEM_S_FALSE, Named({L"11", L"12"})},
            {WBEM_S_NO_ERROR, Named({L"too late"})}});
    EXPECT_EQ(Run(), Status::noError);
    EXPECT_THAT(Names(),
                ElementsAre("1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11", "12"));
    EXPECT_EQ(source.nexts.All().size(), 2U);
}

TEST_F(WmiQueryPortTest, WaitsForASlowSourceAndTakesWhatItGave) {
    Script({{WBEM_S_TIMEDOUT, {}},
            {WBEM_S_TIMEDOUT, Named({L"early"})},
            {WBEM_S_TIMEDOUT, {}},
            {WBEM_S_FALSE, Named({L"late"})}});
    EXPECT_EQ(Run(), Status::noError);
    EXPECT_THAT(Names(), ElementsAre("early", "late"));
    EXPECT_EQ(source.nexts.All().size(), 4U);
}

TEST_F(WmiQueryPortTest, LeavesOutTheObjectsOfAnotherSuccessAndGoesOn) {
    Script({{Hr(WBEM_S_PARTIAL_RESULTS), Named({L"dropped"})}, {WBEM_S_FALSE, Named({L"kept"})}});
    EXPECT_EQ(Run(), Status::noError);
    EXPECT_THAT(Names(), ElementsAre("kept"));
}

TEST_F(WmiQueryPortTest, KeepsTheRowsInFrontOfAFailure) {
    Script({{WBEM_S_NO_ERROR, Named({L"a", L"b"})},
            {Hr(WBEM_E_TRANSPORT_FAILURE), {}},
            {WBEM_S_FALSE, Named({L"c"})}});
    EXPECT_EQ(Run(), Status::noError);
    EXPECT_THAT(Names(), ElementsAre("a", "b"));
    EXPECT_EQ(source.nexts.All().size(), 2U);
}

TEST_F(WmiQueryPortTest, ReleasesTheObjectsWithTheRows) {
    const ComPtr<IWbemClassObject> object = MakeRow({});
    Script({{Hr(WBEM_S_PARTIAL_RESULTS), {object}}, {WBEM_S_FALSE, {object}}});
    Run();
    rows.clear();
    source.queries.clear();
    object->AddRef();
    EXPECT_EQ(object->Release(), 1U);
}

}  // namespace
}  // namespace qv::test
