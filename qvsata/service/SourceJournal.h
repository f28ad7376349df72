#pragma once

#include <atomic>
#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Status.h"

namespace qv::service {

/// How a query of a source ended.
enum class SourceEnd {
    pending,              ///< not yet
    answered,             ///< read to its last row
    refusedAtConnection,  ///< no connection to the namespace
    refusedAtSubmission,  ///< the query failed before its first row
    brokenOff,            ///< it failed after some rows
    unknownClass,         ///< the machine's service has no such class
    neverRecorded,        ///< the recording lacks the class or the namespace
    timedOut,
};

/// A query that the provider, or the tool itself, ran on the machine.
struct SourceQuery {
    std::string nameSpace;  ///< with backslashes, in the spelling of the query
    /// The class that it selects or of which it reads an object; the association class of
    /// ASSOCIATORS OF and REFERENCES OF, or without one the class of the path; the class to which
    /// an association leads. Empty if the connection was refused, and of a text that names no
    /// class.
    std::string className;
    std::string text;  ///< WQL, or the path of one object; empty if the connection was refused
    std::size_t rows = 0;
    std::chrono::microseconds time{};
    Status status = Status::noError;
    SourceEnd end = SourceEnd::pending;
};

/// Returns whether the query read all that there is.
inline bool WasRead(const SourceQuery& query) {
    return query.end == SourceEnd::answered;
}

/// Returns whether two queries read the same class and ended in the same way.
bool IsSameEnd(const SourceQuery& one, const SourceQuery& other);

/// The queries of a machine's classes, in the order in which they began. Any number of threads may
/// write and read it at once. It holds no lock, because a terminated monitor thread would leave it
/// locked.
class SourceJournal {
public:
    /// A query that runs; owned by the journal.
    class Entry;

    SourceJournal() = default;
    SourceJournal(const SourceJournal&) = delete;
    SourceJournal& operator=(const SourceJournal&) = delete;
    ~SourceJournal();

    /// Notes that a query begins, with the values that SourceQuery has of it.
    Entry& Begin(std::string_view nameSpace, std::string_view text, std::string className);

    /// Notes how it ended. Call it once.
    static void End(Entry& entry, Status status, std::size_t rows, SourceEnd end);

    /// Returns the queries that began after the first `skipped`.
    std::vector<SourceQuery> Queries(std::size_t skipped = 0) const;

    /// Returns the number of queries so far.
    std::size_t Size() const;

    /// Drops the queries that were answered, and of the others all but the first of each class and
    /// end, so that a journal that is kept for months stays small. No other thread may use the
    /// journal meanwhile.
    void Condense();

private:
    std::atomic<Entry*> newest_ = nullptr;
};

}  // namespace qv::service
