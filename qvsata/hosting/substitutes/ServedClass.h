#pragma once

#include <windows.h>

#include <objbase.h>

#include <functional>

#include "platform/windows/ComObject.h"

namespace qv::service {

/// Makes an object of one class: the body of IClassFactory::CreateInstance.
using ObjectMaker = std::function<HRESULT(REFIID iid, void** object)>;

/// Puts a class of this process in front of the system's of the same class ID, for every thread
/// of the multithreaded apartment, from construction to destruction.
class ServedClass {
public:
    /// Raises RequestError when COM refuses.
    ServedClass(REFCLSID classId, ObjectMaker maker);
    ServedClass(const ServedClass&) = delete;
    ServedClass& operator=(const ServedClass&) = delete;
    ~ServedClass();

private:
    DWORD registration_ = 0;
};

}  // namespace qv::service
