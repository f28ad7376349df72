// Host names that the process's code page, which has no Cyrillic letter, cannot represent.
#include "tests/provider/EventTest.h"
#include "tests/support/windows/CyrillicComputerName.h"

namespace qv::test {
namespace {

class EventProviderWideNamesTest : public EventTest {
protected:
    void SetUp() override {
        ASSERT_EQ(GetACP(), 1252U);
        EventTest::SetUp();
        source.Answer(LR"(SELECT * FROM meta_class WHERE __CLASS = "QV_WinComputerSystem")",
                      {{{L"__SERVER", L"СЕРВЕР"}}});
    }

    /// Returns a property of the indication of a new disk.
    std::wstring Indicated(const std::wstring& name) {
        const CyrillicComputerName cyrillic(library.Module());
        Subscribe({{}, {{L"A"}}});
        if (!sink->HasReceived(1)) {
            return L"(no indication)";
        }
        return sink->Instance(0).Value(name);
    }
};

TEST_F(EventProviderWideNamesTest, AreWhatAnIndicationSaysOfItsSystem) {
    EXPECT_EQ(Indicated(L"SystemName"), L"сервер");
}

// The disk's key is that of its record, which is narrow.
TEST_F(EventProviderWideNamesTest, StandBeforeTheReferenceToTheDisk) {
    EXPECT_EQ(Indicated(L"AlertingManagedElement"),
              L"\\\\СЕРВЕР\\root\\QVQ:QV_SATADiskDrive.CreationClassName=\"QV_SATADiskDrive\","
              L"DeviceID=\"A\",SystemCreationClassName=\"QV_WinComputerSystem\","
              L"SystemName=\"??????\"");
}

// The namespace's name goes through the code page, unlike the server's.
TEST_F(EventProviderWideNamesTest, AreNotKeptOfTheNamespace) {
    nameSpaceName = L"root\\ДИСКИ";
    EXPECT_THAT(Indicated(L"AlertingManagedElement"),
                ::testing::StartsWith(L"\\\\СЕРВЕР\\root\\?????:QV_SATADiskDrive."));
}

}  // namespace
}  // namespace qv::test
