#pragma once

#include <memory>

#include "qvsata/service/Services.h"
#include "qvsata/service/SourceJournal.h"

namespace qv::service {

/// Where the answers of a machine come from: its own service, or a recording of it.
enum class MachineKind { live, recorded };

/// Returns a connector to the same machine that notes each query in the journal.
Connector WithJournal(Connector machine, MachineKind kind, std::shared_ptr<SourceJournal> journal);

}  // namespace qv::service
