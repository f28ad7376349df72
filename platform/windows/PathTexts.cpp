#include "platform/windows/PathTexts.h"

#include <array>

#include "platform/ObjectPathLimit.h"
#include "platform/windows/ComObject.h"
#include "platform/windows/WbemStatus.h"

namespace qv::windows {
namespace {

// The parser may report success for a text that does not fit: the buffer is then unchanged, that
// is, empty.
using TextBuffer = std::array<wchar_t, platform::longestRelativePath + 1>;

}  // namespace

HRESULT ParsePath(IClassFactory& parsers, LPCWSTR objectPath, PathTexts& texts) {
    ComPtr<IWbemPath> parser;
    HRESULT status = parsers.CreateInstance(nullptr, IID_PPV_ARGS(&parser));
    if (FAILED(status)) {
        return status;
    }
    status = parser->SetText(WBEMPATH_CREATE_ACCEPT_ALL, objectPath);
    if (FAILED(status)) {
        return status;
    }
    TextBuffer relative{};
    ULONG length = relative.size();
    status = parser->GetText(WBEMPATH_GET_RELATIVE_ONLY, &length, relative.data());
    if (FAILED(status)) {
        return status;
    }
    if (length > relative.size()) {
        // An empty text would request every instance of the class.
        return Hr(WBEM_E_BUFFER_TOO_SMALL);
    }
    TextBuffer className{};
    length = className.size();
    parser->GetClassName(&length, className.data());
    texts = {relative.data(), className.data()};
    return S_OK;
}

}  // namespace qv::windows
