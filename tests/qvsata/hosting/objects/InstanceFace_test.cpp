#include "qvsata/hosting/objects/InstanceFace.h"

#include <gtest/gtest.h>

#include "tests/qvsata/hosting/FakeProvider.h"

namespace qv::test {
namespace {

using service::CimValue;

class InstanceFaceTest : public testing::Test {
protected:
    HRESULT Do(const wchar_t* name, VARIANT value) {
        const HRESULT result = object_->Put(name, 0, &value, 0);
        VariantClear(&value);
        return result;
    }
    CimValue Stored(const char* name) { return ReadProperty(*object_.Get(), name).value().value; }

    static VARIANT Number(VARTYPE type, LONGLONG number) {
        VARIANT value;
        V_VT(&value) = type;
        V_I8(&value) = number;
        return value;
    }
    static VARIANT Text(const wchar_t* text) {
        VARIANT value;
        V_VT(&value) = VT_BSTR;
        V_BSTR(&value) = SysAllocString(text);
        return value;
    }
    static VARIANT Real(double number) {
        VARIANT value;
        V_VT(&value) = VT_R8;
        V_R8(&value) = number;
        return value;
    }
    template <typename Element>
    static VARIANT Array(VARTYPE type, std::vector<Element> elements) {
        VARIANT value;
        V_VT(&value) = static_cast<VARTYPE>(VT_ARRAY | type);
        V_ARRAY(&value) = SafeArrayCreateVector(type, 0, static_cast<ULONG>(elements.size()));
        std::ranges::copy(elements, static_cast<Element*>(V_ARRAY(&value)->pvData));
        return value;
    }

