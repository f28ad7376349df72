#include "catalogue/Catalogue.h"

#include <algorithm>

#include "catalogue/Classes.h"
#include "catalogue/Hierarchy.h"
#include "source/Text.h"

namespace qv {
namespace {

class TableCatalogue final : public ClassCatalogue {
public:
    const PublishedClass* Find(std::string_view className) const override {
        const auto classes = PublishedClasses();
        const auto found = std::ranges::find_if(classes, [className](const PublishedClass& one) {
            return EqualsIgnoringCase(one.name, className);
        });
        return found == classes.end() ? nullptr : &*found;
    }

    bool IsOfClass(std::string_view className, std::string_view name) const override {
        return IsClassOrAncestor(FindClassNode(className), name);
    }
};

// Constant-initialised: other objects take it while they are initialised themselves.
constinit const TableCatalogue tableCatalogue;

}  // namespace

const ClassCatalogue& PublishedCatalogue() {
    return tableCatalogue;
}

}  // namespace qv
