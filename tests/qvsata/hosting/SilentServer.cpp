// A COM server without a class, and without the imports through which a provider logs.
#include <windows.h>

extern "C" __declspec(dllexport) HRESULT WINAPI DllGetClassObject(REFCLSID, REFIID, void** object) {
    *object = nullptr;
    return CLASS_E_CLASSNOTAVAILABLE;
}

extern "C" __declspec(dllexport) HRESULT WINAPI DllCanUnloadNow() {
    return S_OK;
}
