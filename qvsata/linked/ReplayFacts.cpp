#include "qvsata/linked/ReplayFacts.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <random>

namespace qv::service {

std::int64_t LocalClock::SecondsSince1970() const {
    using namespace std::chrono;
    return duration_cast<seconds>(system_clock::now().time_since_epoch()).count();
}

platform::LocalTime LocalClock::Local() const {
    using namespace std::chrono;
    const auto now = system_clock::now();
    const std::time_t seconds = system_clock::to_time_t(now);
    const auto sinceEpoch = duration_cast<milliseconds>(now.time_since_epoch());
    std::tm local{};
    localtime_r(&seconds, &local);
    const auto number = [](int value) { return static_cast<unsigned>(value); };
    return {number(local.tm_year + 1900),
            number(local.tm_mon + 1),
            number(local.tm_mday),
            number(local.tm_hour),
            number(local.tm_min),
            number(local.tm_sec),
            static_cast<unsigned>(sinceEpoch.count() % 1000)};
}

platform::TimeZone LocalClock::Zone() const {
    // The current offset, including daylight saving, as a zone without seasons.
    const std::time_t seconds = std::time(nullptr);
    std::tm local{};
    localtime_r(&seconds, &local);
    return {static_cast<std::int32_t>(-local.tm_gmtoff / 60), 0, 0, false};
}

Status RecordedFacts::NetworkAddresses(std::vector<std::string>& addresses) const {
    addresses.clear();
    return Status::noError;
}

Status RecordedFacts::NewGuid(std::string& guid) const {
    std::random_device random;
    std::array<unsigned, 4> words{};
    for (unsigned& word : words) {
        word = random();
    }
    // RFC 4122, version 4.
    words[1] = (words[1] & 0xFFFF0FFFU) | 0x00004000U;
    words[2] = (words[2] & 0x3FFFFFFFU) | 0x80000000U;
    std::array<char, 39> text{};
    std::snprintf(text.data(), text.size(), "{%08X-%04X-%04X-%04X-%04X%08X}", words[0],
                  words[1] >> 16U, words[1] & 0xFFFFU, words[2] >> 16U, words[2] & 0xFFFFU,
                  words[3]);
    guid = text.data();
    return Status::noError;
}

}  // namespace qv::service
