#pragma once

#include <wbemcli.h>

#include <algorithm>
#include <atomic>
#include <memory>
#include <new>
#include <optional>
#include <span>
#include <string>
#include <utility>

#include "platform/windows/Bstr.h"
#include "platform/windows/ComObject.h"
#include "platform/windows/Text.h"
#include "platform/windows/UnsupportedServices.h"
#include "qvsata/hosting/ServicesFace.h"
#include "qvsata/hosting/objects/UnsupportedObject.h"
#include "qvsata/hosting/substitutes/Locator.h"
#include "qvsata/service/RecordedMachine.h"
#include "tests/golden/windows/PublishingHost.h"
#include "tests/support/windows/CallList.h"
#include "tests/support/windows/RegisteredFactory.h"

// A recorded host one of whose queries fails. Each query comes on a connection of its own.

namespace qv::test {

/// Where a query fails; `exhausted`: its rows come, and there is no memory to read one.
enum class Stage { connecting, submitting, reading, exhausted };

struct Fault {
    std::size_t turn = 0;  ///< which of the queries, counted from 0
    Stage stage = Stage::connecting;
    ULONG rows = 0;  ///< how many rows come before reading fails
};

/// What becomes of the queries, and what they were.
struct FaultScript {
    std::optional<Fault> fault;
    std::size_t turn = 0;         ///< of the next connection
    CallList<std::string> asked;  ///< "namespace: query"

    bool Fails(std::size_t which, Stage stage) const {
        return fault && fault->turn == which && fault->stage == stage;
    }
};

/// The results of a query, which its derived classes spoil.
class SpoiltResults : public windows::ComObject<IEnumWbemClassObject> {
    static constexpr HRESULT refused = windows::Hr(WBEM_E_NOT_SUPPORTED);

public:
    explicit SpoiltResults(windows::ComPtr<IEnumWbemClassObject> whole)
        : whole_(std::move(whole)) {}

    STDMETHODIMP Reset() override { return refused; }
    STDMETHODIMP NextAsync(ULONG, IWbemObjectSink*) override { return refused; }
    STDMETHODIMP Clone(IEnumWbemClassObject**) override { return refused; }
    STDMETHODIMP Skip(LONG, ULONG) override { return refused; }

protected:
    IEnumWbemClassObject& Whole() { return *whole_.Get(); }

private:
    windows::ComPtr<IEnumWbemClassObject> whole_;
};

/// Gives so many rows of the whole result and then fails.
class ShortResults : public SpoiltResults {
public:
    ShortResults(windows::ComPtr<IEnumWbemClassObject> whole, ULONG rows)
        : SpoiltResults(std::move(whole)), left_(rows) {}

    STDMETHODIMP Next(LONG timeout, ULONG count, IWbemClassObject** objects,
                      ULONG* returned) override {
        if (left_ == 0) {
            *returned = 0;
            return windows::Hr(WBEM_E_TRANSPORT_FAILURE);
        }
        const HRESULT result = Whole().Next(timeout, std::min(count, left_), objects, returned);
        left_ -= *returned;
        return result;
    }

private:
    ULONG left_;
};

/// Gives as many rows as there are, none of which can be read for want of memory.
class ExhaustedResults : public SpoiltResults {
    class Row : public service::UnsupportedObject {
    public:
        STDMETHODIMP Get(LPCWSTR, LONG, VARIANT*, CIMTYPE*, LONG*) override {
            throw std::bad_alloc();
        }
    };

public:
    using SpoiltResults::SpoiltResults;

    STDMETHODIMP Next(LONG timeout, ULONG count, IWbemClassObject** objects,
                      ULONG* returned) override {
        const HRESULT result = Whole().Next(timeout, count, objects, returned);
        for (IWbemClassObject*& object : std::span(objects, *returned)) {
            object->Release();
            object = windows::MakeObject<Row>().Detach();
        }
        return result;
    }
};

class FaultyConnection : public windows::UnsupportedServices<windows::ComObject<IWbemServices>> {
public:
    FaultyConnection(FaultScript& script, std::size_t turn, std::string nameSpace,
                     windows::ComPtr<IWbemServices> sound)
        : script_(script),
          turn_(turn),
          nameSpace_(std::move(nameSpace)),
          sound_(std::move(sound)) {}

    STDMETHODIMP ExecQuery(const BSTR language, const BSTR query, long flags, IWbemContext* context,
                           IEnumWbemClassObject** results) override {
        script_.asked.Add(nameSpace_ + ": " + windows::ToNarrow(windows::Bstr::ViewOf(query)));
        if (script_.Fails(turn_, Stage::submitting)) {
            return windows::Hr(WBEM_E_INVALID_CLASS);
        }
        const HRESULT result = sound_->ExecQuery(language, query, flags, context, results);
        if (SUCCEEDED(result) && script_.Fails(turn_, Stage::reading)) {
            *results =
                windows::MakeObject<ShortResults>(windows::Adopt(*results), script_.fault->rows)
                    .Detach();
        }
        if (SUCCEEDED(result) && script_.Fails(turn_, Stage::exhausted)) {
            *results = windows::MakeObject<ExhaustedResults>(windows::Adopt(*results)).Detach();
        }
        return result;
    }

private:
    FaultScript& script_;
    std::size_t turn_;
    std::string nameSpace_;
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
        } else {
            const service::Connection connection =
                machine_(windows::ToNarrow(windows::Bstr::ViewOf(nameSpace)));
            if (!connection.services) {
                return windows::ToHresult(connection.status);
            }
            sound = windows::MakeObject<service::ServicesFace>(connection.services);
        }
        *services = windows::MakeObject<FaultyConnection>(
                        script_, turn, windows::ToNarrow(windows::Bstr::ViewOf(nameSpace)), sound)
                        .Detach();
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
        Expect(fault);
        return host_->Publish(className);
    }

    /// The provider, whose next request meets the fault, or none.
    const service::ProviderObject& Provider(std::optional<Fault> fault = {}) {
        Expect(fault);
        return host_->Host().Provider();
    }

    /// The queries of the last request that were submitted, as "namespace: query".
    std::vector<std::string> Asked() const { return script_.asked.All(); }

private:
    void Expect(std::optional<Fault> fault) {
        script_.fault = fault;
        script_.turn = 0;
        script_.asked.Clear();
    }

    FaultScript script_;
    service::Connector machine_;
    std::unique_ptr<PublishingHost> host_;
    RegisteredFactory locator_;
};

}  // namespace qv::test
