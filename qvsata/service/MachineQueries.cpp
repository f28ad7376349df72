#include "qvsata/service/MachineQueries.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>
#include <vector>

#include "qvsata/cim/Utf8.h"

namespace qv::service {
namespace {

constexpr std::uint32_t invalidComputerName = 1210;

class ObjectRow final : public platform::Row {
public:
    explicit ObjectRow(ObjectPtr object) : object_(std::move(object)) {}

    platform::PropertyRead Get(std::string_view name) const override {
        std::optional<ObjectProperty> property = object_->Find(name);
        return property ? platform::PropertyRead{Status::noError,
                                                 ToPlatformValue(std::move(property->value))}
                        : platform::PropertyRead{Status::notFound, {}};
    }

    Status GetWideText(std::string_view name, std::wstring& text) const override {
        const std::optional<ObjectProperty> property = object_->Find(name);
        if (!property) {
            return Status::notFound;
        }
        const auto* held = std::get_if<std::string>(&property->value);
        if (held == nullptr) {
            return Status::failed;
        }
        text = ToWide(*held);
        return Status::noError;
    }

private:
    ObjectPtr object_;
};

}  // namespace

Status MachineQueries::RunWqlQuery(std::string_view nameSpace, std::string_view query,
                                   platform::Rows& rows) const try {
    rows.clear();
    const Connection connection = machine_(nameSpace);
    if (!connection.services) {
        return connection.status;
    }
    Answer answer = connection.services->Query(query);
    if (!Succeeded(answer.status)) {
        return answer.status;
    }
    // One block of memory for all rows: the queries of a class may read it once per disk.
    const auto block = std::make_shared<const std::vector<ObjectRow>>(
        std::make_move_iterator(answer.objects.begin()),
        std::make_move_iterator(answer.objects.end()));
    rows.reserve(block->size());
    for (const ObjectRow& row : *block) {
        rows.emplace_back(block, &row);
    }
    return Status::noError;
} catch (const std::bad_alloc&) {
    rows.clear();
    return Status::outOfMemory;
}

std::optional<platform::FoundRow> MachineQueries::FindRow(std::string_view nameSpace,
                                                          std::string_view className,
                                                          std::string_view property,
                                                          std::string_view text) const try {
    const Connection connection = machine_(nameSpace);
    if (!connection.services) {
        return platform::FoundRow{};
    }
    FoundObject found = connection.services->FindText(className, property, text);
    if (!Succeeded(found.answer.status)) {
        return platform::FoundRow{};
    }
    platform::FoundRow result{nullptr, found.objectCount};
    if (!found.answer.objects.empty()) {
        result.row = std::make_shared<const ObjectRow>(std::move(found.answer.objects.front()));
    }
    return result;
} catch (const std::bad_alloc&) {
    return platform::FoundRow{};
}

platform::ComputerName RecordedNames::NameInFormat(platform::NameFormat format) const {
    const std::string& name = format == platform::NameFormat::dnsFullyQualified
                                  ? names_.dnsFullyQualified
                              : format == platform::NameFormat::dnsHostname ? names_.dnsHostname
                                                                            : names_.netbios;
    return name.empty() ? platform::ComputerName{invalidComputerName, {}}
                        : platform::ComputerName{0, ToWide(name)};
}

std::string RecordedNames::ToNarrow(std::wstring_view text) const {
    return ToUtf8(text);
}

platform::Value ToPlatformValue(CimValue value) {
    return std::visit(
        [](auto& held) -> platform::Value {
            using T = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<T, std::int64_t>) {
                return static_cast<std::int32_t>(held);
            } else if constexpr (std::is_same_v<T, std::vector<std::int64_t>>) {
                std::vector<std::int32_t> numbers(held.size());
                std::ranges::transform(held, numbers.begin(), [](std::int64_t number) {
                    return static_cast<std::int32_t>(number);
                });
                return numbers;
            } else if constexpr (std::is_constructible_v<platform::Value,
                                                         std::in_place_type_t<T>>) {
                return std::move(held);
            } else {
                return platform::UnreadValue{};
            }
        },
        value);
}

}  // namespace qv::service
