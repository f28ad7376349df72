#pragma once

#include <gtest/gtest.h>
#include <wbemprov.h>

#include <string>

#include "platform/windows/ComObject.h"
#include "tests/support/windows/CallerStandIn.h"
#include "tests/support/windows/InitSinkStandIn.h"
#include "tests/support/windows/NamespaceStandIn.h"

namespace qv::test {

using windows::ComPtr;

/// A provider object and the stand-ins for the management service that initialises it. The fixture
/// that derives from this one creates the object.
class InitialisedTest : public ::testing::Test {
protected:
    HRESULT Initialize() { return Initialize(nameSpace.Get(), initSink.Get()); }
    HRESULT Initialize(IWbemServices* services, IWbemProviderInitSink* toldTo) {
        return Initialize(init, services, toldTo);
    }
    HRESULT Initialize(const ComPtr<IWbemProviderInit>& provider, IWbemServices* services,
                       IWbemProviderInitSink* toldTo) {
        const CallContext call(*caller.Get());
        return provider->Initialize(nullptr, 0, nameSpaceName.data(), nullptr, services,
                                    context.Get(), toldTo);
    }

    ComPtr<CallerStandIn> caller = windows::MakeObject<CallerStandIn>();
    std::wstring nameSpaceName = L"root\\QVQ";
    ComPtr<NamespaceStandIn> nameSpace = windows::MakeObject<NamespaceStandIn>();
    ComPtr<ContextStandIn> context = windows::MakeObject<ContextStandIn>();
    ComPtr<InitSinkStandIn> initSink = windows::MakeObject<InitSinkStandIn>();
    ComPtr<IWbemProviderInit> init;
};

}  // namespace qv::test
