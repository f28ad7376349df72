#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/Status.h"
#include "qvsata/cim/Object.h"
#include "qvsata/cim/ResolvedClass.h"
#include "qvsata/cim/VariantType.h"

namespace qv::service {

/// One Put of a provider on an instance: the value it passed and the result.
struct PutCall {
    std::string name;                         ///< as the provider spelled it
    VariantType variantType = variant::null;  ///< `null` also for a null pointer
    CimValue value;                           ///< as passed, see PutValue
    Status result = Status::noError;
};

/// An instance of a defined class. A property that was never set reads as the class's default
/// value. One thread may fill the instance; afterwards several threads may read it.
class Instance final : public Object {
public:
    explicit Instance(ResolvedClassPtr type);
    Instance(const Instance& other);
    Instance& operator=(const Instance&) = delete;

    const ResolvedClassPtr& Class() const { return type_; }

    /// Sets a value, which must have the form of the property's type. A property that the class
    /// lacks is ignored.
    void Set(std::string_view name, CimValue value);
    /// Resets a property to its default value; returns false if the class lacks it.
    bool Reset(std::string_view name);

    /// Records a Put of a provider. The caller (PutOn) stores the value with Set.
    void Record(PutCall call) { puts_.push_back(std::move(call)); }
    /// Returns the Puts so far in order, including refused ones.
    std::span<const PutCall> Puts() const { return puts_; }

    /// Returns `Class.Key="value",Key2=5` with the keys in alphabetical order; nothing if the class
    /// has no keys or a key has no value.
    std::optional<std::string> RelativePath() const;

    /// Returns nothing if nothing was put. Backslashes of texts are not escaped, those of
    /// references are.
    std::optional<std::string> PathAsPut() const override;

    std::optional<ObjectProperty> Find(std::string_view name) const override;
    std::vector<std::string> Names() const override;
    std::string ClassName() const override { return type_->name; }
    std::vector<Reference> References() const override;

private:
    ResolvedClassPtr type_;
    std::map<const PropertyDefinition*, CimValue> values_;  ///< of the properties that were set
    std::vector<PutCall> puts_;
};

}  // namespace qv::service
