#pragma once

#include <string>

#include "qvsata/hosting/substitutes/UnsupportedPath.h"

namespace qv::service {

/// The object path parser of the embedded management service: SetText, GetText and GetClassName
/// of IWbemPath; everything else is refused with WBEM_E_NOT_SUPPORTED. The text from the class on
/// is given back as it was set: letter case, key order, quotes and escapes kept. One thread.
class PathParser final : public UnsupportedPath {
public:
    /// WBEM_E_INVALID_PARAMETER for mode 0, a null text and a text that is no path; what was set
    /// before is lost then. An empty text clears the parser.
    STDMETHODIMP SetText(ULONG mode, LPCWSTR path) override;
    /// `length` counts characters, the terminating null among them, in and out. A buffer that is
    /// too small gives WBEM_E_BUFFER_TOO_SMALL and the length needed (that code is a choice).
    STDMETHODIMP GetText(LONG flags, ULONG* length, LPWSTR text) override;
    STDMETHODIMP GetClassName(ULONG* length, LPWSTR name) override;

private:
    /// The path taken apart; each part is empty when the text has none.
    struct Parts {
        std::wstring original;
        std::wstring server;
        std::wstring nameSpace;  ///< with backslashes
        std::wstring relative;
        std::wstring className;
    };

    std::wstring TextFor(LONG flags) const;

    Parts parts_;
};

}  // namespace qv::service
