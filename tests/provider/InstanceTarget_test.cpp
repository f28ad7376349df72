#include "provider/InstanceTarget.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "platform/windows/WbemStatus.h"
#include "source/FillInstance.h"
#include "tests/support/windows/InstanceStandIn.h"

namespace qv::test {
namespace {

using provider::InstanceTarget;
using provider::ToVariant;
using ::testing::ElementsAre;
using windows::ComPtr;
using windows::Hr;
using windows::MakeObject;
using windows::Variant;

constexpr std::wstring_view prefix = LR"(\\SRV\root\QVQ:)";

struct Conversion {
    const char* name;
    std::uint32_t code;
    std::string text;
    VARTYPE type;
    std::wstring value;
};

std::ostream& operator<<(std::ostream& stream, const Conversion& row) {
    return stream << "type " << row.code << " of '" << row.text << "'";
}

class InstanceTargetToVariant : public ::testing::TestWithParam<Conversion> {};

TEST_P(InstanceTargetToVariant, GivesTypeAndValue) {
    const Conversion& row = GetParam();
    Variant value;
    EXPECT_EQ(ToVariant({"P", row.text, PropertyType{row.code}, false}, prefix, value),
              Hr(WBEM_S_NO_ERROR));
    EXPECT_EQ(V_VT(&value.Get()), row.type);
    EXPECT_EQ(VariantText(value.Get()), row.value);
}

constexpr VARTYPE texts = VT_ARRAY | VT_BSTR;
constexpr VARTYPE numbers = VT_ARRAY | VT_I4;

INSTANTIATE_TEST_SUITE_P(
    Codes, InstanceTargetToVariant,
    ::testing::Values(
        Conversion{"Type0", 0, "text", VT_BSTR, L"text"},
        Conversion{"Type10", 10, "text", VT_BSTR, L"text"},
        Conversion{"Type16", 16, "text", VT_BSTR, L"text"},
        Conversion{"Type16Empty", 16, "", VT_BSTR, L""},
        Conversion{"Type7", 7, "200", VT_UI1, L"200"},
        Conversion{"Type7TruncatedTo8Bits", 7, "257", VT_UI1, L"1"},
        Conversion{"Type7Negative", 7, "-1", VT_UI1, L"255"},
        Conversion{"Type8LeadingDigits", 8, "1A", VT_I4, L"1"},
        Conversion{"Type8WithoutDigits", 8, "abc", VT_I4, L"0"},
        Conversion{"Type8Negative", 8, "-12", VT_I4, L"-12"},
        Conversion{"Type9Largest", 9, "2147483647", VT_I4, L"2147483647"},
        Conversion{"Type9Empty", 9, "", VT_I4, L"0"},
        // True is stored as 1, not as the platform's -1.
        Conversion{"Type11UpperCase", 11, "TRUE", VT_BOOL, L"1"},
        Conversion{"Type11LowerCase", 11, "true", VT_BOOL, L"1"},
        Conversion{"Type11Yes", 11, "yes", VT_BOOL, L"0"},
        Conversion{"Type11One", 11, "1", VT_BOOL, L"0"},
        Conversion{"Type11Empty", 11, "", VT_BOOL, L"0"},
        Conversion{"Type14", 14, "C.K=\"v\"", VT_BSTR, L"\\\\SRV\\root\\QVQ:C.K=\"v\""},
        Conversion{"Type17", 17, "a*-*b", texts, L"|a|b"},
        Conversion{"Type17OneElement", 17, "a", texts, L"|a"},
        Conversion{"Type17EmptyElementAndBlanks", 17, " a *-**-* b ", texts, L"| a || b "},
        Conversion{"Type17Empty", 17, "", VT_NULL, L""},
        Conversion{"Type21", 21, "a*-*b", texts, L"|a|b"},
        Conversion{"Type21Empty", 21, "", VT_NULL, L""},
        Conversion{"Type19", 19, "3*-*10", numbers, L"|3|10"},
        Conversion{"Type19EmptyElement", 19, "2*-**-*5", numbers, L"|2|0|5"},
        Conversion{"Type19WithoutDigits", 19, "x", numbers, L"|0"},
        Conversion{"Type19Empty", 19, "", VT_NULL, L""}),
    [](const auto& row) { return std::string(row.param.name); });

class InstanceTargetUnpublishedType : public ::testing::TestWithParam<std::uint32_t> {};

TEST_P(InstanceTargetUnpublishedType, HasNoValue) {
    Variant value;
    EXPECT_EQ(ToVariant({"P", "1", PropertyType{GetParam()}, false}, prefix, value),
              Hr(WBEM_E_INVALID_CIM_TYPE));
    EXPECT_EQ(V_VT(&value.Get()), VT_EMPTY);
}

INSTANTIATE_TEST_SUITE_P(Codes, InstanceTargetUnpublishedType,
                         ::testing::Values(1, 2, 3, 4, 5, 6, 12, 13, 15, 18, 20, 22, 101, 8200),
                         [](const auto& code) { return "Type" + std::to_string(code.param); });

TEST(InstanceTarget, PutsAPrefixThatTheCodePageLacksBeforeAReferenceInTheCodePage) {
    ASSERT_EQ(GetACP(), 1252U);
    Variant value;
    ToVariant({"P", "C.K=\"b\xFCro\"", PropertyType::reference, false}, LR"(\\СЕРВЕР\root:)",
              value);
    EXPECT_EQ(VariantText(value.Get()), LR"(\\СЕРВЕР\root:C.K="büro")");
}

TEST(InstanceTarget, GivesArraysOfOneDimensionFromZero) {
    Variant value;
    ToVariant({"P", "3*-*10", PropertyType::int32Array, false}, prefix, value);
    SAFEARRAY* array = V_ARRAY(&value.Get());
    LONG lower = -1;
    SafeArrayGetLBound(array, 1, &lower);
    EXPECT_EQ(SafeArrayGetDim(array), 1U);
    EXPECT_EQ(lower, 0);
}

class InstanceTargetTest : public ::testing::Test {
protected:
    HRESULT Fill() {
        InstanceTarget target(*instance.Get(), prefix);
        return windows::ToHresult(FillInstance(target, record));
    }

