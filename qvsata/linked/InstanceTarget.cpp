#include "qvsata/linked/InstanceTarget.h"

#include <string>
#include <variant>

#include "qvsata/cim/PutRules.h"
#include "qvsata/cim/Utf8.h"

namespace qv::service {

Status InstanceTarget::Put(const PropertyEntry& property) {
    TypedValue value;
    if (!ToTypedValue(property, value)) {
        return Status::invalidCimType;
    }
    if (auto* reference = std::get_if<qv::Reference>(&value)) {
        reference->path.insert(0, namespacePrefix_);
    }
    return PutOn(instance_, property.name, AsPut(value));
}

Status InstanceTarget::PutWideText(std::string_view name, std::wstring_view text) {
    return PutOn(instance_, name, {variant::text, ToUtf8(text)});
}

}  // namespace qv::service
