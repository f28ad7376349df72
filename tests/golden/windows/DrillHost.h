#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "qvsata/cim/Instance.h"
#include "qvsata/hosting/EventSubscription.h"
#include "qvsata/hosting/ManagementHost.h"
#include "qvsata/hosting/substitutes/MonitorPauses.h"
#include "tests/golden/GoldenText.h"
#include "tests/support/windows/RecordedOptions.h"
#include "tests/support/windows/ScratchFolder.h"
#include "tests/support/windows/ScratchRegistry.h"
#include "tests/support/windows/ShortSleeps.h"

namespace qv::test {

/// Runs the library's own monitor thread on one recording after the other, one cycle for each, with
/// log files of its own and without pauses.
class DrillHost {
public:
    using Recordings = std::vector<std::shared_ptr<const service::RecordedHost>>;

    explicit DrillHost(const Recordings& recordings, std::uint32_t logLevel = 3,
                       std::uint32_t legacyLogLevel = 3)
        : settings_(std::make_unique<ScratchRegistry>()) {
        const wchar_t* common = L"Software\\Corvane\\WBEM";
        settings_->SetText(common, L"LogFolder", folder_.Path());
        settings_->SetNumber(common, L"LogLevel", logLevel);
        settings_->SetNumber(common, L"LogMaxSize", 0x2000000);
        const wchar_t* legacy = L"Software\\Corvane\\WBEM\\ServerLOGGING";
        settings_->SetText(legacy, L"LOGFILENAME", folder_.File(L"legacy.log"));
        settings_->SetNumber(legacy, L"LEVEL", legacyLogLevel);
        service::HostOptions options = RecordedOptions(recordings.front(), QV_LIBRARY);
        options.logFolder.reset();
        options.laterRecordings.assign(recordings.begin() + 1, recordings.end());
        host_.emplace(options);
        pauses_.emplace(host_->ProviderModule());
        subscription_.emplace(*host_);
        // Restores the machine's own settings, which tell the host's name.
        settings_.reset();
    }

    /// Returns the indications of the cycle on the current recording. Then selects the next
    /// recording and holds the monitor until the next call.
    std::vector<PublishedInstance> RunCycle() {
        if (std::exchange(held_, true)) {
            pauses_->LetGo();
        }
        EXPECT_EQ(WaitForSingleObject(pauses_->CycleOver(), 180000), WAIT_OBJECT_0);
        std::vector<PublishedInstance> indications;
        for (const auto& indication : subscription_->Take()) {
            indications.push_back(Read(dynamic_cast<const service::Instance&>(*indication)));
        }
        host_->Recordings()->Step();
        return indications;
    }

    /// Returns the indications of one cycle on each recording.
    std::vector<PublishedInstance> RunAll() {
        std::vector<PublishedInstance> all;
        for (std::size_t cycle = 0; cycle < host_->Recordings()->Size(); ++cycle) {
            std::ranges::move(RunCycle(), std::back_inserter(all));
        }
        return all;
    }

    /// Ends the provider, which completes its log.
    void End() { subscription_->End(); }

    /// Returns the legacy log so far.
    std::string LegacyLog() const {
        const std::wstring file = folder_.File(L"legacy.log");
        return std::filesystem::exists(file) ? ReadBytesOf(file) : "";
    }

private:
    /// Returns the puts, in order.
    static PublishedInstance Read(const service::Instance& object) {
        PublishedInstance instance{object.ClassName(), {}};
        for (const service::PutCall& put : object.Puts()) {
            EXPECT_EQ(put.result, Status::noError) << put.name;
            instance.properties.push_back({put.name, put.variantType, put.value, false});
        }
        return instance;
    }

    ScratchFolder folder_;
    std::unique_ptr<ScratchRegistry> settings_;
    ShortSleeps sleeps_;
    std::optional<service::ManagementHost> host_;
    std::optional<service::MonitorPauses> pauses_;
    std::optional<service::EventSubscription> subscription_;
    bool held_ = false;
};

/// Returns event ID and disk device ID, joined by a blank.
inline std::vector<std::string> EventsOf(const std::vector<PublishedInstance>& indications) {
    std::vector<std::string> events;
    for (const PublishedInstance& indication : indications) {
        events.push_back(TextOf(indication, "EventID") + ' ' + TextOf(indication, "DeviceID"));
    }
    return events;
}

/// Returns the recordings of hosts/drill, in order.
inline DrillHost::Recordings Drill() {
    DrillHost::Recordings recordings;
    for (const char* name : {"0-healthy", "1-degraded", "2-predicted", "3-failed", "4-recovered",
                             "5-no-contact", "6-pulled", "7-replaced"}) {
        recordings.push_back(ShippedRecording("hosts/drill/" + std::string(name) + ".json"));
    }
    return recordings;
}

}  // namespace qv::test
