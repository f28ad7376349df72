#include <algorithm>
#include <iterator>
#include <memory>
#include <utility>

#include "qvsata/linked/LinkedEvents.h"
#include "qvsata/linked/LinkedProvider.h"
#include "qvsata/service/JournaledMachine.h"
#include "qvsata/service/ProviderHost.h"
#include "qvsata/service/PublishedNamespace.h"
#include "qvsata/service/RecordedMachine.h"
#include "qvsata/service/StartProvider.h"

namespace qv::service {
namespace {

/// Runs the provider's core on recordings of a computer.
class LinkedHost final : public ProviderHost {
public:
    explicit LinkedHost(const HostOptions& options)
        : names_(options.recorded->Computer()),
          journal_(options.journal),
          recordings_(std::make_shared<RecordingSequence>(RecordingsOf(options))),
          namespace_(OpenPublished(*options.classes, names_.server)),
          machine_(WithPublished(namespace_, WithJournal(ConnectRecorded(recordings_),
                                                         MachineKind::recorded, journal_))) {
        AttachProvider(*namespace_, std::make_shared<const LinkedProvider>(machine_, names_),
                       options);
    }
    LinkedHost(const LinkedHost&) = delete;
    LinkedHost& operator=(const LinkedHost&) = delete;
    // The namespace and its provider refer to each other.
    ~LinkedHost() override { namespace_->Attach(nullptr); }

    const Namespace& Published() const override { return *namespace_; }
    const Connector& Machine() const override { return machine_; }
    RecordedHost Computer() const override { return recordings_->Present()->WithoutRows(); }
    SourceJournal& Journal() const override { return *journal_; }
    RecordingSequence* Recordings() const override { return recordings_.get(); }
    std::unique_ptr<EventFeed> Subscribe() const override {
        return std::make_unique<LinkedEvents>(*namespace_, machine_, names_);
    }

private:
    ComputerNames names_;
    std::shared_ptr<SourceJournal> journal_;
    std::shared_ptr<RecordingSequence> recordings_;
    std::shared_ptr<Namespace> namespace_;
    Connector machine_;
};

}  // namespace

std::unique_ptr<ProviderHost> StartProvider(const HostOptions& options) {
    return std::make_unique<LinkedHost>(options);
}

std::string WhyNotStarted(const HostOptions& options) {
    constexpr const char* needsWindows = " needs Windows; this program replays recordings (--host)";
    if (!options.recorded) {
        return std::string("--live") + needsWindows;
    }
    if (!options.library.empty()) {
        return std::string("--dll") + needsWindows;
    }
    if (options.logFolder && !options.logFolder->empty()) {
        return std::string("--log") + needsWindows;
    }
    return options.registered ? std::string("--registered") + needsWindows : std::string();
}

}  // namespace qv::service
