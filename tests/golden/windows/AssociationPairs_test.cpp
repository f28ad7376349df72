// The delivered associations, compared with a plain pairing of the delivered endpoints: every pair,
// and tests of two texts that share no code with the library.
#include <algorithm>
#include <map>

#include "tests/golden/GoldenFiles.h"
#include "tests/golden/windows/WholeHost.h"
#include "tests/support/ExpectedCatalogue.h"

namespace qv::test {
namespace {

char Lower(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character + ('a' - 'A'))
                                                : character;
}
bool Equal(const std::string& a, const std::string& b) {
    return std::ranges::equal(a, b, {}, Lower, Lower);
}
bool Holds(const std::string& a, const std::string& b) {
    return a.find(b) != std::string::npos;
}
bool IsHeldBy(const std::string& a, const std::string& b) {
    return Holds(b, a);
}

using KeyTest = bool (*)(const std::string& one, const std::string& other);

/// The tests of two keys, by the numbers of their rules.
const std::map<unsigned, KeyTest> keyTests{{1, Equal}, {6, Holds}, {7, IsHeldBy}, {10, Holds}};

using References = std::vector<std::string>;

class AssociationPairsTest : public testing::TestWithParam<std::filesystem::path> {
protected:
    const std::vector<PublishedInstance>& All(const std::string& className) const {
        return host_.Of(className);
    }

    std::string Reference(const std::string& role, const PublishedInstance& instance) const {
        return role + " = " + host_.prefix + PathOf(instance, host_.prefix);
    }

    /// Returns the references of each delivered association, in the order of the puts.
    std::vector<References> Delivered(const std::string& className) const {
        std::vector<References> delivered;
        for (const PublishedInstance& association : All(className)) {
            References& references = delivered.emplace_back();
            for (const PublishedProperty& property : association.properties) {
                if (property.isKey) {
                    references.push_back(property.name + " = " +
                                         TextOf(association, property.name));
                }
            }
        }
        return delivered;
    }

    /// Returns the chains from the first ends to the last ones, found by plain loops over all
    /// instances.
    std::vector<References> Derived(const ExpectedAssociation& association) const {
        std::vector<References> derived;
        for (const PublishedInstance& one : All(association.ends[0].className)) {
            Follow(association, 0, one, {}, derived);
        }
        return derived;
    }

    /// Appends the chains that continue from an instance of the end at `place`.
    void Follow(const ExpectedAssociation& association, std::size_t place,
                const PublishedInstance& instance, References way,
                std::vector<References>& derived) const {
        const ExpectedEnd& end = association.ends[place];
        way.push_back(Reference(end.role, instance));
        if (place == association.rules.size()) {
            derived.push_back(std::move(way));
            return;
        }
        const ExpectedEnd& next = association.ends[place + 1];
        const KeyTest matches = keyTests.at(association.rules[place]);
        for (const PublishedInstance& other : All(next.className)) {
            if (matches(TextOf(instance, end.key), TextOf(other, next.key))) {
                Follow(association, place + 1, other, way, derived);
            }
        }
    }

    using ReferencesByClass = std::map<std::string, std::vector<References>>;

    ReferencesByClass AllDelivered() const {
        ReferencesByClass all;
        for (const ExpectedAssociation& association : ExpectedAssociations()) {
            all.emplace(association.name, Delivered(association.name));
        }
        return all;
    }

    ReferencesByClass AllDerived() const {
        ReferencesByClass all;
        for (const ExpectedAssociation& association : ExpectedAssociations()) {
            all.emplace(association.name, Derived(association));
        }
        return all;
    }

    const WholeHost& host_ = WholeHost::From(GetParam());
};

TEST_P(AssociationPairsTest, AreThoseOfTheDeliveredEndpoints) {
    EXPECT_EQ(AllDelivered(), AllDerived());
}

INSTANTIATE_TEST_SUITE_P(ShippedHosts, AssociationPairsTest, testing::ValuesIn(ShippedHosts()),
                         HostName);
INSTANTIATE_TEST_SUITE_P(RealMachines, AssociationPairsTest, testing::ValuesIn(RealMachines()),
                         HostName);

}  // namespace
}  // namespace qv::test
