#include "qvsata/service/com/RecordedServices.h"

#include <algorithm>

#include "platform/windows/WbemStatus.h"
#include "qvsata/service/com/QueryCalls.h"
#include "qvsata/service/com/SnapshotObject.h"

namespace qv::service {
namespace {

windows::ComPtr<IWbemClassObject> AsObject(const RecordedObject& recorded) {
    return windows::MakeObject<SnapshotObject>(SnapshotOf(recorded));
}

Answer RunQuery(const RecordedHost& host, const std::string& nameSpace, const std::string& wql) {
    QueryAnswer recorded = host.RunQuery(nameSpace, wql);
    Answer answer{static_cast<HRESULT>(recorded.status), std::move(recorded.message), {}};
    std::ranges::transform(recorded.objects, std::back_inserter(answer.objects), AsObject);
    return answer;
}

Answer Find(const RecordedHost& host, const std::string& nameSpace, const std::string& text) {
    const std::optional<ObjectPath> path = ParseObjectPath(text);
    if (!path) {
        return {windows::Hr(WBEM_E_INVALID_OBJECT_PATH), {}, {}};
    }
    Answer answer;
    if (const std::optional<RecordedObject> found = host.Find(nameSpace, *path)) {
        answer.objects.push_back(AsObject(*found));
    }
    return answer;
}

}  // namespace

HRESULT RecordedServices::GetObject(const BSTR path, long, IWbemContext*, IWbemClassObject** object,
                                    IWbemCallResult**) {
    return GiveObject(path, object,
                      [this](const std::string& text) { return Find(*host_, nameSpace_, text); });
}

HRESULT RecordedServices::CreateInstanceEnum(const BSTR className, long, IWbemContext*,
                                             IEnumWbemClassObject** objects) {
    return GiveObjects(className, objects, [this](const std::string& name) {
        return RunQuery(*host_, nameSpace_, "SELECT * FROM " + name);
    });
}

HRESULT RecordedServices::ExecQuery(const BSTR language, const BSTR query, long, IWbemContext*,
                                    IEnumWbemClassObject** objects) {
    return GiveQueryResult(language, query, objects, [this](const std::string& wql) {
        return RunQuery(*host_, nameSpace_, wql);
    });
}

}  // namespace qv::service