    TestNamespace names_;
    ComPtr<IWbemClassObject> object_ = names_.Spawn(L"T_Types");
};

TEST_F(InstanceFaceTest, StoresTheDocumentedTypeOfEveryCimType) {
    EXPECT_EQ(Do(L"Text", Text(L"a\u00e9")), Hr(WBEM_S_NO_ERROR));
    EXPECT_EQ(Do(L"U8", Number(VT_UI1, 200)), Hr(WBEM_S_NO_ERROR));
    EXPECT_EQ(Do(L"U16", Number(VT_I4, 65535)), Hr(WBEM_S_NO_ERROR));
    EXPECT_EQ(Do(L"U32", Number(VT_I4, -1)), Hr(WBEM_S_NO_ERROR));
    EXPECT_EQ(Do(L"U64", Text(L"18446744073709551615")), Hr(WBEM_S_NO_ERROR));
    EXPECT_EQ(Do(L"S8", Number(VT_I2, -128)), Hr(WBEM_S_NO_ERROR));
    EXPECT_EQ(Do(L"S64", Text(L"-5")), Hr(WBEM_S_NO_ERROR));
    EXPECT_EQ(Do(L"Flag", Number(VT_BOOL, VARIANT_TRUE)), Hr(WBEM_S_NO_ERROR));
    EXPECT_EQ(Do(L"When", Text(L"20240131235959.000000+060")), Hr(WBEM_S_NO_ERROR));

    EXPECT_EQ(Stored("Text"), CimValue("a\xC3\xA9"));
    EXPECT_EQ(Stored("U8"), CimValue(std::int64_t{200}));
    EXPECT_EQ(Stored("U16"), CimValue(std::int64_t{65535}));
    EXPECT_EQ(Stored("U32"), CimValue(std::int64_t{4294967295}));
    EXPECT_EQ(Stored("U64"), CimValue("18446744073709551615"));
    EXPECT_EQ(Stored("S8"), CimValue(std::int64_t{-128}));
    EXPECT_EQ(Stored("Flag"), CimValue(true));
}

TEST_F(InstanceFaceTest, ConvertsByTheOrdinaryRules) {
    EXPECT_EQ(Do(L"U16", Text(L"4")), Hr(WBEM_S_NO_ERROR));
    EXPECT_EQ(Do(L"U32", Real(12)), Hr(WBEM_S_NO_ERROR));
    EXPECT_EQ(Do(L"U64", Number(VT_I4, 17)), Hr(WBEM_S_NO_ERROR));
    EXPECT_EQ(Stored("U16"), CimValue(std::int64_t{4}));
    EXPECT_EQ(Stored("U32"), CimValue(std::int64_t{12}));
    EXPECT_EQ(Stored("U64"), CimValue("17"));
}

TEST_F(InstanceFaceTest, RefusesWhatCannotBecomeThePropertysType) {
    EXPECT_EQ(Do(L"U32", Text(L"")), Hr(WBEM_E_TYPE_MISMATCH));
    EXPECT_EQ(Do(L"U32", Text(L"abc")), Hr(WBEM_E_TYPE_MISMATCH));
    EXPECT_EQ(Do(L"U64", Text(L"0x10")), Hr(WBEM_E_TYPE_MISMATCH));
    EXPECT_EQ(Do(L"When", Text(L"yesterday")), Hr(WBEM_E_TYPE_MISMATCH));
    EXPECT_EQ(Do(L"U16", Number(VT_I4, 65536)), Hr(WBEM_E_TYPE_MISMATCH));
    EXPECT_EQ(Do(L"U16", Number(VT_I4, -1)), Hr(WBEM_E_TYPE_MISMATCH));
    EXPECT_EQ(Do(L"U8", Number(VT_I4, 256)), Hr(WBEM_E_TYPE_MISMATCH));
}

TEST_F(InstanceFaceTest, DoesNotWidenWholeNumbers) {
    EXPECT_EQ(Do(L"U32", Number(VT_I2, 3)), Hr(WBEM_E_TYPE_MISMATCH));
    EXPECT_EQ(Do(L"U16", Number(VT_UI1, 3)), Hr(WBEM_E_TYPE_MISMATCH));
}

TEST_F(InstanceFaceTest, StoresArraysOfTheRightElementsOnly) {
    EXPECT_EQ(Do(L"U16s", Array<LONG>(VT_I4, {3, 4})), Hr(WBEM_S_NO_ERROR));
    EXPECT_EQ(Do(L"U32s", Array<double>(VT_R8, {1, 2})), Hr(WBEM_E_TYPE_MISMATCH));
    EXPECT_EQ(Do(L"U16s", Number(VT_I4, 3)), Hr(WBEM_E_TYPE_MISMATCH));
    EXPECT_EQ(Do(L"U16", Array<LONG>(VT_I4, {3})), Hr(WBEM_E_TYPE_MISMATCH));
    EXPECT_EQ(Stored("U16s"), CimValue(std::vector<std::int64_t>{3, 4}));
}

TEST_F(InstanceFaceTest, TakesAnEmptyArrayOfVariantsForAnyArray) {
    EXPECT_EQ(Do(L"Texts", Array<VARIANT>(VT_VARIANT, {})), Hr(WBEM_S_NO_ERROR));
    EXPECT_EQ(Stored("Texts"), CimValue(std::vector<std::string>{}));
}

TEST_F(InstanceFaceTest, MakesAPropertyNull) {
    Do(L"Text", Text(L"a"));
    EXPECT_EQ(Do(L"Text", Number(VT_NULL, 0)), Hr(WBEM_S_NO_ERROR));
    EXPECT_EQ(Stored("Text"), CimValue());
    Do(L"Text", Text(L"a"));
    EXPECT_EQ(object_->Put(L"Text", 0, nullptr, 0), Hr(WBEM_S_NO_ERROR));
    EXPECT_EQ(Stored("Text"), CimValue());
}

TEST_F(InstanceFaceTest, RefusesUnknownAndSystemPropertiesAndAType) {
    EXPECT_EQ(Do(L"Missing", Number(VT_I4, 1)), Hr(WBEM_E_NOT_FOUND));
    EXPECT_EQ(Do(L"__CLASS", Text(L"X")), Hr(WBEM_E_READ_ONLY));
    VARIANT value = Number(VT_I4, 1);
    EXPECT_EQ(object_->Put(L"U32", 0, &value, CIM_UINT32), Hr(WBEM_E_INVALID_PARAMETER));
}

TEST_F(InstanceFaceTest, IsRecordedAsItWasCalled) {
    Do(L"u16", Text(L"4"));
    Do(L"Flag", Number(VT_BOOL, 1));
    Do(L"Missing", Number(VT_I4, 9));
    const auto behind = service::ObjectFace::Behind(*object_.Get());
    const auto log = dynamic_cast<const service::Instance&>(*behind).Puts();
    ASSERT_EQ(log.size(), 3U);
    EXPECT_EQ(log[0].name, "u16");
    EXPECT_EQ(log[0].variantType, VT_BSTR);
    EXPECT_EQ(log[0].value, CimValue("4"));
    EXPECT_EQ(log[0].result, Status::noError);
    EXPECT_EQ(log[1].variantType, VT_BOOL);
    EXPECT_EQ(log[1].value, CimValue(std::int64_t{1}));
    EXPECT_EQ(log[2].result, Status::notFound);
}

}  // namespace
}  // namespace qv::test
