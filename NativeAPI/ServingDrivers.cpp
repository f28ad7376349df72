#include "NativeAPI/ServingDrivers.h"

#include <set>
#include <string_view>
#include <utility>

#include "NativeAPI/KeptRows.h"
#include "source/Namespaces.h"
#include "source/PropertyReaders.h"

namespace qv {
namespace {

// Returns the path without server and namespace; the whole path if the namespace is spelled
// otherwise.
std::string RelativePathOf(const platform::Row& row) {
    constexpr std::string_view nameSpace = "CIMv2:";
    const std::string path = TextOrEmpty(row, "__PATH");
    const auto mark = path.find(nameSpace);
    return mark == std::string::npos ? path : path.substr(mark + nameSpace.size());
}

// Returns the objects of exactly `resultClass` that `associationClass` relates to the row's object.
platform::Rows Associated(const platform::QueryPort& queries, const platform::Row& row,
                          const std::string& associationClass, std::string_view resultClass) {
    platform::Rows objects;
    queries.RunWqlQuery(
        cimNamespace,
        "ASSOCIATORS OF {" + RelativePathOf(row) + "} where assocclass=" + associationClass,
        objects);
    std::erase_if(objects, [resultClass](const auto& object) {
        return TextOrEmpty(*object, "__CLASS") != resultClass;
    });
    return objects;
}

}  // namespace

std::vector<ServingDriver> QueryServingDrivers(const platform::QueryPort& queries) {
    std::vector<ServingDriver> drivers;
    platform::Rows controllers;
    QueryControllerRows(queries, controllers);
    std::set<ControllerFamily> done;
    for (const auto& controller : controllers) {
        for (const auto& device :
             Associated(queries, *controller, "Win32_PnPDevice", "Win32_PnPEntity")) {
            for (const auto& row : Associated(queries, *device, "Win32_SystemDriverPNPEntity",
                                              "Win32_SystemDriver")) {
                ServingDriver serving;
                serving.controllerId = TextOrEmpty(*controller, "DeviceID");
                serving.name = TextOrEmpty(*row, "Name");
                serving.family = FamilyOfDriver(serving.name);
                serving.isFirstOfFamily = serving.family && done.insert(*serving.family).second;
                drivers.push_back(std::move(serving));
            }
        }
    }
    return drivers;
}

}  // namespace qv
