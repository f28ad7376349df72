// Names of the host that the process's code page, which has no Cyrillic letter, cannot hold.
#include "tests/windows/events/EventTest.h"

namespace qv::test {
namespace {

BOOL WINAPI GiveCyrillicName(COMPUTER_NAME_FORMAT, LPWSTR buffer, LPDWORD length) {
    constexpr std::wstring_view name = L"сервер";
    name.copy(buffer, name.size());
    *length = static_cast<DWORD>(name.size());
    return TRUE;
}

class WideNamesTest : public EventTest {
protected:
    void SetUp() override {
        ASSERT_EQ(GetACP(), 1252U);
        EventTest::SetUp();
        source.rows[LR"(SELECT * FROM meta_class WHERE __CLASS = "QV_WinComputerSystem")"] = {
            {{L"__SERVER", L"СЕРВЕР"}}};
    }

    /// A property of the indication of a new disk.
    std::wstring Indicated(const std::wstring& name) {
        const ReplacedImport reader(library.Module(), "GetComputerNameExW", &GiveCyrillicName);
        Subscribe({{}, {{L"A"}}});
        if (!sink->HasReceived(1)) {
            return L"(no indication)";
        }
        return static_cast<const InstanceStandIn&>(*sink->indications.All().front().Get())
            .Value(name);
    }
};

TEST_F(WideNamesTest, AreWhatAnIndicationSaysOfItsSystem) {
    EXPECT_EQ(Indicated(L"SystemName"), L"сервер");
}

// The key of the disk is that of its record, which is narrow.
TEST_F(WideNamesTest, StandBeforeTheReferenceToTheDisk) {
    EXPECT_EQ(Indicated(L"AlertingManagedElement"),
              L"\\\\СЕРВЕР\\root\\QVQ:QV_SATADiskDrive.CreationClassName=\"QV_SATADiskDrive\","
              L"DeviceID=\"A\",SystemCreationClassName=\"QV_WinComputerSystem\","
              L"SystemName=\"??????\"");
}

// The namespace's name goes through the code page, unlike the server's.
TEST_F(WideNamesTest, AreNotKeptOfTheNamespace) {
    nameSpaceName = L"root\\ДИСКИ";
    EXPECT_THAT(Indicated(L"AlertingManagedElement"),
                ::testing::StartsWith(L"\\\\СЕРВЕР\\root\\?????:QV_SATADiskDrive."));
}

}  // namespace
}  // namespace qv::test
