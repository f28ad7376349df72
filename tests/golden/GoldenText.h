#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "qvsata/cim/CimValue.h"

// What a provider published, in a form that records and delivered instances both have, and as
// text that a person can compare.

namespace qv::test {

/// A property as it was put. The VARIANT types have the numbers of the platform (wtypes.h).
struct PublishedProperty {
    std::string name;
    std::uint16_t variantType = 0;
    service::CimValue value;  ///< a boolean as its number: true is published as 1
    bool isKey = false;

    bool operator==(const PublishedProperty&) const = default;
};

/// An instance: what was put on it, in the order of the puts.
struct PublishedInstance {
    std::string className;
    std::vector<PublishedProperty> properties;
};

/// The instances of a class, in the order of their delivery.
struct PublishedInstances {
    std::string className;
    std::vector<PublishedInstance> instances;
};

/// What stands in front of a reference: \\server\root\QVQ:
std::string NamespacePrefix(std::string_view server);

/// The text of a property; empty when there is none or it holds no text. Of several puts the last
/// one counts.
std::string TextOf(const PublishedInstance& instance, std::string_view name);

/// The relative path with the keys in the order of the puts, references without the prefix.
std::string PathOf(const PublishedInstance& instance, std::string_view prefix);

/// `VT_I4`, `VT_ARRAY|VT_BSTR`, ...
std::string VariantTypeName(std::uint16_t variantType);

/// `"text"`, `5`, `{"a", "b"}`; `null` for no value.
std::string ValueText(const service::CimValue& value);

/// One line per property under its instance's path, each class with the number of its instances.
std::string GoldenText(const std::vector<PublishedInstances>& published, std::string_view prefix);

}  // namespace qv::test
