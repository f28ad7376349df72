#include "qvsata/hosting/ProviderSource.h"

#include <string>
#include <utility>

#include "platform/windows/WbemStatus.h"

namespace qv::service {
namespace {

Answer AnswerOf(ProviderAnswer given, std::string_view request) {
    const Status code = windows::ToStatus(given.Status());
    return Succeeded(code) ? Answer{code, {}, std::move(given.objects)}
                           : FailedRequest(code, request, given.exception);
}

bool RefusesQueries(HRESULT status) {
    return status == windows::Hr(WBEM_E_NOT_SUPPORTED) ||
           status == windows::Hr(WBEM_E_PROVIDER_NOT_CAPABLE);
}

}  // namespace

Answer ProviderSource::Enumerate(const ResolvedClassPtr& type) const {
    return AnswerOf(provider_->Enumerate(type->name), "enumerating " + type->name);
}

std::optional<Answer> ProviderSource::Get(const ResolvedClassPtr&, std::string_view path) const {
    return AnswerOf(provider_->Get(path), path);
}

std::optional<Answer> ProviderSource::Query(const ResolvedClassPtr& type,
                                            std::string_view wql) const {
    ProviderAnswer offered = provider_->Query(wql);
    if (RefusesQueries(offered.Status())) {
        return std::nullopt;
    }
    return AnswerOf(std::move(offered), "query on " + type->name);
}

}  // namespace qv::service
