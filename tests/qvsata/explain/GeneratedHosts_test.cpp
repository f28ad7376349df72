// The verdicts on generated hosts are true: what is published changes as they say when a row is
// taken out.
#include <gmock/gmock.h>

#include <deque>
#include <map>
#include <optional>
#include <set>

#include "catalogue/Associations.h"
#include "catalogue/Classes.h"
#include "qvsata/explain/Explain.h"
#include "qvsata/explain/Sentences.h"
#include "source/DiskInventory.h"
#include "tests/support/GeneratedHost.h"
#include "tests/support/RecordedProvider.h"

namespace qv::test {
namespace {

using explain::Outcome;
using explain::Verdict;
using service::RecordedHost;

/// All that a host publishes and watches; nothing for what fails.
struct Output {
    std::map<std::string_view, std::optional<RecordList>> instances;
    std::optional<std::pair<DiskList, FailurePredictList>> watched;

    bool operator==(const Output&) const = default;
};

/// Returns what is published of a record: of several entries with one name the last.
InstanceRecord AsFilled(const InstanceRecord& record) {
    std::map<std::string_view, const PropertyEntry*> last;
    for (const PropertyEntry& entry : record.properties) {
        last[entry.name] = &entry;
    }
    InstanceRecord filled(record.className);
    std::ranges::copy_if(
        record.properties, std::back_inserter(filled.properties),
        [&last](const PropertyEntry& entry) { return last.at(entry.name) == &entry; });
    return filled;
}

std::optional<RecordList> InstancesOf(const RecordedProvider& provider,
                                      std::string_view className) {
    try {
        RecordList instances = provider.All(className);
        std::ranges::transform(instances, instances.begin(), AsFilled);
        return instances;
    } catch (const RequestError&) {
        return std::nullopt;
    }
}

std::optional<std::pair<DiskList, FailurePredictList>> WatchedBy(const RecordedProvider& provider) {
    const auto watched = ReadWatchedDisks(provider, provider);
    return watched ? std::optional(std::pair(watched->disks, watched->predictions)) : std::nullopt;
}

Output OutputOf(const RecordedProvider& provider) {
    Output output;
    for (const PublishedClass& one : PublishedClasses()) {
        output.instances[one.name] = InstancesOf(provider, one.name);
    }
    output.watched = WatchedBy(provider);
    return output;
}

/// Returns whether a host's output is this one. It ends at the first difference.
bool HasOutput(const RecordedHost& host, const Output& output) {
    const RecordedProvider provider(host);
    return WatchedBy(provider) == output.watched &&
           std::ranges::all_of(output.instances, [&provider](const auto& one) {
               return InstancesOf(provider, one.first) == one.second;
           });
}

view::PublishedObject AsObject(const InstanceRecord& record) {
    view::PublishedObject object{record.className, BuildObjectPath(record), {}, {}};
    for (const PropertyEntry& entry : record.properties) {
        object.values[entry.name] = entry.value;
    }
    return object;
}

/// Does something with each recorded class: visit(namespace, class).
template <typename Visit>
void ForEachClass(const RecordedHost& host, Visit visit) {
    for (const auto& nameSpace : host.Namespaces()) {
        for (const auto& one : nameSpace.Classes()) {
            visit(nameSpace.Name(), one);
        }
    }
}

std::vector<Verdict> VerdictsOn(const RecordedHost& host, const RecordedProvider& provider,
                                const Output& output) {
    explain::SourceRows rows = explain::ReadSourceRows(provider);
    for (const std::string_view source : explain::source::All()) {
        ForEachClass(host, [&](const std::string&, const service::RecordedClass& one) {
            if (one.Name() == source && one.Failure()) {
                rows.unread.insert(source);
            }
        });
    }
    view::PublishedHost published;
    for (const explain::ExplainedClass& one : explain::ExplainedClasses()) {
        if (const auto& instances = output.instances.at(one.name)) {
            std::ranges::transform(*instances, std::back_inserter(published[std::string(one.name)]),
                                   AsObject);
        }
    }
    return explain::Explain(rows, published, 1'000'000);
}

/// A row by its class and its place there.
using RowId = std::pair<std::string, std::size_t>;

RecordedHost Without(const RecordedHost& host, const std::set<RowId>& dropped) {
    RecordedHost kept(host.Computer());
    ForEachClass(host, [&](const std::string& nameSpace, const service::RecordedClass& one) {
        kept.DefineClass(nameSpace, one.Name());
        for (std::size_t place = 0; place < one.Rows().size(); ++place) {
            if (!dropped.contains({one.Name(), place})) {
                kept.AddRow(nameSpace, one.Name(), one.Rows()[place].Properties());
            }
        }
        if (one.Failure()) {
            kept.FailClass(nameSpace, one.Name(), *one.Failure());
        }
    });
    return kept;
}

/// Returns a row and the rows that are equal to it.
std::set<RowId> CopiesOf(const RecordedHost& host, const RowId& row) {
    std::set<RowId> copies;
    ForEachClass(host, [&](const std::string&, const service::RecordedClass& one) {
        for (std::size_t place = 0; one.Name() == row.first && place < one.Rows().size(); ++place) {
            if (one.Rows()[place].Properties() == one.Rows()[row.second].Properties()) {
                copies.emplace(row.first, place);
            }
        }
    });
    return copies;
}

/// A host with what it publishes and the verdict on each of its rows.
struct Explained {
    explicit Explained(unsigned seed) : host(HostGenerator(seed).Make()) {
        const RecordedProvider provider(host);
        output = OutputOf(provider);
        verdicts = VerdictsOn(host, provider, output);
    }

