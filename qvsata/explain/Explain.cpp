#include "qvsata/explain/Explain.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "qvsata/explain/AssociationUse.h"
#include "qvsata/explain/Facts.h"
#include "qvsata/explain/JoinLimit.h"

namespace qv::explain {
namespace {

// Leaves to each note the associations that are empty because of it; those that no note explains
// get a note of their own.
void NoteEmpties(const AssociationUse& use, Verdict& verdict) {
    std::vector<std::string_view> empties = use.EmptyFor(verdict);
    for (Finding& note : verdict.notes) {
        std::erase_if(note.empties,
                      [&empties](std::string_view name) { return std::erase(empties, name) == 0; });
    }
    if (!empties.empty()) {
        verdict.notes.push_back({Rule::matchesNone, {}, std::move(empties)});
    }
}

}  // namespace

std::vector<Verdict> Explain(const SourceRows& rows, const view::PublishedHost& published,
                             std::size_t mostJoins) {
    CheckJoins(rows, mostJoins);
    const Facts facts(rows);
    const Drivers drivers(facts);
    Publisher publisher(published);
    std::vector<Verdict> verdicts;
    const auto append = [&verdicts](std::vector<Verdict> more) {
        std::ranges::move(more, std::back_inserter(verdicts));
    };
    append(DiskVerdicts(facts, publisher));
    append(ControllerVerdicts(facts, drivers, publisher));
    append(LinkVerdicts(facts));
    append(MediaVerdicts(facts));
    append(PartitionVerdicts(facts));
    append(PartitionLinkVerdicts(facts));
    append(PredictionVerdicts(facts));
    append(DriverVerdicts(facts, drivers, publisher));
    const AssociationUse use(published, mostJoins);
    for (Verdict& verdict : verdicts) {
        NoteEmpties(use, verdict);
    }
    return verdicts;
}

}  // namespace qv::explain
