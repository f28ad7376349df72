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

// A recorded host one of whose queries fails. Each query uses its own connection.

namespace qv::test {

/// Where a query fails; `exhausted`: memory runs out while one of its rows is read.
enum class Stage { connecting, submitting, reading, exhausted };

struct Fault {
    std::size_t turn = 0;  ///< the query's number, from 0
    Stage stage = Stage::connecting;
    ULONG rows = 0;  ///< how many rows arrive before reading fails
};

/// The fault, and the queries.
struct FaultScript {
    std::optional<Fault> fault;
    std::size_t turn = 0;         ///< of the next connection
    CallList<std::string> asked;  ///< "namespace: query"

    bool Fails(std::size_t which, Stage stage) const {
        return fault && fault->turn == which && fault->stage == stage;
    }
};

/// The results of a query; derived classes add the fault.
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

/// Returns the given number of rows, then fails.
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

/// Returns every row, but reading a row throws std::bad_alloc.
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

/// Connects to a recorded host and to the library's namespace in the publishing host.
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

/// A publishing host whose queries run through a script. The library finds the locator that was
/// registered first; the host's namespace does not exist while the host starts.
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

    /// Returns the instances of a class with or without a fault.
    PublishedInstances Publish(const char* className, std::optional<Fault> fault = {}) {
        Expect(fault);
        return host_->Publish(className);
    }

    /// Returns the provider; the fault, if any, affects its next request.
    const service::ProviderObject& Provider(std::optional<Fault> fault = {}) {
        Expect(fault);
        return host_->Host().Provider();
    }

    /// Returns the submitted queries of the last request, as "namespace: query".
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