    /// Returns the verdicts by row. Those on drivers are on no row of one class.
    std::map<RowId, const Verdict*> ByRow() const {
        std::map<std::string_view, std::size_t> places;
        std::map<RowId, const Verdict*> byRow;
        for (const Verdict& verdict : verdicts) {
            if (verdict.source != explain::source::servingDrivers) {
                byRow[{std::string(verdict.source), places[verdict.source]++}] = &verdict;
            }
        }
        return byRow;
    }

    RecordedHost host;
    Output output;
    std::vector<Verdict> verdicts;
};

std::string Said(const RowId& row, const Verdict& verdict) {
    return row.first + ' ' + std::to_string(row.second) + ' ' + verdict.name + ": " +
           WordsOf(verdict) + ": " + (verdict.reason ? Sentence(*verdict.reason) : "");
}

/// Five hundred hosts, generated once for all tests.
const std::deque<Explained>& AllHosts() {
    static const std::deque<Explained> hosts = [] {
        std::deque<Explained> made;
        for (unsigned seed = 0; seed < 500; ++seed) {
            made.emplace_back(seed);
        }
        return made;
    }();
    return hosts;
}

template <typename Check>
void ForEachHost(Check check) {
    for (std::size_t seed = 0; seed < AllHosts().size(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        check(AllHosts()[seed]);
    }
}

/// As ForEachHost with some of the hosts, for checks that publish each host many times.
template <typename Check>
void ForSomeHosts(Check check) {
    for (std::size_t seed = 0; seed < AllHosts().size(); seed += 10) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        check(AllHosts()[seed]);
    }
}

/// Returns which of the rows change the output when they are taken out.
std::string RowsThatMatter(const Explained& explained, const std::set<RowId>& rows) {
    std::string said;
    for (const RowId& row : rows) {
        if (!HasOutput(Without(explained.host, {row}), explained.output)) {
            said += Said(row, *explained.ByRow().at(row)) + '\n';
        }
    }
    return said;
}

TEST(GeneratedHosts, HaveOneVerdictForEachRow) {
    ForEachHost([](const Explained& explained) {
        std::map<RowId, const Verdict*> verdicts = explained.ByRow();
        ForEachClass(explained.host, [&](const std::string&, const service::RecordedClass& one) {
            const bool isJudged = one.Name().find("PnP") == std::string::npos &&
                                  one.Name().find("SystemDriver") == std::string::npos;
            for (std::size_t place = 0; isJudged && place < one.Rows().size(); ++place) {
                EXPECT_EQ(verdicts.erase({one.Name(), place}), 1U) << one.Name() << place;
            }
        });
        EXPECT_EQ(verdicts.size(), 0U);
    });
}

TEST(GeneratedHosts, HaveEachInstanceInOneVerdict) {
    ForEachHost([](const Explained& explained) {
        std::multiset<std::pair<std::string_view, std::size_t>> named;
        for (const Verdict& verdict : explained.verdicts) {
            for (const explain::PublishedAs& instance : verdict.instances) {
                named.emplace(instance.className, instance.place);
            }
        }
        std::multiset<std::pair<std::string_view, std::size_t>> published;
        for (const PublishedClass& one : PublishedClasses()) {
            const auto& instances = explained.output.instances.at(one.name);
            const bool isOfHost =
                one.name == "QV_WinComputerSystem" || one.name == "QV_SATAStorageCollection";
            const std::size_t count =
                one.association == nullptr && !isOfHost && instances ? instances->size() : 0;
            for (std::size_t place = 0; place < count; ++place) {
                published.emplace(one.name, place);
            }
        }
        EXPECT_EQ(named, published);
    });
}

bool HasFailedRequests(const Output& output) {
    return std::ranges::any_of(output.instances,
                               [](const auto& one) { return !one.second.has_value(); });
}

TEST(GeneratedHosts, PublishTheSameWithoutTheRowsThatAreLeftOut) {
    ForEachHost([](const Explained& explained) {
        std::set<RowId> leftOut;
        for (const auto& [row, verdict] : explained.ByRow()) {
            // A controller that is not published may have a driver or a disk. Any medium makes the
            // requests fail that compare media with a disk without a DeviceID.
            const bool isOfNoEffect =
                verdict->source != explain::source::controllers &&
                !(verdict->source == explain::source::media && HasFailedRequests(explained.output));
            if (verdict->outcome == Outcome::unpublished && isOfNoEffect) {
                leftOut.insert(row);
            }
        }
        EXPECT_TRUE(leftOut.empty() ||
                    HasOutput(Without(explained.host, leftOut), explained.output))
            << RowsThatMatter(explained, leftOut);
    });
}

std::size_t CountOf(const std::optional<RecordList>& instances) {
    return instances ? instances->size() : 0;
}

TEST(GeneratedHosts, LackTheInstancesOfAPublishedRowThatIsTakenOut) {
    ForSomeHosts([](const Explained& explained) {
        for (const auto& [row, verdict] : explained.ByRow()) {
            if (verdict->instances.empty()) {
                continue;
            }
            const RecordedProvider without(Without(explained.host, {row}));
            for (const explain::PublishedAs& instance : verdict->instances) {
                EXPECT_EQ(CountOf(InstancesOf(without, instance.className)) + 1,
                          CountOf(explained.output.instances.at(instance.className)))
                    << Said(row, *verdict);
            }
        }
    });
}

TEST(GeneratedHosts, PublishSomethingElseWithoutAUsedRow) {
    ForSomeHosts([](const Explained& explained) {
        for (const auto& [row, verdict] : explained.ByRow()) {
            if (verdict->outcome == Outcome::used) {
                const auto copies = CopiesOf(explained.host, row);
                EXPECT_FALSE(HasOutput(Without(explained.host, copies), explained.output))
                    << Said(row, *verdict);
            }
        }
    });
}

/// What the instances of an association name.
struct Named {
    explicit Named(const Association& association, const Output& output)
        : name(association.name),
          ends{association.first.className, association.second.className,
               association.third.className} {
        std::erase(ends, "");
        isPublished = std::ranges::all_of(
            ends, [&output](std::string_view end) { return output.instances.at(end).has_value(); });
        const auto& instances = output.instances.at(association.name);
        for (const InstanceRecord& instance : instances.value_or(RecordList())) {
            for (const PropertyEntry& entry : instance.properties) {
                if (entry.type == PropertyType::reference) {
                    paths.insert(entry.value);
                }
            }
        }
    }

