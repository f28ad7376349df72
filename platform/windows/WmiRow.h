#pragma once

#include <wbemcli.h>
#include <windows.h>

#include "platform/Row.h"
#include "platform/windows/ComObject.h"
#include "platform/windows/Variant.h"

namespace qv::windows {

/// Converts a VARIANT from IWbemClassObject::Get to the core's value. Text is converted to the ANSI
/// code page.
platform::Value ToValue(const VARIANT& variant);

/// An object of the management service as a source row.
class WmiRow : public platform::Row {
public:
    explicit WmiRow(ComPtr<IWbemClassObject> object) : object_(std::move(object)) {}

    platform::PropertyRead Get(std::string_view name) const override;
    Status GetWideText(std::string_view name, std::wstring& text) const override;

private:
    Status Read(std::string_view name, Variant& value) const;

    ComPtr<IWbemClassObject> object_;
};

}  // namespace qv::windows
