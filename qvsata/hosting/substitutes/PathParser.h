#pragma once

#include <string>

#include "qvsata/hosting/substitutes/UnsupportedPath.h"

namespace qv::service {

/// The object path parser of the embedded management service. It implements SetText, GetText and
/// GetClassName of IWbemPath and refuses all other methods with WBEM_E_NOT_SUPPORTED. It returns
/// the relative path as it was set: letter case, key order, quotes and escapes are kept. For one
/// thread.
class PathParser final : public UnsupportedPath {
public:
    /// Returns WBEM_E_INVALID_PARAMETER for mode 0, a null text, or a text that is not a path. A
    /// text that is not a path clears the parser, as an empty text does.
    STDMETHODIMP SetText(ULONG mode, LPCWSTR path) override;
    /// `length` counts characters including the terminating null, in and out. If the buffer is too
    /// small, returns WBEM_E_BUFFER_TOO_SMALL and the required length (the code is a choice).
    STDMETHODIMP GetText(LONG flags, ULONG* length, LPWSTR text) override;
    STDMETHODIMP GetClassName(ULONG* length, LPWSTR name) override;

private:
    /// The parts of the path; a part that the text lacks is empty.
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
