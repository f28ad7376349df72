#pragma once

#include <string>

#include "NativeAPI/NativeAPI.h"
#include "catalogue/Catalogue.h"
#include "qvsata/linked/ReplayFacts.h"
#include "qvsata/service/InstanceSource.h"
#include "qvsata/service/MachineQueries.h"

namespace qv::service {

/// The provider's core in place of its library; answers as CQVWMISATA_InstProv does.
class LinkedProvider final : public InstanceSource {
public:
    /// The provider sends its queries to `machine`, including those of its own namespace.
    LinkedProvider(Connector machine, ComputerNames names);

    bool Serves(const ResolvedClassPtr& type) const override { return type->isDynamic; }
    Answer Enumerate(const ResolvedClassPtr& type) const override;
    std::optional<Answer> Get(const ResolvedClassPtr& type, std::string_view path) const override;

private:
    Answer Publish(const ResolvedClassPtr& type, const RecordList& records) const;

    MachineQueries queries_;
    RecordedNames host_;
    mutable SilentLog log_;
    NativeAPI api_{PublishedCatalogue(), queries_, host_, log_};
    std::string namespacePrefix_;
};

}  // namespace qv::service
