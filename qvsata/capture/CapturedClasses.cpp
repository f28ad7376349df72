#include "qvsata/capture/CapturedClasses.h"

#include <array>

#include "source/Namespaces.h"

namespace qv::capture {
namespace {

constexpr std::array classes{
    CapturedClass{cimNamespace, "Win32_DiskDrive"},
    CapturedClass{cimNamespace, "Win32_PhysicalMedia"},
    CapturedClass{cimNamespace, "Win32_DiskPartition"},
    CapturedClass{cimNamespace, "Win32_DiskDriveToDiskPartition"},
    CapturedClass{cimNamespace, "Win32_IDEController"},
    CapturedClass{cimNamespace, "Win32_IDEControllerDevice"},
    CapturedClass{cimNamespace, "Win32_PnPEntity"},
    CapturedClass{cimNamespace, "Win32_PnPDevice"},
    CapturedClass{cimNamespace, "Win32_SystemDriver"},
    CapturedClass{cimNamespace, "Win32_SystemDriverPNPEntity"},
    CapturedClass{wmiNamespace, "MSStorageDriver_FailurePredictStatus"},
};

}  // namespace

std::span<const CapturedClass> CapturedClasses() {
    return classes;
}

}  // namespace qv::capture
