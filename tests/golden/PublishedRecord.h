#pragma once

#include <string>

#include "source/TypedValue.h"
#include "tests/golden/GoldenText.h"

namespace qv::test {

/// Returns the VARIANT type in which a value is published.
inline std::uint16_t VariantType(const TypedValue& value) {
    constexpr std::uint16_t array = 0x2000;
    constexpr std::uint16_t types[] = {1, 8, 8, 17, 3, 11, array | 8, array | 3};
    return types[value.index()];
}

/// Returns a value as an instance holds it; `prefix`: the server and the namespace of references.
inline service::CimValue AsPublished(const TypedValue& value, const std::string& prefix) {
    using service::CimValue;
    struct Converter {
        const std::string& prefix;

        CimValue operator()(std::monostate) const { return {}; }
        CimValue operator()(const std::string& text) const { return text; }
        CimValue operator()(const Reference& reference) const { return prefix + reference.path; }
        CimValue operator()(std::uint8_t number) const { return std::int64_t{number}; }
        CimValue operator()(std::int32_t number) const { return std::int64_t{number}; }
        CimValue operator()(bool flag) const { return std::int64_t{flag ? 1 : 0}; }
        CimValue operator()(const std::vector<std::string>& texts) const { return texts; }
        CimValue operator()(const std::vector<std::int32_t>& numbers) const {
            return std::vector<std::int64_t>(numbers.begin(), numbers.end());
        }
    };
    return std::visit(Converter{prefix}, value);
}

/// Returns a record in the form of its published instance.
inline PublishedInstance AsPublished(const InstanceRecord& record, const std::string& prefix) {
    PublishedInstance instance{record.className, {}};
    for (const PropertyEntry& entry : record.properties) {
        TypedValue value;
        if (ToTypedValue(entry, value)) {
            instance.properties.push_back(
                {entry.name, VariantType(value), AsPublished(value, prefix), entry.key});
        }
    }
    return instance;
}

}  // namespace qv::test
