// QV_SATAPortControllerBIOS, QV_SATAPortControllerFW and QV_SATAPortControllerDriver: at most one
// instance of each class per family of controllers, for the first Win32_IDEController row (channels
// included) that a driver of the family serves.
#include <array>

#include "NativeAPI/NativeAPI.h"
#include "NativeAPI/ServingDrivers.h"
#include "source/SourceRules.h"
#include "source/Text.h"

namespace qv {
namespace {

/// The texts of a class for one family. An empty name means the driver's own name.
struct FamilyTexts {
    std::string_view name;
    std::string_view caption;
    std::string_view description;
    std::string_view manufacturer;
    bool hasVersion;
};

/// The constants of a class: the classification code, and a row of texts per ControllerFamily.
struct SoftwareClass {
    std::string_view classification;
    std::array<FamilyTexts, 3> families;
};

constexpr std::string_view ideBiosMaker = "Standard IDE/ATA Controllers BIOS";
constexpr std::string_view ideFirmwareMaker = "Standard IDE/ATA Controllers firmware";
constexpr std::string_view ahciDriver = "Standard SATA Controllers Driver";
constexpr std::string_view ideDriver = "Standard IDE ATA/ATAPI Controllers Driver";

// The ATAPI family has no version, on purpose.
constexpr SoftwareClass bios{
    "6",
    {{{"SATA BIOS", "SATA BIOS", "SATA BIOS", "Standard SATA Controllers BIOS", true},
      {"IDE/ATA BIOS", "IDE/ATA BIOS", "IDE/ATA BIOS", ideBiosMaker, true},
      {"IDE/ATA BIOS", "IDE/ATA BIOS", "IDE/ATA BIOS", ideBiosMaker, false}}}};

constexpr SoftwareClass firmware{
    "10",
    {{{"SATA firmware", "SATA firmware", "SATA firmware", "Standard SATA Controllers firmware",
       true},
      {"IDE/ATA firmware", "IDE/ATA firmware", "IDE/ATA firmware", ideFirmwareMaker, true},
      {"IDE/ATA firmware", "IDE/ATA firmware", "IDE/ATA firmware", ideFirmwareMaker, false}}}};

constexpr SoftwareClass driver{"2",
                               {{{"", "NATIVE SATA Driver", ahciDriver, ahciDriver, false},
                                 {"", "PCI IDE Driver", ideDriver, ideDriver, false},
                                 {"", "ATAPI Driver", ideDriver, ideDriver, false}}}};

void PutDetails(InstanceRecord& record, const SoftwareClass& software, const FamilyTexts& texts,
                const std::string& deviceId, const std::string& driverName) {
    const auto put = [&record](std::string_view name, std::string_view value,
                               PropertyType type = PropertyType::string) {
        SetProperty(record, name, std::string(value), type);
    };
    put("Name", texts.name.empty() ? driverName : texts.name);
    put("Classifications", software.classification, PropertyType::int32Array);
    put("IdentityInfoType", "CIM:SoftwareFamily", PropertyType::stringArray);
    put("IdentityInfoValue", "QVQ:" + deviceId, PropertyType::stringArray);
    put("Caption", texts.caption);
    put("ElementName", texts.caption);
    put("Description", texts.description);
    put("Manufacturer", texts.manufacturer);
    put("ClassificationDescriptions", texts.description, PropertyType::stringArray);
    if (texts.hasVersion) {
        put("VersionString", RevisionOf(deviceId));
    }
}

RecordList BuildSoftware(const platform::QueryPort& queries, const Request& request,
                         const SoftwareClass& software) {
    RecordList records;
    for (const ServingDriver& serving : QueryServingDrivers(queries)) {
        // Before the path check, on purpose: a path that names a later controller of the family
        // finds nothing.
        if (!serving.IsPublished()) {
            continue;
        }
        InstanceRecord record(request.className);
        SetKeyProperty(record, "InstanceID",
                       "QV:" + record.className + ":" + EncodeDeviceId(serving.controllerId));
        if (!request.Accepts(record)) {
            continue;
        }
        if (request.WantsAllProperties()) {
            PutDetails(record, software,
                       software.families[static_cast<std::size_t>(*serving.family)],
                       serving.controllerId, serving.name);
        }
        AppendRecord(records, std::move(record));
    }
    return records;
}

}  // namespace

RecordList NativeAPI::getQV_SATAPortControllerBIOS(const Request& request) const {
    return BuildSoftware(queries_, request, bios);
}

RecordList NativeAPI::getQV_SATAPortControllerFW(const Request& request) const {
    return BuildSoftware(queries_, request, firmware);
}

RecordList NativeAPI::getQV_SATAPortControllerDriver(const Request& request) const {
    return BuildSoftware(queries_, request, driver);
}

}  // namespace qv