    std::string_view name;
    std::vector<std::string_view> ends;
    bool isPublished = false;  ///< all ends are
    std::set<std::string> paths;
};

/// Returns the association classes with an end for the verdict's instances, none of which an
/// instance of the class names.
std::set<std::string_view> EmptyAssociations(const Verdict& verdict,
                                             const std::vector<Named>& associated) {
    std::set<std::string_view> empty;
    for (const Named& one : associated) {
        const auto isEnd = [&one](const explain::PublishedAs& instance) {
            return std::ranges::count(one.ends, instance.className) != 0;
        };
        const auto isNamed = [&one](const explain::PublishedAs& instance) {
            return one.paths.contains(instance.path);
        };
        if (one.isPublished && std::ranges::any_of(verdict.instances, isEnd) &&
            std::ranges::none_of(verdict.instances, isNamed)) {
            empty.insert(one.name);
        }
    }
    return empty;
}

TEST(GeneratedHosts, HaveTheAssociationsOfARowThatAreNotSaidToBeEmpty) {
    ForEachHost([](const Explained& explained) {
        std::vector<Named> associated;
        for (const Association& association : associations) {
            associated.emplace_back(association, explained.output);
        }
        for (const auto& [row, verdict] : explained.ByRow()) {
            std::set<std::string_view> said;
            for (const explain::Finding& note : verdict->notes) {
                said.insert(note.empties.begin(), note.empties.end());
            }
            EXPECT_EQ(said, EmptyAssociations(*verdict, associated)) << Said(row, *verdict);
        }
    });
}

}  // namespace
}  // namespace qv::test
