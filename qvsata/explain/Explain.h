#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "qvsata/explain/SourceRows.h"
#include "qvsata/explain/Verdict.h"
#include "qvsata/view/PublishedObject.h"

namespace qv::explain {

/// An instance class that Explain looks at, and the properties that it needs.
struct ExplainedClass {
    std::string_view name;
    std::vector<std::string_view> properties{};
};

/// Returns the instance classes, those at the ends of associations.
std::vector<ExplainedClass> ExplainedClasses();

/// Returns a verdict for each row, class by class in the order of the rows; for a driver, one per
/// controller that it serves. `published` has the instances of ExplainedClasses; a class whose
/// request failed is absent. The rules are the provider's own; they are asked about the rows.
/// Throws TooManyJoins if the rows of a class name disks more than `mostJoins` times in all, or an
/// association joins more pairs.
std::vector<Verdict> Explain(const SourceRows& rows, const view::PublishedHost& published,
                             std::size_t mostJoins);

}  // namespace qv::explain
