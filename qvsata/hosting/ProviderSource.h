#pragma once

#include <memory>

#include "qvsata/hosting/ProviderObject.h"
#include "qvsata/service/InstanceSource.h"

namespace qv::service {

/// The instances that a provider supplies: those of the dynamic classes.
class ProviderSource final : public InstanceSource {
public:
    explicit ProviderSource(std::shared_ptr<const ProviderObject> provider)
        : provider_(std::move(provider)) {}

    bool Serves(const ResolvedClassPtr& type) const override { return type->isDynamic; }
    Answer Enumerate(const ResolvedClassPtr& type) const override;
    std::optional<Answer> Get(const ResolvedClassPtr& type, std::string_view path) const override;
    /// Returns nothing if the provider refuses queries.
    std::optional<Answer> Query(const ResolvedClassPtr& type, std::string_view wql) const override;

private:
    std::shared_ptr<const ProviderObject> provider_;
};

}  // namespace qv::service
