#include "qvsata/service/ProviderHost.h"

#include <algorithm>
#include <iterator>
#include <mutex>
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
    const std::vector<std::filesystem::path>& mofFiles, std::uintmax_t mostBytes) {
    std::vector<std::string> files;
    std::ranges::transform(mofFiles, std::back_inserter(files), Utf8OfPath);
    std::vector<MofSource> sources = LoadMofFiles(files, mostBytes);
    // Most providers that one process starts have the classes of the one before.
    static std::mutex mutex;
    static std::vector<MofSource> lastSources;
    static std::shared_ptr<const PublishedClasses> last;
    const std::scoped_lock lock(mutex);
    if (last == nullptr || sources != lastSources) {
        Namespaces namespaces;
        ReadMof(sources, namespaces);
        last =
            std::make_shared<const PublishedClasses>(std::move(namespaces.Of(providerNamespace)));
        lastSources = std::move(sources);
    }
    return last;
}

}  // namespace qv::service
