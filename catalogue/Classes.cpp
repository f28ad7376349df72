#include "catalogue/Classes.h"

#include <algorithm>
#include <array>

#include "NativeAPI/NativeAPI.h"
#include "catalogue/Associations.h"

namespace qv {
namespace {

struct InstanceClass {
    std::string_view name;
    PublishedClass::Builder builder;
};

constexpr auto instanceClasses = std::to_array<InstanceClass>({
    {"QV_SATAPortController", &NativeAPI::getQV_SATAPortController},
    {"QV_SATADiskDrive", &NativeAPI::getQV_SATADiskDrive},
    {"QV_SATAStorageExtent", &NativeAPI::getQV_SATAStorageExtent},
    {"QV_SATADiskDriveFW", &NativeAPI::getQV_SATADiskDriveFW},
    {"QV_SATAPortControllerPhysicalPackage", &NativeAPI::getQV_SATAPortControllerPhysicalPackage},
    {"QV_SATADiskPhysicalPackage", &NativeAPI::getQV_SATADiskPhysicalPackage},
    {"QV_SATAStorageCollection", &NativeAPI::getQV_SATAStorageCollection},
    {"QV_SATADiskLocation", &NativeAPI::getQV_SATADiskLocation},
    {"QV_SATAControllerLocation", &NativeAPI::getQV_SATAControllerLocation},
    {"QV_SATAPortControllerProduct", &NativeAPI::getQV_SATAPortControllerProduct},
    {"QV_SATALogicalPort", &NativeAPI::getQV_SATALogicalPort},
    {"QV_ISATAProtocolEndpoint", &NativeAPI::getQV_ISATAProtocolEndpoint},
    {"QV_TSATAProtocolEndpoint", &NativeAPI::getQV_TSATAProtocolEndpoint},
    {"QV_SATAPortControllerDriver", &NativeAPI::getQV_SATAPortControllerDriver},
    {"QV_SATAPortControllerFW", &NativeAPI::getQV_SATAPortControllerFW},
    {"QV_SATAPortControllerBIOS", &NativeAPI::getQV_SATAPortControllerBIOS},
    {"QV_WinComputerSystem", &NativeAPI::getQV_WinComputerSystem},
});

// The instance classes and behind them the associations.
constexpr auto publishedClasses = [] {
    std::array<PublishedClass, instanceClasses.size() + associations.size()> all{};
    const auto behind = std::ranges::transform(instanceClasses, all.begin(), [](const auto& one) {
                            return PublishedClass{one.name, one.builder, nullptr};
                        }).out;
    std::ranges::transform(associations, behind, [](const Association& one) {
        return PublishedClass{one.name, nullptr, &one};
    });
    return all;
}();

constexpr bool IsInstanceClass(const AssociationEnd& end) {
    return std::ranges::count(instanceClasses, end.className, &InstanceClass::name) == 1;
}

static_assert(
    [] {
        for (const auto& one : publishedClasses) {
            if (std::ranges::count(publishedClasses, one.name, &PublishedClass::name) != 1) {
                return false;
            }
        }
        return true;
    }(),
    "no class is listed twice");
static_assert(std::ranges::all_of(associations,
                                  [](const Association& one) {
                                      return IsInstanceClass(one.first) &&
                                             IsInstanceClass(one.second) &&
                                             one.HasThreeEnds() == IsInstanceClass(one.third);
                                  }),
              "associations are between instance classes");

}  // namespace

std::span<const PublishedClass> PublishedClasses() {
    return publishedClasses;
}

}  // namespace qv
