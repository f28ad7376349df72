#include "qvsata/service/StatedInstances.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "qvsata/cim/Instance.h"

namespace qv::service {

StatedInstances::StatedInstances(const ClassRepository& repository,
                                 const NamespaceClasses& classes) {
    for (const InstanceDefinition& stated : repository.Instances()) {
        auto instance = std::make_shared<Instance>(classes.Find(stated.className));
        for (const auto& [name, value] : stated.values) {
            instance->Set(name, value);
        }
        instances_.push_back(std::move(instance));
    }
}

bool StatedInstances::Serves(const ResolvedClassPtr& type) const {
    return std::ranges::any_of(
        instances_, [&type](const ObjectPtr& one) { return one->ClassName() == type->name; });
}

Answer StatedInstances::Enumerate(const ResolvedClassPtr& type) const {
    Answer answer;
    std::ranges::copy_if(instances_, std::back_inserter(answer.objects),
                         [&type](const ObjectPtr& one) { return one->ClassName() == type->name; });
    return answer;
}

}  // namespace qv::service
