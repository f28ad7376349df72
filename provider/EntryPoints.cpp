// The library's entry points. No exception leaves them: the loader and COM call them.
#include <olectl.h>
#include <windows.h>

#include <new>

#include "provider/ClassFactory.h"
#include "provider/Module.h"
#include "provider/Process.h"
#include "provider/Registration.h"
#include "provider/public/ClassIds.h"

using namespace qv::provider;

namespace {

template <typename T>
HRESULT GetFactory(qv::windows::ComPtr<T> (*make)(), REFIID iid, void** object) {
    const auto factory = qv::windows::Adopt(new (std::nothrow) ClassFactory<T>(make));
    return factory ? factory->QueryInterface(iid, object) : E_OUTOFMEMORY;
}

}  // namespace

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH) {
        SetModuleInstance(instance);
    }
    return TRUE;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID iid, LPVOID* object) {
    if (object == nullptr) {
        return E_POINTER;
    }
    *object = nullptr;
    if (IsEqualCLSID(classId, instanceProviderId)) {
        return GetFactory(MakeInstanceProvider, iid, object);
    }
    if (IsEqualCLSID(classId, eventProviderId)) {
        return GetFactory(MakeEventProvider, iid, object);
    }
    return CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllCanUnloadNow() {
    return IsModuleInUse() ? S_FALSE : S_OK;
}

STDAPI DllRegisterServer() try { return RegisterLibrary(); } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
}

STDAPI DllUnregisterServer() try { return UnregisterLibrary(); } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
}
