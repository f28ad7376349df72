#include "qvsata/service/SourceJournal.h"

#include <algorithm>
#include <utility>

#include "source/Text.h"

namespace qv::service {

class SourceJournal::Entry {
public:
    using Clock = std::chrono::steady_clock;

    Entry(SourceQuery begun, Entry* older)
        : query_(std::move(begun)), older_(older), number_(NumberAfter(older)) {}

    static std::size_t NumberAfter(const Entry* older) {
        return older == nullptr ? 1 : older->number_ + 1;
    }

    void SetOlder(Entry* older) { older_ = older; }
    void SetNumber(std::size_t number) { number_ = number; }

    void End(Status status, std::size_t rows, SourceEnd end) {
        query_.status = status;
        query_.rows = rows;
        query_.end = end;
        query_.time = Elapsed();
        ended_.store(true, std::memory_order_release);
    }

    SourceQuery Query() const {
        if (ended_.load(std::memory_order_acquire)) {
            return query_;
        }
        SourceQuery pending{query_.nameSpace, query_.className, query_.text};
        pending.time = Elapsed();
        return pending;
    }

    Entry* Older() const { return older_; }
    std::size_t Number() const { return number_; }

private:
    std::chrono::microseconds Elapsed() const {
        return std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - begin_);
    }

    SourceQuery query_;  ///< its results are written before ended_, and read after it
    Entry* older_;
    std::size_t number_;  ///< its place in the journal, from 1
    const Clock::time_point begin_ = Clock::now();
    std::atomic<bool> ended_ = false;
};

SourceJournal::~SourceJournal() {
    for (const Entry* entry = newest_; entry != nullptr;) {
        const Entry* const older = entry->Older();
        delete entry;
        entry = older;
    }
}

SourceJournal::Entry& SourceJournal::Begin(std::string_view nameSpace, std::string_view text,
                                           std::string className) {
    Entry* newest = newest_.load(std::memory_order_acquire);
    auto* const entry =
        new Entry({std::string(nameSpace), std::move(className), std::string(text)}, newest);
    while (!newest_.compare_exchange_weak(newest, entry, std::memory_order_acq_rel)) {
        entry->SetOlder(newest);
        entry->SetNumber(Entry::NumberAfter(newest));
    }
    return *entry;
}

void SourceJournal::End(Entry& entry, Status status, std::size_t rows, SourceEnd end) {
    entry.End(status, rows, end);
}

std::vector<SourceQuery> SourceJournal::Queries(std::size_t skipped) const {
    std::vector<SourceQuery> queries;
    for (const Entry* entry = newest_.load(std::memory_order_acquire);
         entry != nullptr && entry->Number() > skipped; entry = entry->Older()) {
        queries.push_back(entry->Query());
    }
    std::ranges::reverse(queries);
    return queries;
}

std::size_t SourceJournal::Size() const {
    const Entry* const newest = newest_.load(std::memory_order_acquire);
    return newest == nullptr ? 0 : newest->Number();
}

void SourceJournal::Condense() {
    // The newest one stays, because it carries the number of queries so far.
    std::vector<Entry*> kept;
    Entry* const newest = newest_;
    for (Entry* entry = newest; entry != nullptr;) {
        Entry* const older = entry->Older();
        std::erase_if(kept, [&](Entry* later) {
            const bool isRepeated = later != newest && IsSameEnd(later->Query(), entry->Query());
            if (isRepeated) {
                delete later;
            }
            return isRepeated;
        });
        if (entry == newest || !WasRead(entry->Query())) {
            kept.push_back(entry);
        } else {
            delete entry;
        }
        entry = older;
    }
    for (std::size_t index = 0; index < kept.size(); ++index) {
        kept[index]->SetOlder(index + 1 < kept.size() ? kept[index + 1] : nullptr);
    }
}

bool IsSameEnd(const SourceQuery& one, const SourceQuery& other) {
    return EqualsIgnoringCase(one.nameSpace, other.nameSpace) &&
           EqualsIgnoringCase(one.className, other.className) && one.end == other.end &&
           one.status == other.status;
}

}  // namespace qv::service
