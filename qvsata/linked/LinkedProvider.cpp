#include "qvsata/linked/LinkedProvider.h"

#include <algorithm>
#include <exception>
#include <memory>
#include <new>
#include <utility>

#include "platform/ObjectPathLimit.h"
#include "qvsata/cim/PathParts.h"
#include "qvsata/cim/StatusCodes.h"
#include "qvsata/cim/Utf8.h"
#include "qvsata/linked/InstanceTarget.h"
#include "qvsata/service/PublishedNamespace.h"
#include "source/FillInstance.h"
#include "source/HostIdentity.h"
#include "source/Namespaces.h"

namespace qv::service {
namespace {

/// Returns the length of a text in the units of the platform's wide text.
std::size_t WideLength(std::string_view utf8) {
    std::size_t length = 0;
    for (const char character : utf8) {
        const auto byte = static_cast<unsigned char>(character);
        const bool continues = (byte & 0xC0U) == 0x80U;
        length += continues ? 0 : (byte >= 0xF0U ? 2 : 1);
    }
    return length;
}

/// Runs a request to the provider; an exception becomes the request's failure.
template <typename Body>
Answer RunRequest(std::string_view request, Body body) {
    try {
        return body();
    } catch (const RequestError& error) {
        return FailedRequest(error.status(), request, error.what());
    } catch (const std::bad_alloc& error) {
        return FailedRequest(Status::outOfMemory, request, error.what());
    } catch (const std::exception& error) {
        return FailedRequest(status::providerFailure, request, error.what());
    }
}

}  // namespace

LinkedProvider::LinkedProvider(Connector machine, ComputerNames names)
    : queries_(std::move(machine)),
      host_(std::move(names)),
      namespacePrefix_(ToUtf8(BuildNamespacePrefix(queries_, ToWide(providerNamespace), {}))) {}

Answer LinkedProvider::Publish(const ResolvedClassPtr& type, const RecordList& records) const {
    Answer answer;
    for (const InstanceRecord& record : records) {
        auto instance = std::make_shared<Instance>(type);
        InstanceTarget target(*instance, namespacePrefix_);
        answer.status = FillInstance(target, record);
        if (!Succeeded(answer.status)) {
            break;
        }
        answer.objects.push_back(std::move(instance));
    }
    return answer;
}

Answer LinkedProvider::Enumerate(const ResolvedClassPtr& type) const {
    const std::string request = "enumerating " + type->name;
    return RunRequest(request, [&] {
        Answer answer = Publish(type, api_.BuildInstances(type->name, mode::allProperties, {}));
        return Succeeded(answer.status) ? std::move(answer) : FailedRequest(answer.status, request);
    });
}

std::optional<Answer> LinkedProvider::Get(const ResolvedClassPtr& type,
                                          std::string_view path) const {
    return RunRequest(path, [&]() -> Answer {
        const std::optional<PathParts> parts = CutPath(path);
        if (!parts) {
            return FailedRequest(status::invalidParameter, path);
        }
        if (WideLength(parts->relative) > platform::longestRelativePath) {
            return FailedRequest(status::bufferTooSmall, path);
        }
        const auto record = api_.FindInstance(parts->className, parts->relative);
        return record ? Publish(type, {*record}) : FailedRequest(Status::notFound, path);
    });
}

}  // namespace qv::service
