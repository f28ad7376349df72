#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "events/AlertIndication.h"
#include "qvsata/cim/Utf8.h"
#include "tests/support/EventHost.h"

namespace qv::test {

/// The system's facts, set by a test.
class SystemStandIn : public platform::SystemFacts {
public:
    platform::OsVersion Version() const override { return version; }
    Status NetworkAddresses(std::vector<std::string>& found) const override {
        found = addresses;
        return addressesStatus;
    }
    Status NewGuid(std::string& guid) const override {
        guid = "{" + std::to_string(++guids_) + "}";
        return guidStatus;
    }

    platform::OsVersion version{6, 1, 7601};
    std::vector<std::string> addresses{"192.0.2.1", "2001:db8::1"};
    Status addressesStatus = Status::noError;
    Status guidStatus = Status::noError;

private:
    mutable int guids_ = 0;
};

/// An indication that records its puts, wide texts in UTF-8, and refuses one property.
class IndicationStandIn : public PropertyTarget {
public:
    Status Put(const PropertyEntry& property) override {
        if (property.name == refused) {
            return refusal;
        }
        puts.push_back(property);
        return Status::noError;
    }
    Status PutWideText(std::string_view name, std::wstring_view text) override {
        return Put({std::string(name), service::ToUtf8(text), PropertyType::string, false});
    }

    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const PropertyEntry& entry : puts) {
            names.push_back(entry.name);
        }
        return names;
    }

    /// Returns the value and type of a property; with an empty name if it was not put.
    PropertyEntry Find(std::string_view name) const {
        const auto found = std::ranges::find(puts, name, &PropertyEntry::name);
        return found == puts.end() ? PropertyEntry{} : *found;
    }
    std::string Value(std::string_view name) const { return Find(name).value; }

    std::vector<PropertyEntry> puts;
    std::string refused;
    Status refusal = static_cast<Status>(0x80041002);
};

/// The queries in root\QVQ; ScriptedHost answers none until a test scripts it.
inline const std::string packageLinks = "select * from QV_ComputerSystemPackage";
inline const std::string firmwareLinks = "select * from QV_SystemROMElementFirmwareIdentity";
inline const std::string softwareQuery = "select * from QV_SoftwareIdentity";
inline const std::string enclosureQuery = "SELECT * FROM QV_BladeEnclosureCS";
inline const std::string bladeQuery = "SELECT * FROM QV_BladeCSLocation";
inline const std::string metadataQuery = R"(SELECT * FROM QV_ErrorMetadataForAlertIndication )"
                                         R"(WHERE ErrorID1 = "QV SATA"  AND ErrorID2 = "605")";

class AlertTest : public testing::Test {
protected:
    Status Fill(std::string_view providerName = "QV SATA") {
        return FillCommonProperties(indication, providerName, "605", {host, host, system, clock});
    }

    ScriptedHost host;
    SystemStandIn system;
    ClockStandIn clock;
    IndicationStandIn indication;
};

}  // namespace qv::test
