#include "qvsata/session/Failure.h"

#include "qvsata/output/Output.h"
#include "qvsata/view/text/Characters.h"

namespace qv::tool {

int ReportOnErrors(const Failure& failure) {
    WriteErrorFitted("qvsata: " + view::Printable(failure.reason) + '\n' + failure.details);
    return failure.exitCode;
}

}  // namespace qv::tool
