#include "qvsata/session/InstanceLimit.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "NativeAPI/KeyPairing.h"
#include "catalogue/Associations.h"
#include "qvsata/cim/StatusCodes.h"
#include "source/Text.h"

namespace qv::tool {
namespace {

using service::Answer;
using service::ResolvedClassPtr;

class LimitedSource final : public service::InstanceSource {
public:
    LimitedSource(std::shared_ptr<const InstanceSource> provider,
                  const service::Namespace& published, std::size_t most)
        : provider_(std::move(provider)), published_(published), most_(most) {}

    bool Serves(const ResolvedClassPtr& type) const override { return provider_->Serves(type); }

    Answer Enumerate(const ResolvedClassPtr& type) const override {
        std::optional<Answer> refusal = Refuse(type);
        return refusal ? *std::move(refusal) : provider_->Enumerate(type);
    }

    std::optional<Answer> Get(const ResolvedClassPtr& type, std::string_view path) const override {
        std::optional<Answer> refusal = Refuse(type);
        return refusal ? std::move(refusal) : provider_->Get(type, path);
    }

    std::optional<Answer> Query(const ResolvedClassPtr& type, std::string_view wql) const override {
        std::optional<Answer> refusal = Refuse(type);
        return refusal ? std::move(refusal) : provider_->Query(type, wql);
    }

private:
    /// Returns the answer to a request for a class with too many instances; nothing for another.
    std::optional<Answer> Refuse(const ResolvedClassPtr& type) const {
        const auto* const association = std::ranges::find_if(
            associations,
            [&type](const Association& one) { return EqualsIgnoringCase(one.name, type->name); });
        if (association == associations.end() || IsWithinLimit(*association)) {
            return std::nullopt;
        }
        return Answer{service::status::quotaViolation,
                      type->name + " has more than " + std::to_string(most_) +
                          " instances on this host (--limit)",
                      {}};
    }

    bool IsWithinLimit(const Association& association) const {
        const auto first = KeysOf(association.first);
        const auto second = KeysOf(association.second);
        if (!association.HasThreeEnds()) {
            return PairKeysUpTo(most_, first, second, association.rule).has_value();
        }
        const auto firsts = PairKeysUpTo(most_, first, second, association.rule);
        if (!firsts) {
            return false;
        }
        // The second key of each pair is paired with the third keys.
        std::vector<std::string> paired;
        for (const auto& places : *firsts) {
            for (const std::size_t place : places) {
                paired.push_back(second[place]);
            }
        }
        return PairKeysUpTo(most_, paired, KeysOf(association.third), association.thirdRule)
            .has_value();
    }

    /// Returns the keys of an end; none if it cannot be enumerated, which the provider then
    /// reports.
    std::vector<std::string> KeysOf(const AssociationEnd& end) const {
        std::vector<std::string> keys;
        for (const service::ObjectPtr& object : published_.Enumerate(end.className).objects) {
            keys.push_back(service::TextOf(*object, end.key));
        }
        return keys;
    }

    std::shared_ptr<const InstanceSource> provider_;
    const service::Namespace& published_;
    std::size_t most_;
};

}  // namespace

std::shared_ptr<const service::InstanceSource> WithInstanceLimit(
    std::shared_ptr<const service::InstanceSource> provider, const service::Namespace& published,
    std::size_t most) {
    return std::make_shared<const LimitedSource>(std::move(provider), published, most);
}

}  // namespace qv::tool
