#include "qvsata/service/com/EmbeddedServices.h"

#include "qvsata/service/com/QueryCalls.h"

namespace qv::service {

HRESULT EmbeddedServices::GetObject(const BSTR path, long, IWbemContext*, IWbemClassObject** object,
                                    IWbemCallResult**) {
    return GiveObject(path, object,
                      [this](const std::string& text) { return nameSpace_->Get(text); });
}

HRESULT EmbeddedServices::CreateInstanceEnum(const BSTR className, long, IWbemContext*,
                                             IEnumWbemClassObject** objects) {
    return GiveObjects(className, objects,
                       [this](const std::string& name) { return nameSpace_->Enumerate(name); });
}

HRESULT EmbeddedServices::ExecQuery(const BSTR language, const BSTR query, long, IWbemContext*,
                                    IEnumWbemClassObject** objects) {
    return GiveQueryResult(language, query, objects,
                           [this](const std::string& wql) { return nameSpace_->Query(wql); });
}

}  // namespace qv::service
