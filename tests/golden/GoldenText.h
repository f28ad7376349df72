#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "qvsata/cim/VariantType.h"

// What a provider published, in one form for records and delivered instances, and as text for
// reviews.

namespace qv::test {

/// A property as it was put.
struct PublishedProperty {
    std::string name;
    service::VariantType variantType = 0;
    service::CimValue value;  ///< a boolean as its number: true is published as 1
    bool isKey = false;

    bool operator==(const PublishedProperty&) const = default;
};

/// An instance: its puts in order.
struct PublishedInstance {
    std::string className;
    std::vector<PublishedProperty> properties;
};

/// The instances of a class, in the order of delivery.
struct PublishedInstances {
    std::string className;
    std::vector<PublishedInstance> instances;
};

/// Returns the prefix of a reference: \\server\root\QVQ:
std::string NamespacePrefix(std::string_view server);

/// Returns the text of a property; empty if it is missing or holds no text. Of several puts the
/// last one counts.
std::string TextOf(const PublishedInstance& instance, std::string_view name);

/// Returns the relative path with the keys in the order of the puts, references without the prefix.
std::string PathOf(const PublishedInstance& instance, std::string_view prefix);

/// Returns `VT_I4`, `VT_ARRAY|VT_BSTR`, ...
std::string VariantTypeName(service::VariantType variantType);

/// Returns `"text"`, `5`, `{"a", "b"}`; `null` for no value.
std::string ValueText(const service::CimValue& value);

/// Returns one line per property under its instance's path, each class with its number of
/// instances.
std::string GoldenText(const std::vector<PublishedInstances>& published, std::string_view prefix);

}  // namespace qv::test