    InstanceRecord record{"C"};
    ComPtr<InstanceStandIn> instance = MakeObject<InstanceStandIn>();
};

TEST_F(InstanceTargetTest, PutsTheEntriesInTheirOrder) {
    SetKeyReference(record, "Z", "C.K=\"v\"");
    SetProperty(record, "A", "7", PropertyType::int32);
    SetKeyProperty(record, "M", "text");
    EXPECT_EQ(Fill(), Hr(WBEM_S_NO_ERROR));
    EXPECT_THAT(instance->puts,
                ElementsAre(PutCall{L"Z", VT_BSTR, L"\\\\SRV\\root\\QVQ:C.K=\"v\""},
                            PutCall{L"A", VT_I4, L"7"}, PutCall{L"M", VT_BSTR, L"text"}));
}

TEST_F(InstanceTargetTest, PutsARepeatedNameAgain) {
    SetProperty(record, "A", "first");
    SetProperty(record, "A", "last");
    Fill();
    EXPECT_EQ(instance->puts.size(), 2U);
    EXPECT_EQ(instance->Value(L"A"), L"last");
}

TEST_F(InstanceTargetTest, SkipsATypeThatIsNotPublished) {
    SetProperty(record, "A", "1", PropertyType{13});
    SetProperty(record, "B", "2");
    EXPECT_EQ(Fill(), Hr(WBEM_S_NO_ERROR));
    EXPECT_THAT(instance->puts, ElementsAre(PutCall{L"B", VT_BSTR, L"2"}));
}

TEST_F(InstanceTargetTest, SucceedsWhenEveryEntryIsSkipped) {
    SetProperty(record, "A", "1", PropertyType{13});
    EXPECT_EQ(Fill(), Hr(WBEM_S_NO_ERROR));
    EXPECT_TRUE(instance->puts.empty());
}

TEST_F(InstanceTargetTest, SucceedsWhenTheOnlyEntryIsRefused) {
    instance = MakeObject<InstanceStandIn>(std::set<std::wstring>{L"A"});
    SetProperty(record, "A", "1");
    EXPECT_EQ(Fill(), Hr(WBEM_S_NO_ERROR));
    EXPECT_EQ(instance->Value(L"A"), L"(none)");
}

TEST_F(InstanceTargetTest, GoesOnBehindARefusedEntry) {
    instance = MakeObject<InstanceStandIn>(std::set<std::wstring>{L"A"});
    SetProperty(record, "A", "1");
    SetProperty(record, "B", "2");
    Fill();
    EXPECT_EQ(instance->Value(L"B"), L"2");
}

TEST_F(InstanceTargetTest, FailsForARecordWithoutProperties) {
    EXPECT_EQ(Fill(), Hr(WBEM_E_FAILED));
}

}  // namespace
}  // namespace qv::test
