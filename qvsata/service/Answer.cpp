#include "qvsata/service/Answer.h"

#include "qvsata/cim/StatusCodes.h"

namespace qv::service {

Answer FailedRequest(Status status, std::string_view request, std::string_view exception) {
    Answer answer{status, std::string(request) + ": " + StatusText(status), {}};
    if (!exception.empty()) {
        answer.message.append(": the provider raised an exception: ").append(exception);
    }
    return answer;
}

}  // namespace qv::service
