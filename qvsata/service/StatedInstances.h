#pragma once

#include "qvsata/cim/ClassRepository.h"
#include "qvsata/service/InstanceSource.h"
#include "qvsata/service/NamespaceClasses.h"

namespace qv::service {

/// The instances that the MOF files of a namespace declare.
class StatedInstances final : public InstanceSource {
public:
    StatedInstances(const ClassRepository& repository, const NamespaceClasses& classes);

    bool Serves(const ResolvedClassPtr& type) const override;
    Answer Enumerate(const ResolvedClassPtr& type) const override;

private:
    ObjectList instances_;
};

}  // namespace qv::service
