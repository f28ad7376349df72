// The results of the typed readers for VARIANTs of the management service.
#include "platform/windows/WmiRow.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "platform/windows/Bstr.h"
#include "platform/windows/Variant.h"
#include "platform/windows/WbemStatus.h"
#include "qvsata/hosting/objects/UnsupportedObject.h"
#include "source/PropertyReaders.h"

namespace qv::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using windows::Bstr;
using windows::Hr;
using windows::MakeObject;
using windows::Variant;
using windows::WmiRow;

/// A row with one property "P".
class OneValue : public service::UnsupportedObject {
public:
    explicit OneValue(VARIANT value) { VariantCopy(value_.Receive(), &value); }

    STDMETHODIMP Get(LPCWSTR name, LONG, VARIANT* value, CIMTYPE*, LONG*) override {
        return std::wstring_view(name) == L"P" ? VariantCopy(value, value_.Pass())
                                               : Hr(WBEM_E_NOT_FOUND);
    }

private:
    Variant value_;
};

WmiRow RowOf(const VARIANT& value) {
    return WmiRow(MakeObject<OneValue>(value));
}

/// Returns a VARIANT of the type with these bits; a narrow type uses the lower ones.
VARIANT Bits(VARTYPE type, std::uint32_t bits) {
    VARIANT value{};
    V_VT(&value) = type;
    V_UI4(&value) = bits;
    return value;
}

struct IntegerCase {
    const char* name;
    VARTYPE type;
    std::uint32_t bits;
    std::optional<std::int32_t> number;  ///< empty if the type is refused
};

std::ostream& operator<<(std::ostream& stream, const IntegerCase& row) {
    return stream << "VARTYPE " << row.type << " bits " << row.bits;
}

class WmiRowIntegers : public ::testing::TestWithParam<IntegerCase> {};

TEST_P(WmiRowIntegers, IsByType) {
    const IntegerCase& row = GetParam();
    std::int32_t number = 77;
    EXPECT_EQ(GetIntegerProperty(RowOf(Bits(row.type, row.bits)), "P", number),
              row.number ? Status::noError : Status::failed);
    EXPECT_EQ(number, row.number.value_or(77));
}

