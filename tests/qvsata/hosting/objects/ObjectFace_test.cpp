#include <gmock/gmock.h>

#include "qvsata/hosting/objects/ObjectReading.h"
#include "tests/qvsata/hosting/FakeProvider.h"

namespace qv::test {
namespace {

using service::CimValue;
using testing::ElementsAre;

struct GetType {
    const wchar_t* property;
    VARTYPE variantType;
    CIMTYPE cimType;
};

// What Get returns for a stored value; VT_NULL for a property without a value.
class ObjectFaceTypes : public testing::TestWithParam<GetType> {};

TEST_P(ObjectFaceTypes, AreThoseOfTheManagementService) {
    const TestNamespace names;
    const auto object = names.Spawn(L"T_Types");
    Variant unset;
    CIMTYPE type = 0;
    EXPECT_EQ(object->Get(GetParam().property, 0, unset.Receive(), &type, nullptr), S_OK);
    EXPECT_EQ(V_VT(&unset.Get()), VT_NULL);
    EXPECT_EQ(type, GetParam().cimType);

    Variant number;
    V_BSTR(number.Receive()) = SysAllocString(L"1");
    V_VT(number.Pass()) = VT_BSTR;
    object->Put(GetParam().property, 0, number.Pass(), 0);
    Variant set;
    object->Get(GetParam().property, 0, set.Receive(), nullptr, nullptr);
    EXPECT_EQ(V_VT(&set.Get()), GetParam().variantType);
}

INSTANTIATE_TEST_SUITE_P(
    Table, ObjectFaceTypes,
    testing::Values(GetType{L"U8", VT_UI1, CIM_UINT8}, GetType{L"U16", VT_I4, CIM_UINT16},
                    GetType{L"U32", VT_I4, CIM_UINT32}, GetType{L"U64", VT_BSTR, CIM_UINT64},
                    GetType{L"S8", VT_I2, CIM_SINT8}, GetType{L"S16", VT_I2, CIM_SINT16},
                    GetType{L"S32", VT_I4, CIM_SINT32}, GetType{L"S64", VT_BSTR, CIM_SINT64},
                    GetType{L"R32", VT_R4, CIM_REAL32}, GetType{L"R64", VT_R8, CIM_REAL64},
                    GetType{L"Flag", VT_BOOL, CIM_BOOLEAN}, GetType{L"Text", VT_BSTR, CIM_STRING}),
    [](const auto& row) {
        const std::wstring property = row.param.property;
        return std::string(property.begin(), property.end());
    });

TEST(ObjectFace, TellsItsClassAndPath) {
    const TestNamespace names;
    const auto type = names.Class(L"t_disk");
    EXPECT_EQ(ReadText(*type.Get(), "__CLASS"), "T_Disk");
    EXPECT_EQ(ReadText(*type.Get(), "__RELPATH"), "T_Disk");
    EXPECT_EQ(ReadText(*type.Get(), "__PATH"), "\\\\SRV\\root\\QVQ:T_Disk");
    EXPECT_EQ(ReadText(*type.Get(), "__SUPERCLASS"), "T_Base");
    EXPECT_EQ(ReadText(*type.Get(), "__DYNASTY"), "T_Base");
    EXPECT_EQ(ReadProperty(*type.Get(), "__GENUS")->value, CimValue(std::int64_t{1}));
    EXPECT_EQ(ReadProperty(*type.Get(), "__PROPERTY_COUNT")->value, CimValue(std::int64_t{3}));
    EXPECT_EQ(ReadProperty(*type.Get(), "__DERIVATION")->value,
              CimValue(std::vector<std::string>{"T_Base"}));
}

TEST(ObjectFace, InheritsFromItselfAndItsAncestors) {
    const TestNamespace names;
    const auto type = names.Class(L"T_Disk");
    EXPECT_EQ(type->InheritsFrom(L"T_DISK"), S_OK);
    EXPECT_EQ(type->InheritsFrom(L"T_Base"), S_OK);
    EXPECT_EQ(type->InheritsFrom(L"T_Port"), WBEM_S_FALSE);
}

TEST(ObjectFace, SpawnsInstancesThatShowDefaultsAndHaveNoPathWithoutKeys) {
    const TestNamespace names;
    const auto object = names.Spawn(L"T_Disk");
    EXPECT_EQ(ReadProperty(*object.Get(), "Number")->value, CimValue(std::int64_t{7}));
    EXPECT_EQ(ReadProperty(*object.Get(), "__PATH")->value, CimValue());
    EXPECT_EQ(ReadProperty(*object.Get(), "__GENUS")->value, CimValue(std::int64_t{2}));
    Variant key;
    object->Put(L"Key", 0, TextVariant(key, L"a\\b\"c"), 0);
    EXPECT_EQ(ReadText(*object.Get(), "__RELPATH"), R"(T_Disk.Key="a\\b\"c")");
}

TEST(ObjectFace, EnumeratesItsPropertiesByChoice) {
    const TestNamespace names;
    const auto object = names.Spawn(L"T_Disk");
    EXPECT_THAT(service::ReadObject(*object.Get())->Names(), ElementsAre("Key", "Number", "Note"));

    EXPECT_EQ(object->BeginEnumeration(WBEM_FLAG_KEYS_ONLY), S_OK);
    Bstr name;
    EXPECT_EQ(object->Next(0, name.Receive(), nullptr, nullptr, nullptr), S_OK);
    EXPECT_EQ(name.View(), L"Key");
    EXPECT_EQ(object->Next(0, name.Receive(), nullptr, nullptr, nullptr), WBEM_S_NO_MORE_DATA);
    EXPECT_EQ(object->EndEnumeration(), S_OK);
    EXPECT_EQ(object->Next(0, name.Receive(), nullptr, nullptr, nullptr), Hr(WBEM_E_UNEXPECTED));
}

TEST(ObjectFace, LeavesTheVariantAloneWhenThereIsNoSuchProperty) {
    const TestNamespace names;
    Variant value;
    V_VT(value.Pass()) = VT_I4;
    EXPECT_EQ(names.Spawn(L"T_Disk")->Get(L"Missing", 0, value.Pass(), nullptr, nullptr),
              Hr(WBEM_E_NOT_FOUND));
    EXPECT_EQ(V_VT(&value.Get()), VT_I4);
}

TEST(ObjectFace, WritesAnInstanceAsMof) {
    const TestNamespace names;
    const auto object = names.Spawn(L"T_Disk");
    Variant key;
    object->Put(L"Key", 0, TextVariant(key, L"a\\b"), 0);
    Bstr text;
    ASSERT_EQ(object->GetObjectText(0, text.Receive()), S_OK);
    EXPECT_EQ(text.View(), L"instance of T_Disk\n{\n    Key = \"a\\\\b\";\n    Number = 7;\n};\n");
}

TEST(ObjectFace, ClonesAnInstanceWithItsValues) {
    const TestNamespace names;
    const auto object = names.Spawn(L"T_Disk");
    Variant key;
    object->Put(L"Key", 0, TextVariant(key, L"a"), 0);
    ComPtr<IWbemClassObject> copy;
    ASSERT_EQ(object->Clone(&copy), S_OK);
    object->Put(L"Key", 0, TextVariant(key, L"b"), 0);
    EXPECT_EQ(ReadText(*copy.Get(), "Key"), "a");
}

}  // namespace
}  // namespace qv::test
