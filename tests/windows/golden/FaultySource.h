#pragma once

#include <wbemcli.h>

#include <algorithm>
#include <atomic>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "platform/windows/Bstr.h"
#include "platform/windows/ComObject.h"
#include "platform/windows/Text.h"
#include "platform/windows/UnsupportedServices.h"
#include "qvsata/service/com/Locator.h"
#include "tests/windows/golden/PublishingHost.h"
#include "tests/windows/support/CallList.h"
#include "tests/windows/support/RegisteredFactory.h"

// A recorded host one of whose queries fails. Each query comes on a connection of its own.

namespace qv::test {

enum class Stage { connecting, submitting, reading };

struct Fault {
    std::size_t turn = 0;  ///< which of the queries, counted from 0
    Stage stage = Stage::connecting;
    ULONG rows = 0;  ///< how many rows come before reading fails
};

/// What becomes of the queries, and what they were.
struct FaultScript {
    std::optional<Fault> fault;
    std::size_t turn = 0;  ///< of the next connection
    CallList<std::string> asked;

    bool Fails(std::size_t which, Stage stage) const {
        return fault && fault->turn == which && fault->stage == stage;
    }
};

/// Gives so many rows of the whole result and then fails.
class ShortResults : public windows::ComObject<IEnumWbemClassObject> {
    static constexpr HRESULT refused = windows::Hr(WBEM_E_NOT_SUPPORTED);

public:
    ShortResults(windows::ComPtr<IEnumWbemClassObject> whole, ULONG rows)
        : whole_(std::move(whole)), left_(rows) {}

    STDMETHODIMP Reset() override { return refused; }
    STDMETHODIMP Next(LONG timeout, ULONG count, IWbemClassObject** objects,
                      ULONG* returned) override {
        if (left_ == 0) {
            *returned = 0;
            return windows::Hr(WBEM_E_TRANSPORT_FAILURE);
        }
        const HRESULT result = whole_->Next(timeout, std::min(count, left_), objects, returned);
        left_ -= *returned;
        return result;
    }
    STDMETHODIMP NextAsync(ULONG, IWbemObjectSink*) override { return refused; }
    STDMETHODIMP Clone(IEnumWbemClassObject**) override { return refused; }
    STDMETHODIMP Skip(LONG, ULONG) override { return refused; }

private:
    windows::ComPtr<IEnumWbemClassObject> whole_;
    ULONG left_;
};

class FaultyConnection : public windows::UnsupportedServices<windows::ComObject<IWbemServices>> {
public:
    FaultyConnection(FaultScript& script, std::size_t turn, windows::ComPtr<IWbemServices> sound)
        : script_(script), turn_(turn), sound_(std::move(sound)) {}

    STDMETHODIMP ExecQuery(const BSTR language, const BSTR query, long flags, IWbemContext* context,
                           IEnumWbemClassObject** results) override {
        script_.asked.Add(windows::ToNarrow(windows::Bstr::ViewOf(query)));
        if (script_.Fails(turn_, Stage::submitting)) {
            return windows::Hr(WBEM_E_INVALID_CLASS);
        }
        const HRESULT result = sound_->ExecQuery(language, query, flags, context, results);
        if (SUCCEEDED(result) && script_.Fails(turn_, Stage::reading)) {
            *results =
                windows::MakeObject<ShortResults>(windows::Adopt(*results), script_.fault->rows)
                    .Detach();
        }
        return result;
    }

private:
    FaultScript& script_;
    std::size_t turn_;
    windows::ComPtr<IWbemServices> sound_;
};

/// Connects to a recorded host and to the library's namespace in the host that publishes.
class FaultyLocator : public windows::ComObject<IWbemLocator> {
public:
    FaultyLocator(FaultScript& script, service::Connector machine, PublishingHost* host)
        : script_(script), machine_(std::move(machine)), host_(host) {}

    STDMETHODIMP ConnectServer(const BSTR nameSpace, const BSTR, const BSTR, const BSTR, LONG,
                               const BSTR, IWbemContext*, IWbemServices** services) override {
        const std::size_t turn = script_.turn++;
        if (script_.Fails(turn, Stage::connecting)) {
            return windows::Hr(WBEM_E_ACCESS_DENIED);
        }
        windows::ComPtr<IWbemServices> sound;
        if (windows::Bstr::ViewOf(nameSpace) == LR"(root\QVQ)") {
            if (host_ == nullptr) {
                return windows::Hr(WBEM_E_INVALID_NAMESPACE);
            }
            sound = host_->Host().Connect();
        } else if (const HRESULT result = machine_(nameSpace, sound); FAILED(result)) {
            return result;
        }
        *services = windows::MakeObject<FaultyConnection>(script_, turn, sound).Detach();
        return S_OK;
    }

private:
    FaultScript& script_;
    service::Connector machine_;
    PublishingHost* host_;
};

/// A publishing host whose queries come through a script. The locator that was registered first is
/// the one that the library finds; while the host starts, its namespace is not there yet.
class FaultyHost {
public:
    explicit FaultyHost(const service::RecordedHost& recorded)
        : machine_(service::ConnectRecorded(std::make_shared<service::RecordedHost>(recorded))),
          locator_(CLSID_WbemAdministrativeLocator, [this](REFIID iid, void** object) {
              return windows::MakeObject<FaultyLocator>(script_, machine_, host_.get())
                  ->QueryInterface(iid, object);
          }) {
        host_ = std::make_unique<PublishingHost>(recorded);
    }

    /// The instances of a class when there is the fault, or none.
    PublishedInstances Publish(const char* className, std::optional<Fault> fault = {}) {
        script_.fault = fault;
        script_.turn = 0;
        script_.asked.Clear();
        return host_->Publish(className);
    }

    /// The queries of the last request that were submitted.
    std::vector<std::string> Asked() const { return script_.asked.All(); }

private:
    FaultScript script_;
    service::Connector machine_;
    std::unique_ptr<PublishingHost> host_;
    RegisteredFactory locator_;
};

}  // namespace qv::test
