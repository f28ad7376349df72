#pragma once

#include <windows.h>

#include <wbemcli.h>
#include <wbemprov.h>

#include <functional>
#include <string>
#include <vector>

#include "platform/windows/Bstr.h"
#include "platform/windows/ComObject.h"
#include "platform/windows/Text.h"
#include "platform/windows/UnsupportedServices.h"
#include "platform/windows/Variant.h"
#include "qvsata/hosting/ProviderSource.h"
#include "qvsata/hosting/ServicesFace.h"
#include "qvsata/hosting/objects/ObjectReading.h"
#include "qvsata/mof/MofReader.h"
#include "qvsata/service/PublishedNamespace.h"

namespace qv::test {

using windows::Bstr;
using windows::ComPtr;
using windows::Hr;
using windows::Variant;

/// Stores a text in a variant for a call of Put.
inline VARIANT* TextVariant(Variant& variant, const wchar_t* text) {
    V_BSTR(variant.Receive()) = Bstr(text).Detach();
    V_VT(variant.Pass()) = VT_BSTR;
    return variant.Pass();
}

/// A provider with scripted answers. An enumeration delivers one instance for each of `keys`, with
/// that text as `Key`, unless `enumerate` is set.
class FakeProvider final
    : public windows::UnsupportedServices<windows::ComObject<IWbemServices, IWbemProviderInit>> {
public:
    std::vector<std::wstring> keys;
    std::function<HRESULT(IWbemServices&, const BSTR, IWbemObjectSink*)> enumerate;
    std::function<HRESULT(IWbemServices&, const BSTR, IWbemObjectSink*)> get;
    std::function<HRESULT(IWbemServices&, const BSTR, IWbemObjectSink*)> query;
    HRESULT initialised = WBEM_S_INITIALIZED;

    STDMETHODIMP Initialize(LPWSTR, LONG, LPWSTR, LPWSTR, IWbemServices* services, IWbemContext*,
                            IWbemProviderInitSink* sink) override {
        services_ = services;
        return sink->SetStatus(initialised, 0);
    }

    STDMETHODIMP CreateInstanceEnumAsync(const BSTR className, long, IWbemContext*,
                                         IWbemObjectSink* sink) override {
        return enumerate ? enumerate(*services_.Get(), className, sink)
                         : DeliverKeys(*services_.Get(), className, sink);
    }

    STDMETHODIMP GetObjectAsync(const BSTR path, long, IWbemContext*,
                                IWbemObjectSink* sink) override {
        return get ? get(*services_.Get(), path, sink) : Hr(WBEM_E_NOT_FOUND);
    }

    STDMETHODIMP ExecQueryAsync(const BSTR, const BSTR text, long, IWbemContext*,
                                IWbemObjectSink* sink) override {
        return query ? query(*services_.Get(), text, sink) : Hr(WBEM_E_NOT_SUPPORTED);
    }

private:
    HRESULT DeliverKeys(IWbemServices& services, const BSTR className, IWbemObjectSink* sink) {
        ComPtr<IWbemClassObject> type;
        if (FAILED(services.GetObject(className, 0, nullptr, &type, nullptr))) {
            return Hr(WBEM_E_FAILED);
        }
        for (const std::wstring& key : keys) {
            ComPtr<IWbemClassObject> instance;
            type->SpawnInstance(0, &instance);
            Variant value;
            instance->Put(L"Key", 0, TextVariant(value, key.c_str()), 0);
            sink->Indicate(1, instance.GetAddressOf());
        }
        return sink->SetStatus(WBEM_STATUS_COMPLETE, WBEM_S_NO_ERROR, nullptr, nullptr);
    }

    ComPtr<IWbemServices> services_;
};

/// The classes of the test namespace.
inline constexpr const char* testMof = R"(
#pragma namespace("\\\\.\\root\\QVQ")
[Abstract] class T_Base { [key] string Key; uint32 Number = 7; };
[dynamic, provider("P")] class T_Disk : T_Base { string Note; };
[dynamic, provider("P")] class T_Port : T_Base { };
[dynamic, provider("P"), Association] class T_Link { [key] T_Disk ref Disk; [key] T_Port ref Port; };
class T_Stated { [key] string Key; };
instance of T_Stated { Key = "there"; };
class T_Types {
  [key] string Text; uint8 U8; uint16 U16; uint32 U32; uint64 U64; sint8 S8; sint16 S16; sint32 S32;
  sint64 S64; real32 R32; real64 R64; boolean Flag; datetime When; uint16 U16s[]; string Texts[];
  uint8 U8s[]; boolean Flags[]; uint32 U32s[];
};
)";

inline service::ClassRepository TestClasses() {
    service::Namespaces namespaces;
    service::ReadMof(testMof, "test.mof", namespaces);
    return namespaces.Of("root\\QVQ");
}

/// A namespace of the test classes, served by a fake provider.
struct TestNamespace {
    ComPtr<FakeProvider> fake = windows::MakeObject<FakeProvider>();
    std::shared_ptr<service::Namespace> names =
        service::OpenPublished(service::PublishedClasses(TestClasses()), "SRV");
    ComPtr<IWbemServices> services = windows::MakeObject<service::ServicesFace>(names);
    std::shared_ptr<service::ProviderObject> provider = std::make_shared<service::ProviderObject>(
        ComPtr<IUnknown>(static_cast<IWbemServices*>(fake.Get())), L"root\\QVQ", *services.Get());

    TestNamespace() { names->Attach(std::make_shared<const service::ProviderSource>(provider)); }
    ~TestNamespace() { names->Attach(nullptr); }

    ComPtr<IWbemClassObject> Class(const wchar_t* name) const {
        ComPtr<IWbemClassObject> type;
        services->GetObject(Bstr(name).Get(), 0, nullptr, &type, nullptr);
        return type;
    }

    ComPtr<IWbemClassObject> Spawn(const wchar_t* name) const {
        ComPtr<IWbemClassObject> instance;
        Class(name)->SpawnInstance(0, &instance);
        return instance;
    }
};

/// Returns the text of a property as a client reads it; empty if it has none.
inline std::string ReadText(IWbemClassObject& object, std::string_view name) {
    return service::TextOf(*service::ReadObject(object), name);
}

/// Returns a property as a client reads it.
inline std::optional<service::ObjectProperty> ReadProperty(IWbemClassObject& object,
                                                           std::string_view name) {
    return service::ReadObject(object)->Find(name);
}

}  // namespace qv::test
