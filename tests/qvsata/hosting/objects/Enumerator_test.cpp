#include "qvsata/hosting/objects/Enumerator.h"

#include <gtest/gtest.h>

#include <array>

#include "tests/qvsata/hosting/FakeProvider.h"

namespace qv::test {
namespace {

class EnumeratorTest : public testing::Test {
protected:
    /// Takes up to `count` objects; returns their keys.
    std::string Next(IEnumWbemClassObject& objects, ULONG count, HRESULT expected) {
        std::array<IWbemClassObject*, 4> batch{};
        ULONG returned = 0;
        EXPECT_EQ(objects.Next(0, count, batch.data(), &returned), expected);
        std::string keys;
        for (ULONG index = 0; index < returned; ++index) {
            const ComPtr<IWbemClassObject> object = windows::Adopt(batch[index]);
            keys += ReadText(*object.Get(), "Key");
        }
        return keys;
    }

    ComPtr<IEnumWbemClassObject> Objects() {
        names_.fake->keys = {L"a", L"b", L"c"};
        ComPtr<IEnumWbemClassObject> objects;
        names_.services->CreateInstanceEnum(Bstr(L"T_Disk").Get(), 0, nullptr, &objects);
        return objects;
    }

    TestNamespace names_;
};

TEST_F(EnumeratorTest, SaysFalseWhenFewerThanAskedForAreLeft) {
    const auto objects = Objects();
    EXPECT_EQ(Next(*objects.Get(), 2, S_OK), "ab");
    EXPECT_EQ(Next(*objects.Get(), 2, WBEM_S_FALSE), "c");
    EXPECT_EQ(Next(*objects.Get(), 2, WBEM_S_FALSE), "");
}

TEST_F(EnumeratorTest, StartsAgainAfterReset) {
    const auto objects = Objects();
    Next(*objects.Get(), 3, S_OK);
    EXPECT_EQ(objects->Reset(), S_OK);
    EXPECT_EQ(Next(*objects.Get(), 1, S_OK), "a");
}

TEST_F(EnumeratorTest, SkipsAndClonesWhereItStands) {
    const auto objects = Objects();
    EXPECT_EQ(objects->Skip(0, 1), S_OK);
    ComPtr<IEnumWbemClassObject> copy;
    ASSERT_EQ(objects->Clone(&copy), S_OK);
    EXPECT_EQ(Next(*objects.Get(), 1, S_OK), "b");
    EXPECT_EQ(Next(*copy.Get(), 2, S_OK), "bc");
    EXPECT_EQ(copy->Skip(0, 1), WBEM_S_FALSE);
}

TEST_F(EnumeratorTest, RefusesToGiveObjectsLater) {
    EXPECT_EQ(Objects()->NextAsync(1, nullptr), Hr(WBEM_E_NOT_SUPPORTED));
}

}  // namespace
}  // namespace qv::test
