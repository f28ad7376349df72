#include "qvsata/service/ProviderHost.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>

#include "qvsata/cim/Utf8.h"
#include "qvsata/mof/MofReader.h"
#include "source/Namespaces.h"

namespace qv::service {

std::vector<std::shared_ptr<const RecordedHost>> RecordingsOf(const HostOptions& options) {
    std::vector recordings{options.recorded};
    std::ranges::copy(options.laterRecordings, std::back_inserter(recordings));
    return recordings;
}

void AttachProvider(Namespace& published, std::shared_ptr<const InstanceSource> provider,
                    const HostOptions& options) {
    published.Attach(options.guard ? options.guard(std::move(provider), published)
                                   : std::move(provider));
}

std::shared_ptr<const PublishedClasses> ReadPublishedClasses(
    const std::vector<std::filesystem::path>& mofFiles) {
    std::vector<std::string> files;
    std::ranges::transform(mofFiles, std::back_inserter(files), Utf8OfPath);
    Namespaces namespaces;
    ReadMofFiles(files, namespaces);
    return std::make_shared<const PublishedClasses>(std::move(namespaces.Of(providerNamespace)));
}

}  // namespace qv::service
