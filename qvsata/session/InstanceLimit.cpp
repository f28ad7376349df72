#include "qvsata/session/InstanceLimit.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "NativeAPI/KeyPairing.h"
#include "catalogue/Associations.h"
#include "qvsata/cim/StatusCodes.h"
#include "source/Namespaces.h"
#include "source/Text.h"

namespace qv::tool {
namespace {

using service::Answer;
using service::ResolvedClassPtr;

constexpr std::string_view extents = "QV_SATAStorageExtent";

std::string TextIn(const service::RecordedRow& row, std::string_view property) {
    const auto* const text = std::get_if<std::string>(row.FindProperty(property));
    return text == nullptr ? std::string() : *text;
}

/// Returns the texts of a property of those rows of a class that count, without backslashes; none
/// of a class that was not recorded.
std::vector<std::string> StrippedTexts(const service::RecordedHost& host,
                                       std::string_view className, std::string_view property,
                                       bool (*counts)(const service::RecordedRow&)) {
    std::vector<std::string> texts;
    const service::RecordedNamespace* const nameSpace = host.FindNamespace(cimNamespace);
    const service::RecordedClass* const recorded =
        nameSpace == nullptr ? nullptr : nameSpace->Find(className);
    for (std::size_t place = 0; recorded != nullptr && place < recorded->Rows().size(); ++place) {
        const service::RecordedRow& row = recorded->Rows()[place];
        if (counts(row)) {
            texts.push_back(StripBackslashes(TextIn(row, property)));
        }
    }
    return texts;
}

/// Returns whether the provider could join more than `most` links of partitions to the published
/// disks of a host. Links that name no partition count, too.
bool JoinsMore(const service::RecordedHost& host, std::size_t most) {
    const auto isLink = [](const service::RecordedRow&) { return true; };
    const auto isPublished = [](const service::RecordedRow& disk) {
        return TextIn(disk, "InterfaceType") == "IDE";
    };
    return !PairKeysUpTo(
                most, StrippedTexts(host, "Win32_DiskDriveToDiskPartition", "Antecedent", isLink),
                StrippedTexts(host, "Win32_DiskDrive", "DeviceID", isPublished),
                MatchRule::firstContains)
                .has_value();
}

bool HasExtents(const Association& association) {
    return std::ranges::any_of(association.Ends(),
                               [](const AssociationEnd& end) { return end.className == extents; });
}

class LimitedSource final : public service::InstanceSource {
public:
    LimitedSource(std::shared_ptr<const InstanceSource> provider,
                  const service::Namespace& published, std::size_t most, bool refusesExtents)
        : provider_(std::move(provider)),
          published_(published),
          most_(most),
          refusesExtents_(refusesExtents) {}

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
    /// Returns the answer to a request for a class that costs too much; nothing for another.
    std::optional<Answer> Refuse(const ResolvedClassPtr& type) const {
        const auto* const association = std::ranges::find_if(
            associations,
            [&type](const Association& one) { return EqualsIgnoringCase(one.name, type->name); });
        const bool isAssociation = association != associations.end();
        if (refusesExtents_ &&
            (isAssociation ? HasExtents(*association) : EqualsIgnoringCase(type->name, extents))) {
            return Refusal(type->name + " joins more than ", " partitions to disks");
        }
        if (isAssociation && !IsWithinLimit(*association)) {
            return Refusal(type->name + " has more than ", " instances");
        }
        return std::nullopt;
    }

    Answer Refusal(const std::string& subject, const std::string& counted) const {
        return {service::status::quotaViolation,
                subject + std::to_string(most_) + counted + " on this host (--limit)",
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
    bool refusesExtents_;
};

}  // namespace

std::shared_ptr<const service::InstanceSource> WithInstanceLimit(
    std::shared_ptr<const service::InstanceSource> provider, const service::Namespace& published,
    std::span<const std::shared_ptr<const service::RecordedHost>> recordings, std::size_t most) {
    const bool refusesExtents = std::ranges::any_of(
        recordings, [most](const auto& recording) { return JoinsMore(*recording, most); });
    return std::make_shared<const LimitedSource>(std::move(provider), published, most,
                                                 refusesExtents);
}

}  // namespace qv::tool
