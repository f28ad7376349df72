#pragma once

#include <unknwn.h>
#include <windows.h>
#include <wmiutils.h>

#include <string>

// The toolchain's header lacks the interface's identifier.
__CRT_UUID_DECL(IWbemPath, 0x3BC15AF2, 0x736C, 0x477E, 0x9E, 0x51, 0x23, 0x8A, 0xF8, 0x66, 0x7D,
                0xCC)

namespace qv::windows {

/// The class of the platform's object-path parser; the toolchain's import libraries lack it.
// {CF4CC405-E2C5-4DDD-B3CE-5E7582D8C9FA}
inline constexpr CLSID pathParserClassId{
    0xCF4CC405, 0xE2C5, 0x4DDD, {0xB3, 0xCE, 0x5E, 0x75, 0x82, 0xD8, 0xC9, 0xFA}};

/// The parts of an object path.
struct PathTexts {
    std::wstring relative;   ///< Class.Key="value", in the caller's spelling
    std::wstring className;  ///< empty if the parser returns none
};

/// Parses a path with a new parser from `parsers`. Returns the parser's status, or
/// WBEM_E_BUFFER_TOO_SMALL for a relative path longer than platform::longestRelativePath, also if
/// the parser succeeds. Ignores the status of the class name, on purpose.
HRESULT ParsePath(IClassFactory& parsers, LPCWSTR objectPath, PathTexts& texts);

}  // namespace qv::windows
