#pragma once

#include <algorithm>
#include <atomic>
#include <ostream>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "qvsata/hosting/objects/UnsupportedObject.h"
#include "tests/support/windows/VariantText.h"

namespace qv::test {

/// A call of Put.
struct PutCall {
    std::wstring name;
    VARTYPE type = VT_EMPTY;
    std::wstring value;  ///< in the form of VariantText

    bool operator==(const PutCall&) const = default;

    friend void PrintTo(const PutCall& call, std::ostream* stream) {
        *stream << std::string(call.name.begin(), call.name.end()) << " = (" << call.type << ") "
                << std::string(call.value.begin(), call.value.end());
    }
};

/// An instance that records what is put on it. Used by one thread at a time.
class InstanceStandIn : public service::UnsupportedObject {
public:
    explicit InstanceStandIn(std::set<std::wstring> undefined = {})
        : undefined_(std::move(undefined)) {
        ++living_;
    }

    /// Every Put, in order, including refused ones.
    std::vector<PutCall> puts;

    /// Returns what a reader of the instance finds under a name: the last accepted Put.
    std::wstring Value(std::wstring_view name) const {
        const auto last = std::find_if(puts.rbegin(), puts.rend(),
                                       [name](const PutCall& call) { return call.name == name; });
        return last == puts.rend() || undefined_.contains(last->name) ? L"(none)" : last->value;
    }

    /// Returns the names of the puts, in order.
    std::vector<std::wstring> Names() const {
        std::vector<std::wstring> names(puts.size());
        std::ranges::transform(puts, names.begin(), &PutCall::name);
        return names;
    }

    /// Returns the number of living instances in the process.
    static int Living() { return living_; }

    STDMETHODIMP Put(LPCWSTR name, LONG flags, VARIANT* value, CIMTYPE type) override {
        puts.push_back({name, V_VT(value), VariantText(*value)});
        if (flags != 0 || type != 0) {
            return windows::Hr(WBEM_E_INVALID_PARAMETER);
        }
        return undefined_.contains(name) ? windows::Hr(WBEM_E_NOT_FOUND) : S_OK;
    }

private:
    ~InstanceStandIn() override { --living_; }

    inline static std::atomic<int> living_ = 0;
    std::set<std::wstring> undefined_;
};

}  // namespace qv::test
