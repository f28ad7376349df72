// Put converts scalars as the system converts VARIANTs.
#include <gtest/gtest.h>

#include "platform/windows/Bstr.h"
#include "platform/windows/Variant.h"
#include "qvsata/cim/PutRules.h"
#include "qvsata/cim/ValueRules.h"
#include "qvsata/hosting/objects/CimVariantReader.h"

namespace qv::test {
namespace {

using service::CimType;
using service::CimValue;

struct Source {
    std::wstring text;
    VARTYPE type;
};

/// Sets `made` to the text as a VARIANT of the type.
void Make(const Source& source, windows::Variant& made) {
    windows::Variant text;
    V_BSTR(text.Pass()) = windows::Bstr(source.text).Detach();
    V_VT(text.Pass()) = VT_BSTR;
    ASSERT_EQ(VariantChangeTypeEx(made.Receive(), text.Pass(), LOCALE_INVARIANT, 0, source.type),
              S_OK);
}

/// Returns what the system makes of the value; nothing if it refuses it, or if the result is no
/// value of the type.
std::optional<CimValue> ConvertedBySystem(windows::Variant& source, CimType type) {
    windows::Variant converted;
    if (FAILED(VariantChangeTypeEx(converted.Receive(), source.Pass(), LOCALE_INVARIANT, 0,
                                   service::VariantTypeOf(type, false)))) {
        return std::nullopt;
    }
    const std::optional<CimValue> raw = service::ReadVariant(converted.Get());
    return raw && IsValueOf(*raw, type) ? service::ReadVariant(converted.Get(), type)
                                        : std::nullopt;
}

std::optional<CimValue> ConvertedByPut(const windows::Variant& source, CimType type) {
    CimValue stored;
    return Succeeded(ConvertForPut(service::ReadPut(source.Get()), type, false, stored))
               ? std::optional(stored)
               : std::nullopt;
}

class PutConversionsTest : public testing::TestWithParam<std::tuple<Source, CimType>> {};

TEST_P(PutConversionsTest, AreThoseOfTheSystem) {
    const auto& [source, type] = GetParam();
    windows::Variant value;
    Make(source, value);
    EXPECT_EQ(ConvertedByPut(value, type), ConvertedBySystem(value, type));
}

INSTANTIATE_TEST_SUITE_P(
    Texts, PutConversionsTest,
    testing::Combine(
        testing::Values(Source{L"4", VT_BSTR}, Source{L" 4 ", VT_BSTR}, Source{L"-1", VT_BSTR},
                        Source{L"256", VT_BSTR}, Source{L"65536", VT_BSTR},
                        Source{L"2147483648", VT_BSTR}, Source{L"", VT_BSTR}, Source{L" ", VT_BSTR},
                        Source{L"abc", VT_BSTR}, Source{L"4 of 5", VT_BSTR},
                        Source{L"2.5", VT_BSTR}, Source{L"3.5", VT_BSTR}, Source{L"1e3", VT_BSTR},
                        Source{L"+4", VT_BSTR}, Source{L"True", VT_BSTR}, Source{L"FALSE", VT_BSTR},
                        Source{L"yes", VT_BSTR}, Source{L"0", VT_BSTR}),
        testing::Values(CimType::uint8, CimType::sint16, CimType::uint16, CimType::sint32,
                        CimType::uint32, CimType::real64, CimType::boolean)));

INSTANTIATE_TEST_SUITE_P(
    Numbers, PutConversionsTest,
    testing::Combine(testing::Values(Source{L"0", VT_I4}, Source{L"7", VT_I4}, Source{L"-1", VT_I4},
                                     Source{L"255", VT_I4}, Source{L"256", VT_I4},
                                     Source{L"32768", VT_I4}, Source{L"3000000000", VT_UI4}),
                     testing::Values(CimType::string, CimType::uint64, CimType::uint8,
                                     CimType::sint16, CimType::real64, CimType::boolean)));

INSTANTIATE_TEST_SUITE_P(
    Booleans, PutConversionsTest,
    testing::Combine(testing::Values(Source{L"True", VT_BOOL}, Source{L"False", VT_BOOL}),
                     testing::Values(CimType::string, CimType::sint16, CimType::sint32)));

INSTANTIATE_TEST_SUITE_P(
    Reals, PutConversionsTest,
    testing::Combine(
        testing::Values(Source{L"2.5", VT_R8}, Source{L"3.5", VT_R8}, Source{L"-0.5", VT_R8},
                        Source{L"70000", VT_R8}, Source{L"1e10", VT_R8}),
        testing::Values(CimType::uint8, CimType::sint16, CimType::uint32, CimType::boolean)));

}  // namespace
}  // namespace qv::test
