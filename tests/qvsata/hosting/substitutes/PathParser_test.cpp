#include "qvsata/hosting/substitutes/PathParser.h"

#include <gtest/gtest.h>

#include "platform/windows/WbemStatus.h"

namespace qv::test {
namespace {

using service::PathParser;
using windows::Hr;
using windows::MakeObject;

std::wstring Text(PathParser& parser, LONG flags) {
    std::wstring text(1000, L'\0');
    auto length = static_cast<ULONG>(text.size());
    EXPECT_EQ(parser.GetText(flags, &length, text.data()), S_OK);
    text.resize(length - 1);
    return text;
}

struct Form {
    const char* name;
    const wchar_t* text;
    LONG flags;
    const wchar_t* expected;
};

class PathParserForms : public testing::TestWithParam<Form> {};

TEST_P(PathParserForms, AreThoseOfTheManagementService) {
    const auto parser = MakeObject<PathParser>();
    ASSERT_EQ(parser->SetText(WBEMPATH_CREATE_ACCEPT_ALL, GetParam().text), S_OK);
    EXPECT_EQ(Text(*parser.Get(), GetParam().flags), GetParam().expected);
}

constexpr const wchar_t* disk = LR"(\\.\root\cimv2:Win32_LogicalDisk.DeviceId="C:")";
constexpr const wchar_t* link =
    LR"(Assoc.Antecedent="\\\\SRV\\root\\NS:C.K=\"v\"",Dependent='x,y')";

INSTANTIATE_TEST_SUITE_P(
    Table, PathParserForms,
    testing::Values(Form{"RelativePath", disk, WBEMPATH_GET_RELATIVE_ONLY,
                         LR"(Win32_LogicalDisk.DeviceId="C:")"},
                    Form{"WithoutServer", disk, 0,
                         LR"(root\cimv2:Win32_LogicalDisk.DeviceId="C:")"},
                    Form{"Original", disk, WBEMPATH_GET_ORIGINAL, disk},
                    Form{"NamespaceOnly", disk, WBEMPATH_GET_NAMESPACE_ONLY, LR"(root\cimv2)"},
                    Form{"ServerAndNamespaceOnly", disk, WBEMPATH_GET_SERVER_AND_NAMESPACE_ONLY,
                         LR"(\\.\root\cimv2)"},
                    Form{"NamespaceGetsThisServer", L"/root/cimv2:C", WBEMPATH_GET_SERVER_TOO,
                         LR"(\\.\root\cimv2:C)"},
                    Form{"ForwardSlashes", L"//SRV/root/x:C.K=1", WBEMPATH_GET_SERVER_TOO,
                         LR"(\\SRV\root\x:C.K=1)"},
                    Form{"RelativePathWithAReference", link, WBEMPATH_GET_RELATIVE_ONLY, link},
                    Form{"KeysInTheirOrder", LR"(C.b="1",A="2")", WBEMPATH_GET_RELATIVE_ONLY,
                         LR"(C.b="1",A="2")"},
                    Form{"RelativePathOfABareKey", LR"(root\x:C='a\\b')",
                         WBEMPATH_GET_RELATIVE_ONLY, LR"(C='a\\b')"},
                    Form{"Empty", L"", WBEMPATH_GET_RELATIVE_ONLY, L""}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(PathParser, RefusesWhatIsNoPath) {
    const auto parser = MakeObject<PathParser>();
    EXPECT_EQ(parser->SetText(0, L"C"), Hr(WBEM_E_INVALID_PARAMETER));
    EXPECT_EQ(parser->SetText(WBEMPATH_CREATE_ACCEPT_ALL, nullptr), Hr(WBEM_E_INVALID_PARAMETER));
    EXPECT_EQ(parser->SetText(WBEMPATH_CREATE_ACCEPT_ALL, L"C.K="), Hr(WBEM_E_INVALID_PARAMETER));
    EXPECT_EQ(parser->SetText(WBEMPATH_CREATE_ACCEPT_ALL, L"C.K = \"v\""),
              Hr(WBEM_E_INVALID_PARAMETER));
    EXPECT_EQ(parser->SetText(WBEMPATH_CREATE_ACCEPT_ALL, LR"(/\.\root:C)"),
              Hr(WBEM_E_INVALID_PARAMETER));
}

TEST(PathParser, CountsTheTerminatingNullInLengths) {
    const auto parser = MakeObject<PathParser>();
    parser->SetText(WBEMPATH_CREATE_ACCEPT_ALL, L"C.K=1");
    ULONG length = 0;
    EXPECT_EQ(parser->GetText(WBEMPATH_GET_RELATIVE_ONLY, &length, nullptr), S_OK);
    EXPECT_EQ(length, 6U);
    EXPECT_EQ(parser->GetText(WBEMPATH_GET_RELATIVE_ONLY, &length, nullptr),
              Hr(WBEM_E_INVALID_PARAMETER));
    wchar_t small[3];
    length = 3;
    EXPECT_EQ(parser->GetText(WBEMPATH_GET_RELATIVE_ONLY, &length, small),
              Hr(WBEM_E_BUFFER_TOO_SMALL));
    EXPECT_EQ(length, 6U);
}

TEST(PathParser, GivesTheClassNameAlone) {
    const auto parser = MakeObject<PathParser>();
    wchar_t name[20];
    ULONG length = 20;
    EXPECT_EQ(parser->GetClassName(&length, name), Hr(WBEM_E_INVALID_OBJECT_PATH));
    parser->SetText(WBEMPATH_CREATE_ACCEPT_ALL, L"root\\x:Some_Class=\"v\"");
    EXPECT_EQ(parser->GetClassName(&length, name), S_OK);
    EXPECT_STREQ(name, L"Some_Class");
}

}  // namespace
}  // namespace qv::test
