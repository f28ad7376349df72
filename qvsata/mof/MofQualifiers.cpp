#include "qvsata/mof/MofQualifiers.h"

#include "qvsata/mof/MofNames.h"
#include "qvsata/mof/MofValue.h"
#include "source/Text.h"

namespace qv::service {
namespace {

/// Bounds what comparing them with each other costs. Schemas have about twenty.
constexpr std::size_t mostQualifiers = 256;

/// Throws the error of one qualifier.
class Check {
public:
    Check(const MofQualifier& written, std::string_view fileName)
        : written_(written), fileName_(fileName) {}

    void Name() const {
        if (EqualsIgnoringCase(written_.name, "CIMType")) {
            Fail(" is the compiler's to state", mof_status::cimTypeQualifier);
        }
        if (written_.name.size() > longestMofName) {
            Fail(" has a name of more than 255 characters", mof_status::qualifierNameTooWide);
        }
        if (IsReservedName(written_.name)) {
            throw MofError(fileName_, written_.position,
                           "qualifier " + written_.name + " begins or ends with an underscore");
        }
    }

    void Flavors(QualifierOwner owner) const {
        if (written_.enableOverride && written_.disableOverride) {
            Fail(" is both EnableOverride and DisableOverride", mof_status::incompatibleFlavors);
        }
        if (written_.restricted && (written_.toInstance || written_.toSubclass)) {
            Fail(" is Restricted and handed on", mof_status::incompatibleFlavors2);
        }
        if (owner == QualifierOwner::instance && written_.toSubclass) {
            throw MofError(fileName_, written_.position,
                           "qualifier " + written_.name + " of an instance is ToSubclass");
        }
    }

    CimValue Value() const {
        std::optional<CimValue> value = QualifierValue(written_.value);
        if (!value || std::holds_alternative<std::monostate>(*value)) {
            Fail(" has no usable value", mof_status::invalidQualifierType);
        }
        return *std::move(value);
    }

    void NotAmong(const std::vector<Qualifier>& others) const {
        if (FindQualifier(others, written_.name) != nullptr) {
            Fail(" is stated twice", mof_status::duplicateQualifier);
        }
    }

private:
    [[noreturn]] void Fail(const char* what, const MofStatus& status) const {
        throw MofError(fileName_, written_.position, "qualifier " + written_.name + what, status);
    }

    const MofQualifier& written_;
    std::string_view fileName_;
};

}  // namespace

std::vector<Qualifier> ReadQualifiers(const std::vector<MofQualifier>& written,
                                      QualifierOwner owner, std::string_view fileName) {
    std::vector<Qualifier> qualifiers;
    for (const MofQualifier& one : written) {
        if (qualifiers.size() == mostQualifiers) {
            throw MofError(fileName, one.position,
                           "more than " + std::to_string(mostQualifiers) + " qualifiers");
        }
        const Check check(one, fileName);
        check.Name();
        check.Flavors(owner);
        CimValue value = check.Value();
        check.NotAmong(qualifiers);
        qualifiers.push_back(
            {one.name, std::move(value), one.toSubclass, one.toInstance, !one.disableOverride});
    }
    return qualifiers;
}

}  // namespace qv::service
