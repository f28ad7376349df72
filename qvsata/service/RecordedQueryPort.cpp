#include "qvsata/service/RecordedQueryPort.h"

#include <algorithm>
#include <memory>
#include <type_traits>
#include <utility>

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

private:
    RecordedObject object_;
};

}  // namespace

platform::QueryResult RecordedQueryPort::RunWqlQuery(std::string_view nameSpace,
                                                     std::string_view query,
                                                     platform::Rows& rows) const {
    rows.clear();
    QueryAnswer answer = host_.RunQuery(nameSpace, query);
    for (RecordedObject& object : answer.objects) {
        rows.push_back(std::make_shared<RecordedPortRow>(std::move(object)));
    }
    return answer.status == QueryStatus::ok ? platform::QueryResult::submitted
                                            : platform::QueryResult::failed;
}

platform::ComputerName RecordedQueryPort::NameInFormat(platform::NameFormat format) const {
    const ComputerNames& names = host_.Computer();
    const std::string& name = format == platform::NameFormat::dnsFullyQualified
                                  ? names.dnsFullyQualified
                              : format == platform::NameFormat::dnsHostname ? names.dnsHostname
                                                                            : names.netbios;
    return name.empty() ? platform::ComputerName{invalidComputerName, {}}
                        : platform::ComputerName{0, name};
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
