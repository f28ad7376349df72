#pragma once

#include <cstdint>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/Status.h"
#include "qvsata/cim/Object.h"
#include "qvsata/cim/ResolvedClass.h"

namespace qv::service {

/// One put of a provider on an instance: what it handed over, and what became of it.
struct PutCall {
    std::string name;               ///< as the provider spelled it
    std::uint16_t variantType = 0;  ///< VARENUM of wtypes.h; VT_NULL also for a null pointer
    CimValue value;  ///< as it was handed over; a boolean as its number (true may be 1 or -1)
    Status result = Status::noError;
};

/// An instance of a class with a definition: empty when it is made, its class's default values
/// showing through. One thread may fill it; when that is done several may read.
class Instance final : public Object {
public:
    explicit Instance(ResolvedClassPtr type);
    Instance(const Instance& other);
    Instance& operator=(const Instance&) = delete;

    const ResolvedClassPtr& Class() const { return type_; }

    /// Sets a value that is in the form of its type; a property that the class lacks is left out.
    void Set(std::string_view name, CimValue value);
    /// Resets a property to its default value; false for one that the class lacks.
    bool Reset(std::string_view name);

    /// Keeps what a provider put; the value itself is Set by the caller.
    void Record(PutCall call) { puts_.push_back(std::move(call)); }
    /// The puts so far, in order, those that were refused included.
    std::span<const PutCall> Puts() const { return puts_; }

    /// Returns `Class.Key="value",Key2=5` with the keys in alphabetical order; nothing when the
    /// class has no keys or one has no value.
    std::optional<std::string> RelativePath() const;

    /// Returns the same with the keys in the order in which they were put, as a provider that
    /// compares paths as text has it: backslashes of texts are not escaped, those of references
    /// are.
    std::string PathAsPut() const;

    std::optional<ObjectProperty> Find(std::string_view name) const override;
    std::vector<std::string> Names() const override;
    std::string ClassName() const override { return type_->name; }
    std::span<const Reference> References() const override;

private:
    std::optional<CimValue>* Slot(std::string_view name);

    ResolvedClassPtr type_;
    std::vector<std::optional<CimValue>> values_;  ///< in the order of the class's properties
    std::vector<PutCall> puts_;
    mutable std::once_flag referencesFound_;
    mutable std::vector<Reference> references_;
};

}  // namespace qv::service
