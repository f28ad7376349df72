// The result of a request when memory runs out while a row of its source is read.
#include <gmock/gmock.h>

#include <new>
#include <set>

#include "catalogue/Catalogue.h"
#include "catalogue/Classes.h"
#include "tests/catalogue/OneDiskHost.h"
#include "tests/support/ExpectedCatalogue.h"

namespace qv::test {
namespace {

/// Selects the property read that finds no memory.
struct ReadScript {
    std::size_t failing = 0;  ///< its number, from 1
    std::size_t run = 0;      ///< the number of reads so far
    std::string property;     ///< the property that it reads; empty until then
};

class ScarceRow : public platform::Row {
public:
    ScarceRow(std::shared_ptr<const platform::Row> sound, ReadScript& script)
        : sound_(std::move(sound)), script_(script) {}

    platform::PropertyRead Get(std::string_view name) const override {
        if (++script_.run == script_.failing) {
            script_.property = name;
            throw std::bad_alloc();
        }
        return sound_->Get(name);
    }
    Status GetWideText(std::string_view name, std::wstring& text) const override {
        return sound_->GetWideText(name, text);
    }

private:
    std::shared_ptr<const platform::Row> sound_;
    ReadScript& script_;
};

/// Another port's rows, read under a script.
class ScarcePort : public platform::QueryPort {
public:
    ScarcePort(const platform::QueryPort& sound, ReadScript& script)
        : sound_(sound), script_(script) {}

    Status RunWqlQuery(std::string_view nameSpace, std::string_view query,
                       platform::Rows& rows) const override {
        const auto result = sound_.RunWqlQuery(nameSpace, query, rows);
        for (auto& row : rows) {
            row = std::make_shared<ScarceRow>(std::move(row), script_);
        }
        return result;
    }

private:
    const platform::QueryPort& sound_;
    ReadScript& script_;
};

/// How a request ended.
enum class End { sound, outOfMemory, standardException };

// The source properties that are not texts.
const std::set<std::string> numbersAndFlags{
    "ProtocolSupported", "Capabilities",     "Index",      "Partitions",
    "SectorsPerTrack",   "BytesPerSector",   "TotalHeads", "TracksPerCylinder",
    "OperationalStatus", "PrimaryPartition", "Bootable",   "BootPartition"};

End ExpectedEnd(const std::string& property) {
    return numbersAndFlags.contains(property) ? End::standardException : End::outOfMemory;
}

/// The properties whose reads found no memory, and how their requests ended.
using FailedReads = std::vector<std::pair<std::string, End>>;

class ExhaustedMemoryTest : public OneDiskHost, public testing::TestWithParam<std::size_t> {
protected:
    End Publish(std::string_view className, ReadScript& script) {
        const ScarcePort port(host, script);
        try {
            NativeAPI(PublishedCatalogue(), port, host, host)
                .BuildInstances(className, mode::allProperties, {});
        } catch (const RequestError& error) {
            EXPECT_EQ(error.status(), Status::outOfMemory);
            return End::outOfMemory;
        } catch (const std::bad_alloc&) {
            return End::standardException;
        }
        return End::sound;
    }

    /// Runs a request for each of its reads, which fails.
    FailedReads FailEachRead(std::string_view className) {
        FailedReads reads;
        for (;;) {
            ReadScript script{reads.size() + 1, 0, {}};
            const End end = Publish(className, script);
            if (script.property.empty()) {
                EXPECT_EQ(end, End::sound);
                return reads;
            }
            reads.emplace_back(script.property, end);
        }
    }
};

TEST_P(ExhaustedMemoryTest, EndsTheRequestAtWhateverReadWithTheErrorOfItsKind) {
    const std::string_view className = PublishedClasses()[GetParam()].name;
    const FailedReads reads = FailEachRead(className);
    EXPECT_THAT(reads, testing::Each(testing::Truly([](const auto& read) {
                    return read.second == ExpectedEnd(read.first);
                })));
    // The host itself is not read from rows.
    EXPECT_EQ(reads.empty(), className == "QV_WinComputerSystem");
}

INSTANTIATE_TEST_SUITE_P(EachClass, ExhaustedMemoryTest,
                         testing::Range(std::size_t{0}, instanceClassTotal), [](const auto& one) {
                             return std::string(PublishedClasses()[one.param].name.substr(3));
                         });

}  // namespace
}  // namespace qv::test
