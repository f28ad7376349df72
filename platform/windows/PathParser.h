#pragma once

#include <unknwn.h>
#include <windows.h>
#include <wmiutils.h>

#include <string>

// The toolchain's header does not say which identifier the interface has.
__CRT_UUID_DECL(IWbemPath, 0x3BC15AF2, 0x736C, 0x477E, 0x9E, 0x51, 0x23, 0x8A, 0xF8, 0x66, 0x7D,
                0xCC)

namespace qv::windows {

/// The class of the platform's object-path parser; the toolchain's import libraries lack it.
// {CF4CC405-E2C5-4DDD-B3CE-5E7582D8C9FA}
inline constexpr CLSID pathParserClassId{
    0xCF4CC405, 0xE2C5, 0x4DDD, {0xB3, 0xCE, 0x5E, 0x75, 0x82, 0xD8, 0xC9, 0xFA}};

/// What the parser says of an object path.
struct PathTexts {
    std::wstring relative;   ///< Class.Key="value", in the caller's spelling
    std::wstring className;  ///< empty when the parser gives none
};

/// Takes an object path apart with a parser of its own from `parsers`. Gives the parser's status;
/// that of the class name is not looked at, on purpose. A relative path of 1000 or more characters
/// gives WBEM_E_BUFFER_TOO_SMALL, whatever the parser says of it.
HRESULT ParsePath(IClassFactory& parsers, LPCWSTR objectPath, PathTexts& texts);

}  // namespace qv::windows
