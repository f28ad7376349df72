#include "NativeAPI/KeyMatching.h"

#include <algorithm>

#include "source/Text.h"

namespace qv {
namespace {

bool BeginsWith(std::string_view text, std::string_view beginning) {
    return text.size() >= beginning.size() &&
           EqualsIgnoringCase(text.substr(0, beginning.size()), beginning);
}

bool EndsWith(std::string_view text, std::string_view end) {
    return text.size() >= end.size() &&
           EqualsIgnoringCase(text.substr(text.size() - end.size()), end);
}

bool Contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

bool Lists(std::string_view list, std::string_view element) {
    return std::ranges::any_of(SplitList(list), [element](std::string_view piece) {
        return EqualsIgnoringCase(piece, element);
    });
}

}  // namespace

bool MatchKeyValues(std::string_view first, std::string_view second, MatchRule rule) {
    switch (rule) {
        case MatchRule::always:
            return true;
        case MatchRule::equal:
            return EqualsIgnoringCase(first, second);
        case MatchRule::firstBeginsWith:
            return BeginsWith(first, second);
        case MatchRule::firstEndsWith:
            return EndsWith(first, second);
        case MatchRule::secondBeginsWith:
            return BeginsWith(second, first);
        case MatchRule::secondEndsWith:
            return EndsWith(second, first);
        case MatchRule::firstContains:
        case MatchRule::firstContainsToo:
            return Contains(first, second);
        case MatchRule::secondContains:
            return Contains(second, first);
        case MatchRule::firstListsSecond:
            return Lists(first, second);
        case MatchRule::secondListsFirst:
            return Lists(second, first);
    }
    return false;
}

}  // namespace qv
