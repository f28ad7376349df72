#include "qvsata/service/RecordedQueryPort.h"

#include <algorithm>
#include <memory>
#include <type_traits>
#include <utility>

#include "qvsata/service/Utf8.h"

namespace qv::service {
namespace {

constexpr std::uint32_t invalidComputerName = 1210;

class RecordedPortRow : public platform::Row {
public:
    explicit RecordedPortRow(RecordedObject object) : object_(std::move(object)) {}

    platform::PropertyRead Get(std::string_view name) const override {
        const auto value = object_.Get(name);
        if (!value) {
            return {Status::notFound, {}};
        }
        return {Status::noError, ToPlatformValue(*value)};
    }

    Status GetWideText(std::string_view name, std::wstring& text) const override {
        const auto value = object_.Get(name);
        if (!value) {
            return Status::notFound;
        }
        const auto* held = std::get_if<std::string>(&*value);
        if (held == nullptr) {
            return Status::failed;
        }
        text = ToWide(*held);
        return Status::noError;
    }

private:
    RecordedObject object_;
};

}  // namespace

Status RecordedQueryPort::RunWqlQuery(std::string_view nameSpace, std::string_view query,
                                      platform::Rows& rows) const {
    rows.clear();
    QueryAnswer answer = host_.RunQuery(nameSpace, query);
    for (RecordedObject& object : answer.objects) {
        rows.push_back(std::make_shared<RecordedPortRow>(std::move(object)));
    }
    return static_cast<Status>(answer.status);
}

platform::ComputerName RecordedQueryPort::NameInFormat(platform::NameFormat format) const {
    const ComputerNames& names = host_.Computer();
    const std::string& name = format == platform::NameFormat::dnsFullyQualified
                                  ? names.dnsFullyQualified
                              : format == platform::NameFormat::dnsHostname ? names.dnsHostname
                                                                            : names.netbios;
    return name.empty() ? platform::ComputerName{invalidComputerName, {}}
                        : platform::ComputerName{0, ToWide(name)};
}

std::string RecordedQueryPort::ToNarrow(std::wstring_view text) const {
    return ToUtf8(text);
}

platform::Value ToPlatformValue(const CimValue& value) {
    return std::visit(
        [](const auto& held) -> platform::Value {
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
                return held;
            } else {
                return platform::UnreadValue{};
            }
        },
        value);
}

}  // namespace qv::service
