#pragma once

#include <windows.h>

#include <objbase.h>

#include <functional>

#include "platform/windows/ComObject.h"

namespace qv::service {

/// Makes an object of one class; implements IClassFactory::CreateInstance.
using ObjectMaker = std::function<HRESULT(REFIID iid, void** object)>;

/// Replaces the system's class of a class ID by a class of this process, for every thread of the
/// multithreaded apartment, from construction to destruction.
class ServedClass {
public:
    /// Throws RequestError if COM fails.
    ServedClass(REFCLSID classId, ObjectMaker maker);
    ServedClass(const ServedClass&) = delete;
    ServedClass& operator=(const ServedClass&) = delete;
    ~ServedClass();

private:
    DWORD registration_ = 0;
};

}  // namespace qv::service