INSTANTIATE_TEST_SUITE_P(Types, WmiRowIntegers,
                         ::testing::Values(IntegerCase{"Int16Negative", VT_I2, 0xFFFE, -2},
                                           IntegerCase{"Int16Largest", VT_I2, 0x7FFF, 32767},
                                           IntegerCase{"Int32Negative", VT_I4, 0xFFFFFFFF, -1},
                                           IntegerCase{"Int32", VT_I4, 5, 5},
                                           IntegerCase{"Uint32Largest", VT_UI4, 0xFFFFFFFF, -1},
                                           IntegerCase{"Uint32", VT_UI4, 5, 5},
                                           IntegerCase{"MachineInt", VT_INT, 0xFFFFFFFE, -2},
                                           IntegerCase{"MachineUint", VT_UINT, 0xFFFFFFFE, -2},
                                           IntegerCase{"Int8Negative", VT_I1, 0xFF, -1},
                                           IntegerCase{"Uint8Largest", VT_UI1, 0xFF, 255},
                                           IntegerCase{"Uint16Largest", VT_UI2, 0xFFFF, 65535},
                                           IntegerCase{"Boolean", VT_BOOL, 1, std::nullopt},
                                           IntegerCase{"Real", VT_R4, 1, std::nullopt},
                                           IntegerCase{"Null", VT_NULL, 0, std::nullopt},
                                           IntegerCase{"Empty", VT_EMPTY, 0, std::nullopt},
                                           IntegerCase{"Error", VT_ERROR, 5, std::nullopt},
                                           IntegerCase{"Int64", VT_I8, 0, std::nullopt},
                                           IntegerCase{"Uint64", VT_UI8, 0, std::nullopt},
                                           IntegerCase{"LongReal", VT_R8, 0, std::nullopt},
                                           IntegerCase{"Date", VT_DATE, 0, std::nullopt},
                                           IntegerCase{"Currency", VT_CY, 0, std::nullopt}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(WmiRow, KeepsTheLow16BitsForAUint16) {
    std::uint16_t number = 0;
    EXPECT_EQ(GetUInt16Property(RowOf(Bits(VT_I4, 0x12345)), "P", number), Status::noError);
    EXPECT_EQ(number, 0x2345);
}

TEST(WmiRow, ReadsAnyBooleanButZeroAsTrue) {
    bool flag = false;
    EXPECT_EQ(GetBooleanProperty(RowOf(Bits(VT_BOOL, 0xFFFF)), "P", flag), Status::noError);
    EXPECT_TRUE(flag);
    GetBooleanProperty(RowOf(Bits(VT_BOOL, 0)), "P", flag);
    EXPECT_FALSE(flag);
    GetBooleanProperty(RowOf(Bits(VT_BOOL, 1)), "P", flag);
    EXPECT_TRUE(flag);
}

TEST(WmiRow, ReadsNothingElseAsABoolean) {
    bool flag = true;
    EXPECT_EQ(GetBooleanProperty(RowOf(Bits(VT_I4, 0)), "P", flag), Status::failed);
    EXPECT_EQ(GetBooleanProperty(RowOf(Bits(VT_NULL, 0)), "P", flag), Status::failed);
    EXPECT_TRUE(flag);
}

TEST(WmiRow, ReadsTextOnlyAsText) {
    Variant text;
    V_BSTR(text.Receive()) = Bstr(L"some text").Detach();
    V_VT(text.Pass()) = VT_BSTR;
    std::string read = "before";
    EXPECT_EQ(GetStringProperty(RowOf(Bits(VT_I4, 1)), "P", read), Status::failed);
    EXPECT_EQ(GetStringProperty(RowOf(Bits(VT_NULL, 0)), "P", read), Status::failed);
    EXPECT_EQ(read, "before");
    EXPECT_EQ(GetStringProperty(RowOf(text.Get()), "P", read), Status::noError);
    EXPECT_EQ(read, "some text");
}

TEST(WmiRow, ReadsWideTextThatTheCodePageLacks) {
    ASSERT_EQ(GetACP(), 1252U);
    Variant text;
    V_BSTR(text.Receive()) = Bstr(L"磁盘 büro").Detach();
    V_VT(text.Pass()) = VT_BSTR;
    std::wstring wide;
    EXPECT_EQ(RowOf(text.Get()).GetWideText("P", wide), Status::noError);
    EXPECT_EQ(wide, L"磁盘 büro");
    EXPECT_EQ(TextOrEmpty(RowOf(text.Get()), "P"), "?? b\xFCro");
}

TEST(WmiRow, ReadsTextOnlyAsWideText) {
    std::wstring wide = L"before";
    EXPECT_EQ(RowOf(Bits(VT_I4, 1)).GetWideText("P", wide), Status::failed);
    EXPECT_EQ(RowOf(Bits(VT_NULL, 0)).GetWideText("P", wide), Status::failed);
    EXPECT_EQ(RowOf(Bits(VT_I4, 1)).GetWideText("Q", wide), Status::notFound);
    EXPECT_EQ(wide, L"before");
}

TEST(WmiRow, TakesANullTextForAnEmptyOne) {
    std::string read = "before";
    std::wstring wide = L"before";
    VARIANT value{};
    V_VT(&value) = VT_BSTR;
    EXPECT_EQ(GetStringProperty(RowOf(value), "P", read), Status::noError);
    EXPECT_EQ(RowOf(value).GetWideText("P", wide), Status::noError);
    EXPECT_EQ(read, "");
    EXPECT_EQ(wide, L"");
}

TEST(WmiRow, GivesTheStatusOfAReadThatFails) {
    std::string text;
    std::int32_t number = 0;
    std::uint16_t shortNumber = 0;
    const WmiRow row = RowOf(Bits(VT_I4, 1));
    EXPECT_EQ(GetStringProperty(row, "Q", text), Status::notFound);
    EXPECT_EQ(GetIntegerProperty(row, "Q", number), Status::failed);
    EXPECT_EQ(GetUInt16Property(row, "Q", shortNumber), Status::failed);
}

/// Stores an array of the type that starts at the lower bound.
template <typename Element>
void StoreArray(Variant& value, VARTYPE type, LONG lower, const std::vector<Element>& elements) {
    VARIANT* array = value.Receive();
    V_ARRAY(array) = SafeArrayCreateVector(type, lower, static_cast<ULONG>(elements.size()));
    V_VT(array) = static_cast<VARTYPE>(VT_ARRAY | type);
    for (LONG index = lower; Element element : elements) {
        SafeArrayPutElement(V_ARRAY(array), &index, &element);
        ++index;
    }
}

TEST(WmiRow, ReadsArraysOfWholeNumbersFromTheirLowerBound) {
    Variant value;
    std::vector<std::int32_t> numbers{1};
    StoreArray<std::int32_t>(value, VT_I4, 5, {-1, 2});
    EXPECT_EQ(GetIntegerArrayProperty(RowOf(value.Get()), "P", numbers), Status::noError);
    EXPECT_THAT(numbers, ElementsAre(-1, 2));
    StoreArray<std::uint32_t>(value, VT_UI4, 0, {0xFFFFFFFF});
    EXPECT_EQ(GetIntegerArrayProperty(RowOf(value.Get()), "P", numbers), Status::noError);
    EXPECT_THAT(numbers, ElementsAre(-1));
}

TEST(WmiRow, ExtendsNarrowElementsByZeros) {
    Variant value;
    std::vector<std::int32_t> numbers;
    StoreArray<std::int16_t>(value, VT_I2, 0, {-1, 2});
    EXPECT_EQ(GetIntegerArrayProperty(RowOf(value.Get()), "P", numbers), Status::noError);
    EXPECT_THAT(numbers, ElementsAre(65535, 2));
    StoreArray<std::uint16_t>(value, VT_UI2, 0, {65534});
    EXPECT_EQ(GetIntegerArrayProperty(RowOf(value.Get()), "P", numbers), Status::noError);
    EXPECT_THAT(numbers, ElementsAre(65534));
}

TEST(WmiRow, ReadsAnArrayWithoutElements) {
    Variant value;
    std::vector<std::int32_t> numbers{1};
    StoreArray<std::int32_t>(value, VT_I4, 0, {});
    EXPECT_EQ(GetIntegerArrayProperty(RowOf(value.Get()), "P", numbers), Status::noError);
    EXPECT_THAT(numbers, IsEmpty());
}

TEST(WmiRow, ReadsNoOtherArray) {
    Variant value;
    std::vector<std::int32_t> numbers{1};
    StoreArray<std::uint8_t>(value, VT_UI1, 0, {1});
    EXPECT_EQ(GetIntegerArrayProperty(RowOf(value.Get()), "P", numbers), Status::failed);
    EXPECT_EQ(GetIntegerArrayProperty(RowOf(Bits(VT_I4, 1)), "P", numbers), Status::failed);
    EXPECT_EQ(GetIntegerArrayProperty(RowOf(Bits(VT_NULL, 0)), "P", numbers), Status::failed);
    EXPECT_THAT(numbers, IsEmpty());
}

TEST(WmiRow, ReadsNoArrayOfTwoDimensions) {
    Variant value;
    SAFEARRAYBOUND bounds[] = {{2, 0}, {2, 0}};
    V_ARRAY(value.Receive()) = SafeArrayCreate(VT_I4, 2, bounds);
    V_VT(value.Pass()) = VT_ARRAY | VT_I4;
    std::vector<std::int32_t> numbers;
    EXPECT_EQ(GetIntegerArrayProperty(RowOf(value.Get()), "P", numbers), Status::failed);
}

}  // namespace
}  // namespace qv::test
