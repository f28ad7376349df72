#pragma once

#include <wbemprov.h>

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/windows/Bstr.h"
#include "platform/windows/UnsupportedServices.h"
#include "tests/support/windows/CallList.h"
#include "tests/support/windows/RegisteredFactory.h"
#include "tests/support/windows/RowStandIn.h"

// A source of rows in place of the management service, behind the administrative locator.

namespace qv::test {

/// The answer of one Next.
struct Batch {
    HRESULT status = WBEM_S_FALSE;
    std::vector<windows::ComPtr<IWbemClassObject>> rows;
};

/// The answer to a query. After the last batch Next returns WBEM_S_FALSE and no object.
struct QueryScript {
    HRESULT submitted = S_OK;
    std::vector<Batch> batches;
};

struct ConnectCall {
    std::wstring nameSpace;
    bool plain = false;  ///< no user, password, locale, authority, context and no flags

    bool operator==(const ConnectCall&) const = default;
};

struct QueryCall {
    std::wstring nameSpace;
    std::wstring language;
    std::wstring query;
    long flags = -1;
    bool withContext = true;

    bool operator==(const QueryCall&) const = default;
};

struct NextCall {
    long timeout = -1;
    ULONG count = 0;

    bool operator==(const NextCall&) const = default;
};

/// The scripted answers, set up before the first query, and the calls.
struct SourceScript {
    virtual ~SourceScript() = default;

    HRESULT created = S_OK;                       ///< creating the locator
    HRESULT connected = S_OK;                     ///< connecting to a namespace
    std::map<std::wstring, QueryScript> queries;  ///< by text; other queries have no rows

    /// Called when a Next returns its objects.
    std::function<void()> afterNext = [] {};

    CallList<ConnectCall> connects;
    CallList<QueryCall> asked;
    CallList<NextCall> nexts;

    /// Answers a query with at most ten rows.
    void Answer(const std::wstring& query, std::vector<Cells> rows) {
        queries[query] = InOneBatch(std::move(rows));
    }

    /// Returns the answer to a query, on the thread that submits it.
    virtual QueryScript Find(const std::wstring& query) {
        const auto found = queries.find(query);
        return found == queries.end() ? QueryScript() : found->second;
    }

    static QueryScript InOneBatch(std::vector<Cells> rows) {
        Batch batch;
        for (Cells& row : rows) {
            batch.rows.push_back(MakeRow(std::move(row)));
        }
        return {S_OK, {std::move(batch)}};
    }

    void Forget() {
        connects.Clear();
        asked.Clear();
        nexts.Clear();
    }
};

class ResultsStandIn : public windows::ComObject<IEnumWbemClassObject> {
    static constexpr HRESULT refused = windows::Hr(WBEM_E_NOT_SUPPORTED);

public:
    ResultsStandIn(SourceScript& source, std::vector<Batch> batches)
        : source_(source), batches_(std::move(batches)) {}

    STDMETHODIMP Reset() override { return refused; }
    STDMETHODIMP Next(long timeout, ULONG count, IWbemClassObject** objects,
                      ULONG* returned) override {
        source_.nexts.Add({timeout, count});
        *returned = 0;
        if (turn_ == batches_.size()) {
            return WBEM_S_FALSE;
        }
        const Batch& batch = batches_[turn_++];
        for (const auto& row : batch.rows) {
            row.CopyTo(&objects[(*returned)++]);
        }
        source_.afterNext();
        return batch.status;
    }
    STDMETHODIMP NextAsync(ULONG, IWbemObjectSink*) override { return refused; }
    STDMETHODIMP Clone(IEnumWbemClassObject**) override { return refused; }
    STDMETHODIMP Skip(long, ULONG) override { return refused; }

private:
    SourceScript& source_;
    std::vector<Batch> batches_;
    std::size_t turn_ = 0;
};

class ConnectionStandIn : public windows::UnsupportedServices<windows::ComObject<IWbemServices>> {
public:
    ConnectionStandIn(SourceScript& source, std::wstring nameSpace)
        : source_(source), nameSpace_(std::move(nameSpace)) {}

    STDMETHODIMP ExecQuery(const BSTR language, const BSTR query, long flags, IWbemContext* context,
                           IEnumWbemClassObject** results) override {
        const std::wstring text(windows::Bstr::ViewOf(query));
        source_.asked.Add({nameSpace_, std::wstring(windows::Bstr::ViewOf(language)), text, flags,
                           context != nullptr});
        const QueryScript script = source_.Find(text);
        if (SUCCEEDED(script.submitted)) {
            *results = windows::MakeObject<ResultsStandIn>(source_, script.batches).Detach();
        }
        return script.submitted;
    }

private:
    SourceScript& source_;
    std::wstring nameSpace_;
};

class LocatorStandIn : public windows::ComObject<IWbemLocator> {
public:
    explicit LocatorStandIn(SourceScript& source) : source_(source) {}

    STDMETHODIMP ConnectServer(const BSTR nameSpace, const BSTR user, const BSTR password,
                               const BSTR locale, long flags, const BSTR authority,
                               IWbemContext* context, IWbemServices** services) override {
        std::wstring name(windows::Bstr::ViewOf(nameSpace));
        source_.connects.Add({name, user == nullptr && password == nullptr && locale == nullptr &&
                                        flags == 0 && authority == nullptr && context == nullptr});
        if (SUCCEEDED(source_.connected)) {
            *services = windows::MakeObject<ConnectionStandIn>(source_, std::move(name)).Detach();
        }
        return source_.connected;
    }

private:
    SourceScript& source_;
};

/// Replaces the system's source while it lives.
class SourceStandIn : public SourceScript {
public:
    SourceStandIn()
        : factory_(CLSID_WbemAdministrativeLocator, [this](REFIID iid, void** object) {
              return FAILED(created)
                         ? created
                         : windows::MakeObject<LocatorStandIn>(*this)->QueryInterface(iid, object);
          }) {}

private:
    RegisteredFactory factory_;
};

}  // namespace qv::test
