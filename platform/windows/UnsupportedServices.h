#pragma once

#include <wbemcli.h>
#include <windows.h>

#include "platform/windows/WbemStatus.h"

namespace qv::windows {

/// An IWbemServices whose operations all return WBEM_E_NOT_SUPPORTED; a derived class overrides
/// those that it supports. `Base` is the ComObject that lists IWbemServices.
template <typename Base>
class UnsupportedServices : public Base {
    using Text = const BSTR;
    using Services = IWbemServices;
    using Context = IWbemContext;
    using Object = IWbemClassObject;
    using Sink = IWbemObjectSink;
    using Result = IWbemCallResult;
    using Objects = IEnumWbemClassObject;
    static constexpr HRESULT refused = Hr(WBEM_E_NOT_SUPPORTED);

public:
    // clang-format off
    STDMETHODIMP OpenNamespace(Text, long, Context*, Services**, Result**) override { return refused; }
    STDMETHODIMP CancelAsyncCall(Sink*) override { return refused; }
    STDMETHODIMP QueryObjectSink(long, Sink**) override { return refused; }
    STDMETHODIMP GetObject(Text, long, Context*, Object**, Result**) override { return refused; }
    STDMETHODIMP GetObjectAsync(Text, long, Context*, Sink*) override { return refused; }
    STDMETHODIMP PutClass(Object*, long, Context*, Result**) override { return refused; }
    STDMETHODIMP PutClassAsync(Object*, long, Context*, Sink*) override { return refused; }
    STDMETHODIMP DeleteClass(Text, long, Context*, Result**) override { return refused; }
    STDMETHODIMP DeleteClassAsync(Text, long, Context*, Sink*) override { return refused; }
    STDMETHODIMP CreateClassEnum(Text, long, Context*, Objects**) override { return refused; }
    STDMETHODIMP CreateClassEnumAsync(Text, long, Context*, Sink*) override { return refused; }
    STDMETHODIMP PutInstance(Object*, long, Context*, Result**) override { return refused; }
    STDMETHODIMP PutInstanceAsync(Object*, long, Context*, Sink*) override { return refused; }
    STDMETHODIMP DeleteInstance(Text, long, Context*, Result**) override { return refused; }
    STDMETHODIMP DeleteInstanceAsync(Text, long, Context*, Sink*) override { return refused; }
    STDMETHODIMP CreateInstanceEnum(Text, long, Context*, Objects**) override { return refused; }
    STDMETHODIMP CreateInstanceEnumAsync(Text, long, Context*, Sink*) override { return refused; }
    STDMETHODIMP ExecQuery(Text, Text, long, Context*, Objects**) override { return refused; }
    STDMETHODIMP ExecQueryAsync(Text, Text, long, Context*, Sink*) override { return refused; }
    STDMETHODIMP ExecNotificationQuery(Text, Text, long, Context*, Objects**) override { return refused; }
    STDMETHODIMP ExecNotificationQueryAsync(Text, Text, long, Context*, Sink*) override { return refused; }
    STDMETHODIMP ExecMethod(Text, Text, long, Context*, Object*, Object**, Result**) override { return refused; }
    STDMETHODIMP ExecMethodAsync(Text, Text, long, Context*, Object*, Sink*) override { return refused; }
    // clang-format on
};

}  // namespace qv::windows
