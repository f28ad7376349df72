#include "qvsata/hosting/LiveEnumeration.h"

#include <algorithm>

#include "platform/windows/ComObject.h"
#include "platform/windows/WbemStatus.h"
#include "qvsata/cim/StatusCodes.h"
#include "qvsata/hosting/objects/ObjectReading.h"

namespace qv::service {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr LONG forever = -1;  // WBEM_INFINITE, which is unsigned

LONG MillisecondsUntil(const std::optional<Clock::time_point>& end) {
    if (!end) {
        return forever;
    }
    const milliseconds left = std::chrono::ceil<milliseconds>(*end - Clock::now());
    return static_cast<LONG>(std::max(left, milliseconds(0)).count());
}

}  // namespace

Answer ReadEnumeration(IEnumWbemClassObject& live, std::optional<milliseconds> timeout) {
    std::optional<Clock::time_point> end;
    if (timeout) {
        end = Clock::now() + *timeout;
    }
    Answer answer;
    for (;;) {
        windows::ComPtr<IWbemClassObject> object;
        ULONG returned = 0;
        const HRESULT result = live.Next(MillisecondsUntil(end), 1, &object, &returned);
        if (result == WBEM_S_TIMEDOUT) {
            answer.status = status::timedOut;
        } else if (FAILED(result)) {
            answer.status = windows::ToStatus(result);
        }
        if (result != WBEM_S_NO_ERROR) {
            return answer;
        }
        answer.objects.push_back(ReadObject(*object.Get()));
    }
}

}  // namespace qv::service
