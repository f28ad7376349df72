#include "qvsata/capture/Reach.h"

#include <algorithm>
#include <array>

#include "qvsata/capture/Alphabet.h"
#include "qvsata/capture/MapTexts.h"
#include "qvsata/cim/Utf8.h"
#include "qvsata/recorded/HostText.h"
#include "source/Text.h"

namespace qv::capture {
namespace {

/// Shorter texts stand in others by chance.
constexpr std::size_t shortestEverywhere = 6;
constexpr std::size_t shortestWord = 2;
/// The properties whose texts support needs. A computer may have the name of a maker.
constexpr std::array<std::string_view, 14> keptProperties{
    "Model",  "Manufacturer", "FirmwareRevision", "InterfaceType", "MediaType",
    "Status", "Service",      "Caption",          "Description",   "DisplayName",
    "Name",   "HardwareID",   "CompatibleID",     "PNPDeviceID"};

}  // namespace

KeptTexts::KeptTexts(const service::RecordedHost& host)
    : form_(Folded(service::ToWide(service::HostAsText(MapTexts(
          host, service::RecordedHost(), [](auto, const auto&) { return std::string(); }))))) {
    VisitTexts(host, [this](std::string_view property, const std::string& text) {
        if (std::ranges::any_of(keptProperties, [property](std::string_view name) {
                return EqualsIgnoringCase(name, property);
            })) {
            rows_.push_back(Folded(service::ToWide(text)));
        }
    });
}

Reach KeptTexts::ReachOf(const Secret& secret) const {
    const std::wstring folded = Folded(secret.text);
    const bool isName = secret.kind == SecretKind::name;
    const auto isKept = [&](auto contains) {
        return contains(form_) || (isName && std::ranges::any_of(rows_, contains));
    };
    const std::size_t count = CountReplaceable(folded);
    if (count >= shortestEverywhere &&
        !isKept([&folded](const std::wstring& text) { return text.find(folded) != text.npos; })) {
        return Reach::everywhere;
    }
    const bool isWord =
        isName && count >= shortestWord &&
        !isKept([&folded](const std::wstring& text) { return ContainsWord(text, folded); });
    return isWord ? Reach::words : Reach::places;
}

}  // namespace qv::capture
